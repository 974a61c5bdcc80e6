#include "platform/UserDefaults.h"

#include <QVariant>

#include <limits>

namespace quorvantel::platform {

namespace {

using Integers = std::numeric_limits<std::int64_t>;

std::int64_t integerOf(bool value) {
    return value ? 1 : 0;
}

std::int64_t integerOf(std::int64_t value) {
    return value;
}

std::int64_t integerOf(double value) {
    // 2^63, which a double holds exactly, unlike the largest number below it.
    constexpr double limit = 9'223'372'036'854'775'808.0;
    if (value < -limit) {
        return Integers::min();
    }
    return value < limit ? static_cast<std::int64_t>(value) : Integers::max();
}

/// The number that a text begins with.
std::int64_t integerOf(const QString& text) {
    const QString trimmed = text.trimmed();
    qsizetype length = trimmed.startsWith(u'-') || trimmed.startsWith(u'+') ? 1 : 0;
    while (length < trimmed.size() && trimmed[length] >= u'0' && trimmed[length] <= u'9') {
        ++length;
    }
    // By way of a real number, since a larger one is to become the largest.
    bool isExact = false;
    const qlonglong exact = trimmed.left(length).toLongLong(&isExact);
    return isExact ? exact : integerOf(trimmed.left(length).toDouble());
}

template <typename Value>
std::int64_t integerOf(const Value& /*value*/) {
    return 0;
}

bool booleanOf(double value) {
    return value != 0;
}

bool booleanOf(const QString& text) {
    const auto is = [&text](QStringView word) {
        return QStringView(text).trimmed().compare(word, Qt::CaseInsensitive) == 0;
    };
    return is(u"yes") || is(u"true") || integerOf(text) != 0;
}

template <typename Value>
bool booleanOf(const Value& value) {
    return integerOf(value) != 0;
}

} // namespace

UserDefaults::Value defaultsValue(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::LongLong:
        return std::int64_t{value.toLongLong()};
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QString:
        return value.toString();
    case QMetaType::QByteArray:
        return value.toByteArray();
    default:
        return UserDefaults::Other{};
    }
}

std::int64_t integerValue(const UserDefaults::Value& value) {
    return std::visit([](const auto& held) { return integerOf(held); }, value);
}

bool booleanValue(const UserDefaults::Value& value) {
    return std::visit([](const auto& held) { return booleanOf(held); }, value);
}

} // namespace quorvantel::platform
