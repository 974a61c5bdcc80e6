#import "platform/macos/FoundationValues.h"

#include <limits>
#include <optional>

namespace quorvantel::platform {

namespace {

constexpr int maximumDepth = 64;
constexpr int maximumCount = 100'000;

QVariant variantOfNumber(NSNumber* number) {
    if (CFGetTypeID((__bridge CFTypeRef)number) == CFBooleanGetTypeID()) {
        return number.boolValue == YES;
    }
    if (CFNumberIsFloatType((__bridge CFNumberRef)number)) {
        return number.doubleValue;
    }
    if ([number compare:@(std::numeric_limits<qlonglong>::max())] == NSOrderedDescending) {
        return qulonglong{number.unsignedLongLongValue};
    }
    return qlonglong{number.longLongValue};
}

/// One conversion, which ends without a result when it has grown out of bounds.
class Conversion {
public:
    std::optional<QVariant> convert(id value, int depth = 0) {
        if (depth > maximumDepth || ++m_count > maximumCount) {
            return std::nullopt;
        }
        if ([value isKindOfClass:NSString.class]) {
            return QString::fromNSString(value);
        }
        if ([value isKindOfClass:NSNumber.class]) {
            return variantOfNumber(value);
        }
        if ([value isKindOfClass:NSData.class]) {
            return QByteArray::fromNSData(value);
        }
        if ([value isKindOfClass:NSArray.class]) {
            return convertList(value, depth);
        }
        if ([value isKindOfClass:NSDictionary.class]) {
            return convertMap(value, depth);
        }
        return QVariant();
    }

private:
    std::optional<QVariant> convertList(NSArray* list, int depth) {
        QVariantList result;
        for (id element in list) {
            auto converted = convert(element, depth + 1);
            if (!converted) {
                return std::nullopt;
            }
            result.append(*std::move(converted));
        }
        return result;
    }

    std::optional<QVariant> convertMap(NSDictionary* dictionary, int depth) {
        QVariantMap result;
        for (id key in dictionary) {
            auto converted = convert(dictionary[key], depth + 1);
            if (!converted) {
                return std::nullopt;
            }
            if ([key isKindOfClass:NSString.class]) {
                result.insert(QString::fromNSString(key), *std::move(converted));
            }
        }
        return result;
    }

    int m_count = 0;
};

} // namespace

QVariant variantOf(id value) {
    return Conversion().convert(value).value_or(QVariant());
}

} // namespace quorvantel::platform
