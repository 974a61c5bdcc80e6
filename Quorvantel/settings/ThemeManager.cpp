#include "settings/ThemeManager.h"

#include <array>
#include <utility>

namespace quorvantel {

namespace {

constexpr QStringView appearanceKey = u"appearance";
constexpr QStringView presetKey = u"preset";
constexpr QStringView accentHexKey = u"accentColorHex";
constexpr QStringView themesRetiredKey = u"themesRetired_v1";

constexpr std::array appearanceTexts{
    std::pair{ThemeManager::Appearance::Light, QStringView(u"light")},
    std::pair{ThemeManager::Appearance::Dark, QStringView(u"dark")},
    std::pair{ThemeManager::Appearance::Auto, QStringView(u"auto")},
};

constexpr std::array presetTexts{
    std::pair{ThemePreset::Graphite, QStringView(u"graphite")},
    std::pair{ThemePreset::Teal, QStringView(u"teal")},
    std::pair{ThemePreset::Ink, QStringView(u"ink")},
    std::pair{ThemePreset::Paper, QStringView(u"paper")},
    std::pair{ThemePreset::Glass, QStringView(u"glass")},
};

template <typename Texts, typename Value>
QString textOf(const Texts& texts, Value value) {
    for (const auto& [candidate, text] : texts) {
        if (candidate == value) {
            return text.toString();
        }
    }
    Q_UNREACHABLE();
}

template <typename Texts>
auto valueOf(const Texts& texts, const QString& text) {
    using Value = typename Texts::value_type::first_type;
    for (const auto& [value, candidate] : texts) {
        if (candidate == text) {
            return std::optional<Value>(value);
        }
    }
    return std::optional<Value>();
}

std::optional<QString> storedString(const platform::UserDefaults& defaults, QStringView key) {
    const auto stored = defaults.value(key.toString());
    const auto* const text = stored ? std::get_if<QString>(&*stored) : nullptr;
    return text == nullptr ? std::nullopt : std::optional(*text);
}

bool storedFlag(const platform::UserDefaults& defaults, QStringView key) {
    const auto stored = defaults.value(key.toString());
    const auto* const flag = stored ? std::get_if<bool>(&*stored) : nullptr;
    return flag != nullptr && *flag;
}

} // namespace

ThemeManager::ThemeManager(platform::UserDefaults& defaults, QObject* parent)
    : QObject(parent), m_defaults(defaults) {
    loadStoredChoices();
}

void ThemeManager::loadStoredChoices() {
    const auto appearance =
        valueOf(appearanceTexts, storedString(m_defaults, appearanceKey).value_or(QString()));
    if (appearance) {
        setAppearance(*appearance);
    }
    const auto preset =
        valueOf(presetTexts, storedString(m_defaults, presetKey).value_or(QString()));
    if (preset) {
        setPreset(*preset);
    }
    if (!storedFlag(m_defaults, themesRetiredKey)) {
        setPreset(ThemePreset::Graphite);
        m_defaults.set(themesRetiredKey.toString(), true);
    }
    if (const auto accentHex = storedString(m_defaults, accentHexKey)) {
        setAccentHex(*accentHex);
    }
}

void ThemeManager::setAppearance(Appearance appearance) {
    const bool isChange = std::exchange(m_appearance, appearance) != appearance;
    m_defaults.set(appearanceKey.toString(), textOf(appearanceTexts, appearance));
    if (isChange) {
        Q_EMIT appearanceChanged();
    }
}

void ThemeManager::setPreset(ThemePreset preset) {
    const bool isChange = std::exchange(m_preset, preset) != preset;
    m_defaults.set(presetKey.toString(), textOf(presetTexts, preset));
    if (isChange) {
        Q_EMIT presetChanged();
    }
}

void ThemeManager::setAccentHex(const QString& accentHex) {
    const bool isChange = m_accentHex != accentHex;
    m_accentHex = accentHex;
    m_defaults.set(accentHexKey.toString(), accentHex);
    if (isChange) {
        Q_EMIT accentHexChanged();
    }
}

} // namespace quorvantel
