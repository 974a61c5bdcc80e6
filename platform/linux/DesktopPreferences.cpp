#include "platform/linux/DesktopPreferences.h"

#include <QSet>

#include <algorithm>

namespace quorvantel::platform {

namespace {

const QString freedesktop = QStringLiteral("org.freedesktop.appearance");
const QString gnomeInterface = QStringLiteral("org.gnome.desktop.interface");
const QString gnomeAccessibility = QStringLiteral("org.gnome.desktop.a11y.interface");
const QString kdeGeneral = QStringLiteral("org.kde.kdeglobals.General");
const QString kdeBehavior = QStringLiteral("org.kde.kdeglobals.KDE");

constexpr double largestFont = 96;
constexpr double pointsPerPixel = 0.75;
constexpr int longestTime = 10'000;

std::optional<double> number(const QVariant& value) {
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

bool isOne(const QVariant& value) {
    return number(value) == 1.0;
}

/// Also of truth values, which the portals of some desktops hand on as texts.
bool isOff(const QVariant& value) {
    return number(value) == 0.0 || value.toString() == QStringLiteral("false");
}

/// Whether a theme or a colour scheme bears its high contrast in its name, as "HighContrastInverse"
/// and "ContrastHigh" do.
bool namesHighContrast(const QVariant& theme) {
    const QString name = theme.toString();
    return name.contains(QStringLiteral("HighContrast"), Qt::CaseInsensitive) ||
           name.contains(QStringLiteral("ContrastHigh"), Qt::CaseInsensitive);
}

std::optional<bool> colorScheme(const QVariant& value) {
    const auto scheme = number(value);
    if (scheme == 1.0) {
        return true;
    }
    return scheme == 2.0 ? std::optional(false) : std::nullopt;
}

/// Whether a word is about the style of a font rather than its family.
bool isStyleWord(const QString& word) {
    static const QSet<QString> words{
        QStringLiteral("thin"),         QStringLiteral("extralight"), QStringLiteral("ultralight"),
        QStringLiteral("light"),        QStringLiteral("semilight"),  QStringLiteral("demilight"),
        QStringLiteral("book"),         QStringLiteral("regular"),    QStringLiteral("normal"),
        QStringLiteral("medium"),       QStringLiteral("semibold"),   QStringLiteral("demibold"),
        QStringLiteral("bold"),         QStringLiteral("extrabold"),  QStringLiteral("ultrabold"),
        QStringLiteral("heavy"),        QStringLiteral("black"),      QStringLiteral("roman"),
        QStringLiteral("italic"),       QStringLiteral("oblique"),    QStringLiteral("condensed"),
        QStringLiteral("semicondensed")};
    return words.contains(QString(word).remove(u'-').toLower());
}

std::optional<DesktopFont> font(const QStringList& families, std::optional<double> points) {
    DesktopFont font{.families = {}, .points = points.value_or(0)};
    for (const QString& family : families) {
        if (const QString name = family.simplified(); !name.isEmpty()) {
            font.families.append(name);
        }
    }
    const bool isReasonable = font.points >= 1 && font.points <= largestFont;
    return isReasonable && !font.families.isEmpty() ? std::optional(font) : std::nullopt;
}

/// From GTK's notation, Pango's: families separated by commas, style words, a size and perhaps
/// variations, as in "Noto Sans Medium 11 @wght=500".
std::optional<DesktopFont> gtkFont(const QVariant& value) {
    QStringList words = value.toString().section(u'@', 0, 0).split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty()) {
        return std::nullopt;
    }
    QString size = words.takeLast();
    const bool isInPixels = size.endsWith(QStringLiteral("px"));
    if (isInPixels) {
        size.chop(2);
    }
    while (words.size() > 1 && isStyleWord(words.last())) {
        words.removeLast();
    }
    auto points = number(size);
    if (points && isInPixels) {
        *points *= pointsPerPixel;
    }
    return font(words.join(u' ').split(u','), points);
}

/// From KDE's notation, Qt's: a family and a size followed by much else, as in
/// "Noto Sans,10,-1,5,50,0,0,0,0,0".
std::optional<DesktopFont> kdeFont(const QVariant& value) {
    const QStringList fields = value.toString().split(u',');
    return fields.size() < 2 ? std::nullopt : font({fields[0]}, number(fields[1]));
}

std::optional<int> milliseconds(const QVariant& value) {
    const auto time = number(value);
    return time && *time >= 1 && *time <= longestTime ? std::optional(static_cast<int>(*time))
                                                      : std::nullopt;
}

} // namespace

QStringList preferenceNamespaces() {
    return {freedesktop, gnomeInterface, gnomeAccessibility, kdeGeneral, kdeBehavior};
}

DesktopPreferences preferencesIn(const PortalValues& portal, const XSettingsValues& manager) {
    const auto told = [&portal](const QString& group, const char* key) {
        return portal.value(group).value(QString::fromLatin1(key));
    };
    DesktopPreferences preferences;
    preferences.prefersDark = colorScheme(told(freedesktop, "color-scheme"));
    preferences.increasesContrast = isOne(told(freedesktop, "contrast")) ||
                                    isOne(told(gnomeAccessibility, "high-contrast")) ||
                                    namesHighContrast(told(gnomeInterface, "gtk-theme")) ||
                                    namesHighContrast(told(kdeGeneral, "ColorScheme")) ||
                                    namesHighContrast(manager.value("Net/ThemeName"));
    preferences.reducesMotion = isOne(told(freedesktop, "reduced-motion")) ||
                                isOff(told(gnomeInterface, "enable-animations")) ||
                                isOff(told(kdeBehavior, "AnimationDurationFactor")) ||
                                isOff(manager.value("Gtk/EnableAnimations"));
    for (const auto& font :
         {gtkFont(manager.value("Gtk/FontName")), kdeFont(told(kdeGeneral, "font")),
          gtkFont(told(gnomeInterface, "font-name"))}) {
        if (font && !preferences.font) {
            preferences.font = font;
        }
    }
    preferences.doubleClickTime = milliseconds(manager.value("Net/DoubleClickTime"));
    preferences.cursorBlinkTime = isOff(manager.value("Net/CursorBlink"))
                                      ? std::optional(0)
                                      : milliseconds(manager.value("Net/CursorBlinkTime"));
    return preferences;
}

} // namespace quorvantel::platform
