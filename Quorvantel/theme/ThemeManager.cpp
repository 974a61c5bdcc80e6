#include "theme/ThemeManager.h"

#include <QDebug>

#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

namespace quorvantel {

namespace {

constexpr QStringView appearanceKey = u"appearance";
constexpr QStringView presetKey = u"preset";
constexpr QStringView accentHexKey = u"accentColorHex";
constexpr QStringView themesRetiredKey = u"themesRetired_v1";
constexpr QStringView accentMigratedKey = u"accentMigrated";
constexpr QStringView archivedAccentKey = u"accentColor";

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

/// The value under a key if it has the type; one of another type is logged and left alone.
template <typename Value>
std::optional<Value> stored(const platform::UserDefaults& defaults, QStringView key) {
    const auto value = defaults.value(key.toString());
    if (!value) {
        return std::nullopt;
    }
    if (const auto* const typed = std::get_if<Value>(&*value)) {
        return *typed;
    }
    qWarning().noquote() << QStringLiteral("Quorvantel: the stored value of \"%1\" is of the wrong "
                                           "type and is ignored")
                                .arg(key);
    return std::nullopt;
}

bool isSet(const platform::UserDefaults& defaults, QStringView key) {
    const auto value = defaults.value(key.toString());
    return value && platform::booleanValue(*value);
}

/// A component as a whole number from 0 to 255, for components from 0 to 1.
std::int64_t scaled(double component) {
    // 2^63, which a double holds exactly, unlike the largest number below it.
    constexpr double limit = 9'223'372'036'854'775'808.0;
    const double rounded = std::round(component * 255);
    if (!(rounded >= -limit && rounded < limit)) {
        qFatal("Quorvantel: a component of the archived accent colour is out of range");
    }
    return static_cast<std::int64_t>(rounded);
}

QString hexText(const platform::ColorComponents& color) {
    const auto digits = [](double component) {
        return static_cast<unsigned int>(scaled(component));
    };
    return QString::asprintf("#%02X%02X%02X", digits(color.red), digits(color.green),
                             digits(color.blue));
}

} // namespace

ThemeManager& ThemeManager::shared(platform::UserDefaults& defaults,
                                   const platform::ColorArchive& archive) {
    static ThemeManager instance(
        defaults, [&archive](const QByteArray& data) { return archive.decode(data); });
    return instance;
}

ThemeManager::ThemeManager(platform::UserDefaults& defaults, ColorArchiveDecoder decodeColorArchive,
                           QObject* parent)
    : QObject(parent), m_defaults(defaults) {
    loadStoredChoices();
    if (const auto accentHex = stored<QString>(m_defaults, accentHexKey)) {
        setAccentHex(*accentHex);
    } else if (decodeColorArchive) {
        migrateArchivedAccent(decodeColorArchive);
    }
}

void ThemeManager::loadStoredChoices() {
    const auto appearance =
        valueOf(appearanceTexts, stored<QString>(m_defaults, appearanceKey).value_or(QString()));
    if (appearance) {
        setAppearance(*appearance);
    }
    const auto preset =
        valueOf(presetTexts, stored<QString>(m_defaults, presetKey).value_or(QString()));
    if (preset) {
        setPreset(*preset);
    }
    if (!isSet(m_defaults, themesRetiredKey)) {
        setPreset(ThemePreset::Graphite);
        m_defaults.set(themesRetiredKey.toString(), true);
    }
}

void ThemeManager::migrateArchivedAccent(const ColorArchiveDecoder& decodeColorArchive) {
    if (isSet(m_defaults, accentMigratedKey)) {
        return;
    }
    const auto archive = stored<QByteArray>(m_defaults, archivedAccentKey);
    const auto color = archive ? decodeColorArchive(*archive) : std::nullopt;
    if (!color) {
        return;
    }
    setAccentHex(hexText(*color));
    m_defaults.set(accentMigratedKey.toString(), true);
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
