#include "platform/linux/DesktopPreferences.h"

#include "platform/linux/x11/X11Settings.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;

DesktopPreferences portalTells(const char* group, const char* key, const QVariant& value) {
    return preferencesIn({{QLatin1String(group), {{QLatin1String(key), value}}}}, {});
}

DesktopPreferences managerTells(const char* name, const QVariant& value) {
    return preferencesIn({}, {{name, value}});
}

std::string fontTold(const QString& text) {
    const auto font = managerTells("Gtk/FontName", text).font;
    return !font ? "none" : qPrintable(u"%1 %2"_s.arg(font->families.join(u'|')).arg(font->points));
}

TEST(DesktopPreferencesTest, EveryDesktopCanAskForContrastAndForRest) {
    constexpr auto appearance = "org.freedesktop.appearance";
    constexpr auto gnome = "org.gnome.desktop.interface";
    constexpr auto kde = "org.kde.kdeglobals.KDE";
    for (const DesktopPreferences& high :
         {portalTells(appearance, "contrast", 1U),
          portalTells("org.gnome.desktop.a11y.interface", "high-contrast", true),
          portalTells("org.kde.kdeglobals.General", "ColorScheme", u"BreezeHighContrast"_s),
          portalTells(gnome, "gtk-theme", u"HighContrastInverse"_s),
          managerTells("Net/ThemeName", u"ContrastHigh"_s)}) {
        EXPECT_TRUE(high.increasesContrast);
        EXPECT_FALSE(high.reducesMotion);
    }
    for (const DesktopPreferences& still : {portalTells(appearance, "reduced-motion", 1U),
                                            portalTells(gnome, "enable-animations", false),
                                            portalTells(kde, "AnimationDurationFactor", u"0"_s),
                                            managerTells("Gtk/EnableAnimations", 0)}) {
        EXPECT_TRUE(still.reducesMotion);
        EXPECT_FALSE(still.increasesContrast);
    }
    const DesktopPreferences none;
    for (const DesktopPreferences& usual :
         {portalTells(appearance, "contrast", 0U), portalTells(appearance, "color-scheme", 7U),
          portalTells(appearance, "reduced-motion", u"high"_s),
          portalTells(gnome, "enable-animations", true),
          portalTells(kde, "AnimationDurationFactor", 0.5),
          portalTells(kde, "AnimationDurationFactor", QString()),
          managerTells("Gtk/EnableAnimations", u"no"_s),
          managerTells("Net/ThemeName", u"Adwaita"_s), managerTells("Net/DoubleClickTime", -1),
          managerTells("Net/CursorBlinkTime", 1 << 30)}) {
        EXPECT_EQ(usual, none);
    }
    EXPECT_EQ(managerTells("Net/CursorBlink", 0).cursorBlinkTime, 0);
    EXPECT_EQ(managerTells("Net/DoubleClickTime", 250).doubleClickTime, 250);
}

TEST(DesktopPreferencesTest, TheFontIsTheRunningDesktops) {
    EXPECT_EQ(fontTold(u"Noto Sans,  10"_s), "Noto Sans 10");
    EXPECT_EQ(fontTold(u"Fira Sans Semi-Bold Italic 10.5 @wght=600"_s), "Fira Sans 10.5");
    EXPECT_EQ(fontTold(u"Inter, Sans Bold 16px"_s), "Inter|Sans 12");
    EXPECT_EQ(fontTold(u"Bold 9"_s), "Bold 9");
    for (const char* const text : {"", "Sans", "11", "Sans 0", "Sans 9999", "Sans nan", ", 10"}) {
        EXPECT_EQ(fontTold(QString::fromLatin1(text)), "none") << text;
    }
    PortalValues portal{
        {u"org.gnome.desktop.interface"_s, {{u"font-name"_s, u"Cantarell 11"_s}}},
        {u"org.kde.kdeglobals.General"_s, {{u"font"_s, u"Noto Sans,10,-1,5,50,0,0,0,0,0"_s}}}};
    const auto family = [&portal](const XSettingsValues& manager) {
        return preferencesIn(portal, manager).font->families.first();
    };
    EXPECT_EQ(family({{"Gtk/FontName", u"Ubuntu 11"_s}}), u"Ubuntu"_s);
    EXPECT_EQ(family({}), u"Noto Sans"_s);
    portal.remove(u"org.kde.kdeglobals.General"_s);
    EXPECT_EQ(family({{"Gtk/FontName", 11}}), u"Cantarell"_s);
}

TEST(XSettingsTest, DataThatEndEarlyTellWhatIsBeforeTheEnd) {
    // A colour, a number and a text, as a big-endian manager writes them.
    const QByteArray data = QByteArray::fromHex("01000000 00000007 00000003") +
                            QByteArray::fromHex("02000001 43000000 00000000 0101010101010101") +
                            QByteArray::fromHex("00000005 412f4e756d000000 00000000 00000102") +
                            QByteArray::fromHex("01000004 54657874 00000000 00000003 61626300");
    const XSettingsValues all{{"A/Num", 258}, {"Text", u"abc"_s}};
    EXPECT_EQ(parseXSettings(data), all);
    for (qsizetype length = 0; length < data.size() - 1; ++length) {
        const XSettingsValues part = parseXSettings(data.first(length));
        EXPECT_FALSE(part.contains("Text")) << length;
        EXPECT_EQ(part.value("A/Num", 258), 258) << length;
    }
    EXPECT_TRUE(parseXSettings(QByteArray(200, '\xFF')).isEmpty());
}

} // namespace
} // namespace quorvantel::platform
