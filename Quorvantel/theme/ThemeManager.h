#pragma once

#include "platform/ColorArchive.h"
#include "platform/UserDefaults.h"
#include "theme/ResolvedTheme.h"

#include <QObject>

#include <functional>
#include <optional>

namespace quorvantel {

/// The user's choices of look: light, dark or as the system, a preset, and an accent colour.
///
/// Every assignment is stored in the defaults, even of the value that was there; the notify signals
/// fire only when a value really changes. Main thread only.
class ThemeManager : public QObject {
    Q_OBJECT

public:
    enum class Appearance { Light, Dark, Auto };

    /// The instance that the whole application shares, made on first use from what is given then.
    /// `defaults` must outlive every use of it.
    static ThemeManager& shared(platform::UserDefaults& defaults,
                                const platform::ColorArchive& archive);

    /// Reads the colour out of what earlier versions stored as the accent; absent when it is none.
    using ColorArchiveDecoder =
        std::function<std::optional<platform::ColorComponents>(const QByteArray&)>;

    /// Reads the stored choices; unknown texts count as none. The first start of this version moves
    /// every installation to the graphite preset once.
    ///
    /// Where no accent text is stored, the colour that an earlier version archived becomes one,
    /// once; without `decodeColorArchive` it stays what it is. Its components are rounded and not
    /// limited, and one that no 64-bit number can hold ends the program. `defaults` must outlive
    /// the manager.
    explicit ThemeManager(platform::UserDefaults& defaults,
                          ColorArchiveDecoder decodeColorArchive = nullptr,
                          QObject* parent = nullptr);

    Appearance appearance() const { return m_appearance; }
    void setAppearance(Appearance appearance);

    ThemePreset preset() const { return m_preset; }
    void setPreset(ThemePreset preset);

    /// The accent colour as a text for `colorFromHex`; not validated.
    const QString& accentHex() const { return m_accentHex; }
    void setAccentHex(const QString& accentHex);

Q_SIGNALS:
    void appearanceChanged();
    void presetChanged();
    void accentHexChanged();

private:
    void loadStoredChoices();
    void migrateArchivedAccent(const ColorArchiveDecoder& decodeColorArchive);

    platform::UserDefaults& m_defaults;
    Appearance m_appearance = Appearance::Auto;
    ThemePreset m_preset = ThemePreset::Graphite;
    QString m_accentHex = QStringLiteral("#14B8A6");
};

} // namespace quorvantel
