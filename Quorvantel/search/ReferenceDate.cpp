#include "search/ReferenceDate.h"

namespace quorvantel {

namespace {

// 2001-01-01 00:00:00 UTC, in milliseconds since 1970-01-01 00:00:00 UTC.
constexpr qint64 referenceDate = 978'307'200'000;

} // namespace

double secondsSinceReferenceDate(const QDateTime& moment) {
    return static_cast<double>(moment.toMSecsSinceEpoch() - referenceDate) / 1000.0;
}

double currentReferenceDate() {
    return secondsSinceReferenceDate(QDateTime::currentDateTimeUtc());
}

} // namespace quorvantel
