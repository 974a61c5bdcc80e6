#include "search/ReferenceDate.h"

namespace quorvantel {

namespace {

// 2001-01-01 00:00:00 UTC, in milliseconds since 1970-01-01 00:00:00 UTC.
constexpr qint64 referenceDate = 978'307'200'000;

double secondsSinceReferenceDate(qint64 millisecondsSinceEpoch) {
    return static_cast<double>(millisecondsSinceEpoch - referenceDate) / 1000.0;
}

} // namespace

double secondsSinceReferenceDate(const QDateTime& moment) {
    return secondsSinceReferenceDate(moment.toMSecsSinceEpoch());
}

double currentReferenceDate() {
    return secondsSinceReferenceDate(QDateTime::currentMSecsSinceEpoch());
}

} // namespace quorvantel
