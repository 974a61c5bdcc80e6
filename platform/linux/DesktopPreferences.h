#pragma once

#include <QHash>
#include <QMap>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace quorvantel::platform {

/// What the XDG Desktop Portal's Settings interface tells, by namespace and key.
using PortalValues = QMap<QString, QVariantMap>;

/// What the session's settings manager tells (XSETTINGS protocol): whole numbers and texts.
using XSettingsValues = QHash<QByteArray, QVariant>;

/// The font of the desktop's interface.
struct DesktopFont {
    /// The first one that is installed counts.
    QStringList families;
    double points = 0;

    friend bool operator==(const DesktopFont&, const DesktopFont&) = default;
};

/// What the user chose in the desktop's settings. What is absent the desktop does not tell.
struct DesktopPreferences {
    std::optional<bool> prefersDark;
    bool increasesContrast = false;
    bool reducesMotion = false;
    std::optional<DesktopFont> font;
    /// In milliseconds.
    std::optional<int> doubleClickTime;
    /// How long a text cursor takes to go and come again, in milliseconds; 0 when it stays.
    std::optional<int> cursorBlinkTime;

    friend bool operator==(const DesktopPreferences&, const DesktopPreferences&) = default;
};

/// The namespaces of the portal that the preferences are in.
QStringList preferenceNamespaces();

/// The preferences that the sources together tell.
///
/// One of them suffices for higher contrast and for less motion: the desktop-independent settings
/// are recent, GNOME's and GTK's are those of most desktops, and KDE Plasma has a speed of its
/// animations of which 0 is none. As to the font the settings manager comes first, since it is a
/// part of the desktop that runs, whereas a portal also tells what GNOME's settings are elsewhere.
/// Values of the wrong type, and beyond reason, count as absent.
DesktopPreferences preferencesIn(const PortalValues& portal, const XSettingsValues& manager);

} // namespace quorvantel::platform
