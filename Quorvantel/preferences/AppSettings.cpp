#include "preferences/AppSettings.h"

#include <QDebug>

#include <limits>

namespace quorvantel {

namespace {

constexpr QStringView hotKeyCodeKey = u"hotKeyCode";
constexpr QStringView hotKeyModifiersKey = u"hotKeyModifiers";

std::uint32_t exactly32Bits(const platform::UserDefaults::Value& value, QStringView key) {
    const std::int64_t number = platform::integerValue(value);
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max()) {
        qFatal("Quorvantel: the stored value of \"%s\" is out of range",
               qPrintable(key.toString()));
    }
    return static_cast<std::uint32_t>(number);
}

HotKeyBinding load(const platform::UserDefaults& defaults) {
    const auto keyCode = defaults.value(hotKeyCodeKey.toString());
    const auto modifiers = defaults.value(hotKeyModifiersKey.toString());
    if (!keyCode || !modifiers) {
        return HotKeyBinding::defaultBinding();
    }
    return {exactly32Bits(*keyCode, hotKeyCodeKey), exactly32Bits(*modifiers, hotKeyModifiersKey)};
}

} // namespace

AppSettings& AppSettings::shared(platform::UserDefaults& defaults) {
    static AppSettings instance(defaults);
    return instance;
}

AppSettings::AppSettings(platform::UserDefaults& defaults, QObject* parent)
    : QObject(parent), m_defaults(defaults), m_hotKeyBinding(load(defaults)) {}

bool AppSettings::setHotKeyBinding(const HotKeyBinding& binding) {
    if (binding == m_hotKeyBinding) {
        return false;
    }
    m_hotKeyBinding = binding;
    Q_EMIT hotKeyBindingChanged();
    m_defaults.setAll({{hotKeyCodeKey.toString(), std::int64_t{binding.keyCode}},
                       {hotKeyModifiersKey.toString(), std::int64_t{binding.modifiers}}});
    if (onHotKeyChange) {
        onHotKeyChange(binding);
    }
    return true;
}

} // namespace quorvantel
