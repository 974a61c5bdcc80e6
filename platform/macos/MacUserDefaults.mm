#include "platform/macos/MacUserDefaults.h"

#import "platform/macos/FoundationValues.h"

#include <QDebug>

#include <type_traits>

namespace quorvantel::platform {

namespace {

/// Nil for a value that cannot be stored.
id _Nullable objectOf(const UserDefaults::Value& value) {
    return std::visit(
        [](const auto& held) -> id {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, QString>) {
                return held.toNSString();
            } else if constexpr (std::is_same_v<Held, QByteArray>) {
                return held.toNSData();
            } else if constexpr (std::is_same_v<Held, bool>) {
                return held ? @YES : @NO;
            } else if constexpr (std::is_arithmetic_v<Held>) {
                return @(held);
            } else {
                return nil;
            }
        },
        value);
}

} // namespace

std::optional<UserDefaults::Value> MacUserDefaults::value(const QString& key) const {
    id const object = [NSUserDefaults.standardUserDefaults objectForKey:key.toNSString()];
    if (object == nil) {
        return std::nullopt;
    }
    return defaultsValue(variantOf(object));
}

void MacUserDefaults::setAll(const QMap<QString, Value>& values) {
    NSMutableDictionary<NSString*, id>* const objects = [NSMutableDictionary dictionary];
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (id const object = objectOf(*value)) {
            objects[value.key().toNSString()] = object;
        }
    }
    if (objects.count == 0) {
        return;
    }
    // The domain that `NSUserDefaults` writes to; unlike it, this takes several values at once.
    CFPreferencesSetMultiple((__bridge CFDictionaryRef)objects, nullptr,
                             kCFPreferencesCurrentApplication, kCFPreferencesCurrentUser,
                             kCFPreferencesAnyHost);
    const bool isWritten = CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication) != 0;
    if (!isWritten && !m_hasReportedFailure) {
        m_hasReportedFailure = true;
        qWarning("Quorvantel: the settings cannot be written");
    }
}

} // namespace quorvantel::platform
