#include "RandomUser.h"

#include "support/TestFiles.h"

#include <X11/keysym.h>

#include <array>

namespace quorvantel::soak {

namespace {

using namespace Qt::StringLiterals;
using testing::Pointer;

/// All but the chord that quits.
const std::array<std::vector<xcb_keysym_t>, 24> keys{{
    {XK_Return},
    {XK_Escape},
    {XK_Escape},
    {XK_Down},
    {XK_Down},
    {XK_Up},
    {XK_BackSpace},
    {XK_BackSpace},
    {XK_Delete},
    {XK_Left},
    {XK_Right},
    {XK_Home},
    {XK_Page_Down},
    {XK_Tab},
    {XK_Tab},
    {XK_Shift_L, XK_Tab},
    {XK_space},
    {XK_Control_L, XK_a},
    {XK_Control_L, XK_c},
    {XK_Control_L, XK_v},
    {XK_Control_L, XK_z},
    {XK_Control_L, XK_w},
    {XK_Super_L, XK_comma},
    {XK_F1},
}};

} // namespace

RandomUser::RandomUser(testing::LauncherSession& session, unsigned seed)
    : m_session(session), m_random(seed) {}

int RandomUser::upTo(int limit) {
    return std::uniform_int_distribution(0, limit)(m_random);
}

/// A point of the panel more often than not; anywhere while there is none.
QPoint RandomUser::place() {
    const auto panel = m_session.panel();
    const QRect area = panel && upTo(3) > 0 ? *panel : QRect(0, 0, 1280, 800);
    return area.topLeft() + QPoint(upTo(area.width() - 1), upTo(area.height() - 1));
}

void RandomUser::act() {
    const int choice = upTo(99);
    if (choice < 8) {
        m_session.pressDefaultHotKey();
    } else if (choice < 14 && !m_session.panel()) {
        // The hotkey may be another one by now.
        startAgain();
    } else if (choice < 50) {
        m_session.keyboard().type(QByteArray(1, static_cast<char>('a' + upTo(25))));
    } else if (choice < 82) {
        pressKey();
    } else if (choice < 90) {
        click();
    } else if (choice < 93) {
        drag();
    } else {
        changeApplications();
    }
}

void RandomUser::pressKey() {
    m_session.keyboard().press(keys.at(static_cast<std::size_t>(upTo(keys.size() - 1))));
}

void RandomUser::click() {
    const QPoint point = place();
    const auto panel = m_session.panel();
    // Elsewhere, the right button has the window manager's own menu, with which one can log out.
    const bool isInPanel = panel && panel->contains(point);
    constexpr std::array buttons{Pointer::Button::Left, Pointer::Button::Left,
                                 Pointer::Button::WheelUp, Pointer::Button::WheelDown,
                                 Pointer::Button::Right};
    m_session.pointer().click(point, buttons.at(static_cast<std::size_t>(upTo(isInPanel ? 4 : 1))));
}

void RandomUser::drag() {
    m_session.pointer().moveTo(place());
    m_session.pointer().hold();
    m_session.pointer().moveTo(place());
    m_session.pointer().release();
}

void RandomUser::changeApplications() {
    const QString path =
        testing::inHome(u".local/share/applications/random%1.desktop"_s.arg(upTo(60)));
    if (!QFile::remove(path)) {
        testing::writeFile(path, "[Desktop Entry]\nType=Application\nExec=true\nIcon=none\nName=" +
                                     QByteArray::number(upTo(1'000'000), 36) + '\n');
    }
}

void RandomUser::startAgain() {
    testing::ChildProcess(m_session.launch()).waitForExit(testing::patience);
}

} // namespace quorvantel::soak
