#include "e2e/LauncherSession.h"
#include "support/ChildProcess.h"
#include "support/Keyboard.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QWidget>
#include <QWindow>

#include <X11/keysym.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;
using namespace std::chrono_literals;

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int rounds = 50;
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
    window.windowHandle()->setKeyboardGrabEnabled(true);
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

/// Prints the median, the extremes and the count of a series.
void report(const char* what, std::vector<Milliseconds> times) {
    std::ranges::sort(times);
    std::printf("%-34s median %6.2f ms   minimum %6.2f ms   maximum %6.2f ms   (%zu rounds)\n",
                what, times[times.size() / 2].count(), times.front().count(), times.back().count(),
                times.size());
}

void measureBareWindow(const QString& self) {
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

    std::vector<Milliseconds> times;
    const QRect region(bareWindowGeometry.topLeft() + QPoint(20, 20), QSize(4, 4));
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(50ms);
        times.push_back(timeToChange(desktop, region, [&] { keyboard.hold(XK_a); }));
        keyboard.release(XK_a);
    }
    report("bare window, key to paint", times);
}

/// A part of the first three rows' icons and names, where nothing is shown before the first
/// keystroke.
QRect listStrip(const QRect& panel) {
    return {panel.x() + 56, panel.y() + LauncherSession::emptyPanelHeight + 20, 40, 124};
}

/// Has the desktop start the launcher once more in every round, and hides the panel again.
std::vector<Milliseconds> timesOfFurtherStarts(LauncherSession& session, const QRect& corner) {
    std::vector<Milliseconds> times;
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(1s);
        std::optional<ChildProcess> start;
        times.push_back(
            timeToChange(session.desktop(), corner, [&] { start.emplace(session.launch()); }));
        start->waitForExit(patience);
        session.keyboard().press({XK_Escape});
        session.waitForDismissal();
    }
    return times;
}

void measureLauncher() {
    LauncherSession session;
    for (int index = 0; index < applications; ++index) {
        // Every letter finds names of its own in front.
        const QString name = QStringLiteral("%1%2 Tool %3")
                                 .arg(QChar(u'A' + index % 26))
                                 .arg(QChar(u'a' + index / 26))
                                 .arg(index);
        session.addApplication(QStringLiteral("generated%1").arg(index), name);
    }
    session.start();
    session.summon();
    const QRect place = session.panel().value();
    session.keyboard().press({XK_Escape});
    session.waitForDismissal();

    std::vector<Milliseconds> showing;
    std::vector<Milliseconds> firstLetters;
    std::vector<Milliseconds> secondLetters;
    const QRect corner(place.center(), QSize(4, 4));
    for (int round = 0; round < rounds; ++round) {
        // So that every third showing or so scans the folders again, as in use.
        std::this_thread::sleep_for(1s);
        session.keyboard().hold(XK_Alt_L);
        session.keyboard().hold(XK_Super_L);
        showing.push_back(
            timeToChange(session.desktop(), corner, [&] { session.keyboard().hold(XK_space); }));
        session.keyboard().release(XK_space);
        session.keyboard().release(XK_Super_L);
        session.keyboard().release(XK_Alt_L);

        // The second letter leaves other names in front.
        const xcb_keysym_t initial = XK_a + static_cast<xcb_keysym_t>(round % 26);
        for (const auto& [letter, times] :
             {std::pair(initial, &firstLetters), std::pair(xcb_keysym_t{XK_b}, &secondLetters)}) {
            std::this_thread::sleep_for(100ms);
            times->push_back(timeToChange(session.desktop(), listStrip(place),
                                          [&, key = letter] { session.keyboard().hold(key); }));
            session.keyboard().release(letter);
        }
        session.keyboard().press({XK_Escape});
        session.waitForDismissal();
    }
    report("hotkey to panel", showing);
    report("further start to panel", timesOfFurtherStarts(session, corner));
    report("first letter to list", firstLetters);
    report("second letter to list", secondLetters);
}

int measure(const QString& self) {
    try {
        measureBareWindow(self);
        measureLauncher();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

} // namespace
} // namespace quorvantel

/// Measures on an X server of its own, from outside the launcher's process, the time from a key
/// event to the first changed pixel.
int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--bare-window") {
        return quorvantel::runBareWindow(argc, argv);
    }
    const QCoreApplication application(argc, argv);
    return quorvantel::measure(QCoreApplication::applicationFilePath());
}
