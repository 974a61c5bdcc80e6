#include "shell/AppSettings.h"

#include <QDebug>

#include <cmath>
#include <limits>
#include <optional>

namespace quorvantel {

namespace {

constexpr QStringView hotKeyCodeKey = u"hotKeyCode";
constexpr QStringView hotKeyModifiersKey = u"hotKeyModifiers";

std::uint32_t exactly32Bits(std::int64_t number, QStringView key) {
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max()) {
        qFatal("Quorvantel: the stored value of \"%s\" is out of range",
               qPrintable(key.toString()));
    }
    return static_cast<std::uint32_t>(number);
}

/// The whole number that a property list may have been given as a real one; out of every range for
/// one that is too large or no number at all.
std::int64_t wholePart(double number) {
    const bool isSmall = std::abs(number) < static_cast<double>(std::numeric_limits<int>::max());
    return isSmall ? static_cast<std::int64_t>(number) : std::numeric_limits<std::int64_t>::max();
}

/// The stored number; absent for a missing value or one that is no number, which is logged.
std::optional<std::int64_t> storedNumber(const platform::UserDefaults& defaults, QStringView key) {
    const auto value = defaults.value(key.toString());
    if (!value) {
        return std::nullopt;
    }
    if (const auto* const number = std::get_if<std::int64_t>(&*value)) {
        return *number;
    }
    if (const auto* const real = std::get_if<double>(&*value)) {
        return wholePart(*real);
    }
    qWarning().noquote() << QStringLiteral("Quorvantel: the stored value of \"%1\" is no "
                                           "number; the default hotkey is used")
                                .arg(key);
    return std::nullopt;
}

HotKeyBinding load(const platform::UserDefaults& defaults) {
    const auto keyCode = storedNumber(defaults, hotKeyCodeKey);
    const auto modifiers = storedNumber(defaults, hotKeyModifiersKey);
    if (!keyCode || !modifiers) {
        return HotKeyBinding::defaultBinding();
    }
    return {exactly32Bits(*keyCode, hotKeyCodeKey), exactly32Bits(*modifiers, hotKeyModifiersKey)};
}

} // namespace

AppSettings::AppSettings(platform::UserDefaults& defaults, QObject* parent)
    : QObject(parent), m_defaults(defaults), m_hotKeyBinding(load(defaults)) {}

void AppSettings::setHotKeyBinding(const HotKeyBinding& binding) {
    if (binding == m_hotKeyBinding) {
        return;
    }
    m_hotKeyBinding = binding;
    Q_EMIT hotKeyBindingChanged();
    m_defaults.set(hotKeyCodeKey.toString(), std::int64_t{binding.keyCode});
    m_defaults.set(hotKeyModifiersKey.toString(), std::int64_t{binding.modifiers});
    if (onHotKeyChange) {
        onHotKeyChange(binding);
    }
}

} // namespace quorvantel
