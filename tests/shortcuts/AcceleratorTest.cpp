#include "platform/GlobalHotKeys.h"
#include "platform/linux/shortcuts/DesktopSession.h"
#include "platform/linux/shortcuts/QtKey.h"
#include "platform/linux/shortcuts/StartCommand.h"
#include "platform/linux/shortcuts/UserBinding.h"

#include <QKeySequence>

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon.h>

#include <cstdlib>

namespace quorvantel::platform {
namespace {

using namespace HotKeyModifier;
using namespace Qt::StringLiterals;

Keymap keymapOf(const char* layouts) {
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
    const xkb_rule_names names{"evdev", "pc105", layouts, "", ""};
    const std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> keymap(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS),
        &xkb_keymap_unref);
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), &std::free);
    return Keymap::fromText(text.get()).value();
}

TEST(AcceleratorTest, IsWrittenAsEveryDesktopWritesIt) {
    const struct {
        const char* layouts;
        std::uint32_t keyCode;
        std::uint32_t modifiers;
        QString qt;
        QString gtk;
        QString portal;
        QString user;
    } rows[] = {
        {"us", 49, command | option, u"Meta+Alt+Space"_s, u"<Alt><Super>space"_s,
         u"ALT+LOGO+space"_s, u"Alt+Super+Space"_s},
        // The position counts, not what a US keyboard has there.
        {"de", 6, command, u"Meta+Y"_s, u"<Super>y"_s, u"LOGO+y"_s, u"Super+Y"_s},
        {"de", 41, control, u"Ctrl+Ö"_s, u"<Control>odiaeresis"_s, u"CTRL+odiaeresis"_s,
         u"Ctrl+Ö"_s},
        // Desktops look shortcuts up in the layout that types Latin letters.
        {"ru,us", 0, command, u"Meta+A"_s, u"<Super>a"_s, u"LOGO+a"_s, u"Super+A"_s},
        {"ru", 0, command, u"Meta+Ф"_s, u"<Super>Cyrillic_ef"_s, u"LOGO+Cyrillic_ef"_s,
         u"Super+Ф"_s},
        // KDE names what is typed with Shift, unless that is the same letter.
        {"us", 18, control | shift, u"Ctrl+!"_s, u"<Control><Shift>1"_s, u"CTRL+SHIFT+1"_s,
         u"Ctrl+Shift+1"_s},
        {"us", 40, command | shift, u"Meta+Shift+K"_s, u"<Shift><Super>k"_s, u"SHIFT+LOGO+k"_s,
         u"Shift+Super+K"_s},
        {"us", 49, control | shift, u"Ctrl+Shift+Space"_s, u"<Control><Shift>space"_s,
         u"CTRL+SHIFT+space"_s, u"Ctrl+Shift+Space"_s},
        {"us", 111, control, u"Ctrl+F12"_s, u"<Control>F12"_s, u"CTRL+F12"_s, u"Ctrl+F12"_s},
        {"us", 90, control, u"Ctrl+Microphone Mute"_s, u"<Control>XF86AudioMicMute"_s,
         u"CTRL+XF86AudioMicMute"_s, u"Ctrl+XF86AudioMicMute"_s},
        {"us", 116, control, u"Ctrl+PgUp"_s, u"<Control>Prior"_s, u"CTRL+Prior"_s,
         u"Ctrl+Page Up"_s},
        {"us", 76, control, u"Ctrl+Enter"_s, u"<Control>KP_Enter"_s, u"CTRL+KP_Enter"_s,
         u"Ctrl+KP_Enter"_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.user.toStdString());
        const auto accelerator = Accelerator::at(row.keyCode, row.modifiers, keymapOf(row.layouts));
        ASSERT_TRUE(accelerator);
        EXPECT_EQ(QKeySequence(qtKeyOf(*accelerator).value()).toString(), row.qt);
        EXPECT_EQ(written(*accelerator, gtkSyntax), row.gtk);
        EXPECT_EQ(written(*accelerator, portalSyntax), row.portal);
        EXPECT_EQ(readable(*accelerator), row.user);
        EXPECT_TRUE(accelerator->isSameAs(fromGtkAccelerator(row.gtk).value()));
    }
    EXPECT_FALSE(Accelerator::at(200, command, Keymap::us()));
    EXPECT_FALSE(Keymap::fromText("no key map"));
}

TEST(AcceleratorTest, ReadsWhatGnomeHolds) {
    const auto grave = Accelerator::at(50, command, Keymap::us());
    EXPECT_TRUE(grave->isSameAs(fromGtkAccelerator(u"<Mod4>Above_Tab").value()));
    const auto letter = Accelerator::at(0, control | option, Keymap::us());
    EXPECT_TRUE(letter->isSameAs(fromGtkAccelerator(u"<Primary><mod1>A").value()));
    for (const QString& text : {u""_s, u"disabled"_s, u"<Super>"_s, u"<Hyper>x"_s, u"<Super"_s,
                                u"<Super>no such key"_s, u"<>a"_s}) {
        EXPECT_FALSE(fromGtkAccelerator(text)) << text.toStdString();
    }
}

TEST(AcceleratorTest, TheUserGetsALineForTheConfiguration) {
    const auto accelerator = Accelerator::at(49, command | option, Keymap::us()).value();
    const auto configuration = [&](const char* desktops) {
        return userBinding(QString::fromLatin1(desktops).split(u':'), accelerator, u"launch"_s)
            .configuration;
    };
    EXPECT_EQ(configuration("sway:wlroots"), u"bindsym --to-code Mod1+Mod4+space exec launch"_s);
    EXPECT_EQ(configuration("Hyprland"), u"bind = ALT SUPER, space, exec, launch"_s);
    EXPECT_EQ(configuration("river"), u"riverctl map normal Alt+Super space spawn \"launch\""_s);
    EXPECT_EQ(configuration("labwc:wlroots"),
              u"<keybind key=\"A-W-space\"><action name=\"Execute\" command=\"launch\" />"
              "</keybind>"_s);
    EXPECT_EQ(configuration("niri"), u"Alt+Super+space { spawn \"sh\" \"-c\" \"launch\"; }"_s);
    EXPECT_EQ(configuration("Other"), u"launch"_s);
    EXPECT_TRUE(
        userBinding({}, accelerator, u"launch"_s).instruction.contains(u"Alt+Super+Space"_s));
}

TEST(AcceleratorTest, TheSessionDecidesWhoIsAsked) {
    QProcessEnvironment environment;
    environment.insert(u"SWAYSOCK"_s, u"/run/sway.sock"_s);
    EXPECT_EQ(desktopNames(environment), QStringList{u"sway"_s});
    environment.insert(u"XDG_CURRENT_DESKTOP"_s, u"ubuntu:GNOME"_s);
    const std::vector gnome{ShortcutWay::Portal, ShortcutWay::Gnome, ShortcutWay::User};
    EXPECT_EQ(shortcutWays(desktopNames(environment)), gnome);
    EXPECT_EQ(shortcutWays({u"KDE"_s}), std::vector{ShortcutWay::Kde});
    EXPECT_EQ(shortcutWays({}), (std::vector{ShortcutWay::Portal, ShortcutWay::User}));
}

} // namespace
} // namespace quorvantel::platform
