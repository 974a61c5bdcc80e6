#include "platform/linux/x11/KeyFate.h"

#include "platform/GlobalHotKeys.h"

#include <X11/XF86keysym.h>
#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <initializer_list>

namespace quorvantel::platform {
namespace {

constexpr std::uint32_t super = HotKeyModifier::command;
constexpr std::uint32_t shift = HotKeyModifier::shift;
constexpr std::uint32_t alt = HotKeyModifier::option;
constexpr std::uint32_t control = HotKeyModifier::control;

TEST(KeyFateTest, WhatEditsOrMovesInTheFieldIsThePanels) {
    for (const std::uint32_t modifiers : {0U, shift, control, control | shift, alt, alt | shift}) {
        for (const auto symbol :
             std::initializer_list<xcb_keysym_t>{XK_a, XK_Return, XK_Escape, XK_Down, XK_BackSpace,
                                                 XK_comma, XK_dead_acute, XK_Greek_zeta, XK_F5}) {
            EXPECT_EQ(fateOfKey(symbol, modifiers), KeyFate::Kept) << symbol << ' ' << modifiers;
        }
    }
    EXPECT_EQ(fateOfKey(XK_Tab, 0), KeyFate::Kept);
    EXPECT_EQ(fateOfKey(XK_F4, 0), KeyFate::Kept);
    EXPECT_EQ(fateOfKey(XF86XK_Paste, 0), KeyFate::Kept);
}

TEST(KeyFateTest, ChordsThatMeanNothingInAFieldAreTheDesktops) {
    EXPECT_EQ(fateOfKey(XK_l, super), KeyFate::HandedOverForGood);
    EXPECT_EQ(fateOfKey(XK_Left, super | shift), KeyFate::HandedOverForGood);
    EXPECT_EQ(fateOfKey(XK_F4, super | alt), KeyFate::HandedOverForGood);
    EXPECT_EQ(fateOfKey(XK_t, control | alt), KeyFate::HandedOverForGood);
    EXPECT_EQ(fateOfKey(XK_Delete, control | alt | shift), KeyFate::HandedOverForGood);
    EXPECT_EQ(fateOfKey(XK_Tab, alt), KeyFate::HandedOverForGood);
    EXPECT_EQ(fateOfKey(XK_ISO_Left_Tab, alt | shift), KeyFate::HandedOverForGood);
}

TEST(KeyFateTest, ThePanelKeepsTheChordOfItsSettings) {
    EXPECT_EQ(fateOfKey(XK_comma, super), KeyFate::Kept);
    EXPECT_EQ(fateOfKey(XK_comma, super | shift), KeyFate::Kept);
    EXPECT_EQ(fateOfKey(XK_less, super | shift), KeyFate::HandedOverForGood);
}

TEST(KeyFateTest, AModifierOrALayoutSwitchIsNoChord) {
    for (const std::uint32_t modifiers : {super, alt | shift, control | alt, control | super}) {
        for (const auto symbol : std::initializer_list<xcb_keysym_t>{
                 XK_Super_L, XK_Alt_R, XK_Control_L, XK_Shift_R, XK_Caps_Lock, XK_Num_Lock,
                 XK_ISO_Level3_Shift, XK_ISO_Next_Group, XK_VoidSymbol, 0}) {
            EXPECT_EQ(fateOfKey(symbol, modifiers), KeyFate::Kept) << symbol << ' ' << modifiers;
        }
    }
}

TEST(KeyFateTest, WhatTheServerDoesItselfIsNotDoneTwice) {
    EXPECT_EQ(fateOfKey(XK_F1, control | alt), KeyFate::Kept);
    EXPECT_EQ(fateOfKey(XK_F12, control | alt), KeyFate::Kept);
}

TEST(KeyFateTest, TheChordThatClosesAWindowHidesThePanelOnly) {
    EXPECT_EQ(fateOfKey(XK_F4, alt), KeyFate::Dismissing);
    EXPECT_EQ(fateOfKey(XK_F4, alt | shift), KeyFate::Dismissing);
}

TEST(KeyFateTest, KeysThatAdjustSomethingLeaveThePanel) {
    for (const std::uint32_t modifiers : {0U, shift, super, control | alt}) {
        EXPECT_EQ(fateOfKey(XF86XK_AudioRaiseVolume, modifiers), KeyFate::HandedOver);
        EXPECT_EQ(fateOfKey(XK_Print, modifiers), KeyFate::HandedOver);
        EXPECT_EQ(fateOfKey(XF86XK_ScreenSaver, modifiers), KeyFate::HandedOverForGood);
    }
}

} // namespace
} // namespace quorvantel::platform
