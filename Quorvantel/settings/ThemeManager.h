#pragma once

#include "platform/UserDefaults.h"
#include "settings/ResolvedTheme.h"

#include <QObject>

namespace quorvantel {

/// The user's choices of look: light, dark or as the system, a preset, and an accent colour.
///
/// Every assignment is stored in the defaults, even of the value that was there; the notify signals
/// fire only when a value really changes. Main thread only.
class ThemeManager : public QObject {
    Q_OBJECT

public:
    enum class Appearance { Light, Dark, Auto };

    /// The instance that the whole application shares, over the standard defaults; made on first
    /// use.
    static ThemeManager& shared();

    /// Reads the stored choices; unknown texts count as none. The first start of this version moves
    /// every installation to the graphite preset once. `defaults` must outlive the manager.
    explicit ThemeManager(platform::UserDefaults& defaults, QObject* parent = nullptr);

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

    platform::UserDefaults& m_defaults;
    Appearance m_appearance = Appearance::Auto;
    ThemePreset m_preset = ThemePreset::Graphite;
    QString m_accentHex = QStringLiteral("#14B8A6");
};

} // namespace quorvantel
