#include "GeneratedApplications.h"
#include "Series.h"
#include "e2e/LauncherSession.h"
#include "support/ChildProcess.h"
#include "support/Keyboard.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStandardPaths>
#include <QWidget>
#include <QWindow>

#include <X11/keysym.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;
using namespace std::chrono_literals;

using Clock = std::chrono::steady_clock;

constexpr int applications = 200;
constexpr QRect bareWindowGeometry{320, 160, 640, 56};

/// A window that does nothing but fill itself with another colour at each key: what the toolkit,
/// the server and this measurement cost without a launcher.
class BareWindow : public QWidget {
public:
    BareWindow() {
        setWindowFlags(Qt::BypassWindowManagerHint | Qt::FramelessWindowHint);
        setGeometry(bareWindowGeometry);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void keyPressEvent(QKeyEvent* /*event*/) override {
        m_bright = !m_bright;
        update();
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter(this).fillRect(rect(), m_bright ? Qt::white : Qt::darkBlue);
    }

private:
    bool m_bright = true;
};

int runBareWindow(int argc, char** argv) {
    QApplication application(argc, argv);
    BareWindow window;
    window.show();
    // Refused until the server has the window on the screen.
    while (!window.windowHandle()->setKeyboardGrabEnabled(true)) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
    return QApplication::exec();
}

/// The time from a deed until a pixel of the region differs from before. The last answer of the
/// server about the region is part of it.
Milliseconds timeToChange(const XDesktop& desktop, const QRect& region,
                          const std::function<void()>& deed) {
    const QImage before = desktop.screenshot(region);
    const Clock::time_point begin = Clock::now();
    deed();
    while (desktop.screenshot(region) == before) {
        if (Clock::now() - begin > patience) {
            throw std::runtime_error("nothing changed on the screen");
        }
    }
    return Clock::now() - begin;
}

void measureBareWindow(const QString& self, int rounds) {
    const IsolatedHome home;
    const XServer server;
    const XConnection connection(server.display());
    const XDesktop desktop(connection);
    Keyboard keyboard(connection);
    ChildProcess::Launch launch{.program = self, .arguments = {QStringLiteral("--bare-window")}};
    launch.environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(server.display()));
    launch.environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    const ChildProcess window(launch);
    if (!waitUntil([&] { return desktop.isKeyboardGrabbed(); })) {
        throw std::runtime_error("the bare window did not come up");
    }

    Series times;
    const QRect region(bareWindowGeometry.topLeft() + QPoint(20, 20), QSize(4, 4));
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(50ms);
        times.add(timeToChange(desktop, region, [&] { keyboard.hold(XK_a); }));
        keyboard.release(XK_a);
    }
    times.print("a bare shown window that changes its colour");
}

/// From the hotkey to the panel.
Milliseconds timeToShow(LauncherSession& session, const QRect& corner) {
    session.keyboard().hold(XK_Alt_L);
    session.keyboard().hold(XK_Super_L);
    const Milliseconds time =
        timeToChange(session.desktop(), corner, [&] { session.keyboard().hold(XK_space); });
    session.keyboard().release(XK_space);
    session.keyboard().release(XK_Super_L);
    session.keyboard().release(XK_Alt_L);
    return time;
}

/// From a letter to the list, where that is in `strip`.
Milliseconds timeToList(LauncherSession& session, const QRect& strip, xcb_keysym_t letter) {
    const Milliseconds time =
        timeToChange(session.desktop(), strip, [&] { session.keyboard().hold(letter); });
    session.keyboard().release(letter);
    return time;
}

/// A part of the first three rows' icons and names, where nothing is shown before the first
/// keystroke.
QRect listStrip(const QRect& panel) {
    return {panel.x() + 56, panel.y() + LauncherSession::emptyPanelHeight + 20, 40, 124};
}

/// Has the desktop start the launcher once more in every round, and hides the panel again.
Series timesOfFurtherStarts(LauncherSession& session, const QRect& corner, int rounds) {
    Series times;
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(1s);
        std::optional<ChildProcess> start;
        times.add(
            timeToChange(session.desktop(), corner, [&] { start.emplace(session.launch()); }));
        start->waitForExit(patience);
        session.keyboard().press({XK_Escape});
        session.waitForDismissal();
    }
    return times;
}

/// What users of a launcher that is started for each use wait for, with the same applications.
void measurePeer(const LauncherSession& session, int rounds) {
    if (QStandardPaths::findExecutable(QStringLiteral("rofi")).isEmpty()) {
        return;
    }
    // Its window is in the middle of the screen.
    const QRect corner(640, 400, 4, 4);
    ChildProcess::Launch launch = session.launch();
    launch.program = QStringLiteral("rofi");
    launch.arguments = {QStringLiteral("-show"), QStringLiteral("drun")};
    launch.outputPath = QProcess::nullDevice();
    Series times;
    for (int round = 0; round < rounds; ++round) {
        std::optional<ChildProcess> rofi;
        times.add(timeToChange(session.desktop(), corner, [&] { rofi.emplace(launch); }));
        const QImage shown = session.desktop().screenshot(corner);
        rofi.reset();
        waitUntil([&] { return session.desktop().screenshot(corner) != shown; });
    }
    times.print("rofi, its start to its window");
}

void measureLauncher(int rounds) {
    LauncherSession session;
    addApplications(session, applications);
    session.start();
    session.summon();
    const QRect place = session.panel().value();
    session.keyboard().press({XK_Escape});
    session.waitForDismissal();

    Series showing;
    Series firstLetters;
    Series secondLetters;
    const QRect corner(place.center(), QSize(4, 4));
    for (int round = 0; round < rounds; ++round) {
        // So that every third showing or so scans the folders again, as in use.
        std::this_thread::sleep_for(1s);
        showing.add(timeToShow(session, corner));

        // The second letter leaves other names in front.
        const xcb_keysym_t initial = XK_a + static_cast<xcb_keysym_t>(round % 26);
        for (const auto& [letter, times] :
             {std::pair(initial, &firstLetters), std::pair(xcb_keysym_t{XK_b}, &secondLetters)}) {
            std::this_thread::sleep_for(100ms);
            times->add(timeToList(session, listStrip(place), letter));
        }
        session.keyboard().press({XK_Escape});
        session.waitForDismissal();
    }
    showing.print("the hotkey to the panel");
    firstLetters.print("the first letter to the list");
    secondLetters.print("the second letter to the list");
    timesOfFurtherStarts(session, corner, rounds).print("a further start to the panel");
    measurePeer(session, rounds);
}

/// A letter while many applications are being scanned, and the same one soon after, when they are
/// not scanned again.
void measureScan(int count, int rounds) {
    constexpr auto betweenScans = 3100ms;
    constexpr int moments = 40;
    LauncherSession session;
    addApplications(session, count);
    session.start();
    session.waitForRest();
    session.summon();
    const QRect place = session.panel().value();
    session.keyboard().press({XK_Escape});
    session.waitForDismissal();
    const QRect corner(place.center(), QSize(4, 4));
    Series during;
    Series after;
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(betweenScans);
        for (Series* const times : {&during, &after}) {
            timeToShow(session, corner);
            // At another moment of the scan each time.
            std::this_thread::sleep_for(std::chrono::milliseconds(round % moments));
            times->add(timeToList(session, listStrip(place), XK_b));
            session.keyboard().press({XK_Escape});
            session.keyboard().press({XK_Escape});
            session.waitForDismissal();
            session.waitForRest();
        }
    }
    const std::string applications = std::to_string(count) + " applications";
    during.print(("a letter during a scan of " + applications).c_str());
    after.print(("a letter with " + applications + " and no scan").c_str());
}

int measure(const QString& self, int rounds) {
    try {
        measureBareWindow(self, rounds);
        measureLauncher(rounds);
        measureScan(2'000, (rounds + 3) / 4);
        measureScan(10'000, (rounds + 3) / 4);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

} // namespace
} // namespace quorvantel

/// Measures on an X server of its own, from outside the launcher's process, the time from a key
/// event to the first changed pixel. The argument is the number of rounds.
int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--bare-window") {
        return quorvantel::runBareWindow(argc, argv);
    }
    const QCoreApplication application(argc, argv);
    return quorvantel::measure(QCoreApplication::applicationFilePath(),
                               quorvantel::roundsOf(argc, argv, 200));
}
