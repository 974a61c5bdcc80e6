#include "Series.h"
#include "support/ChildProcess.h"
#include "support/IsolatedHome.h"
#include "support/TestFiles.h"
#include "support/WaitUntil.h"
#include "support/WaylandClient.h"
#include "support/WaylandCompositor.h"
#include "support/WaylandInput.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QRegularExpression>

#include <linux/input-event-codes.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>
#include <stdexcept>
#include <thread>
#include <vector>

namespace quorvantel {
namespace {

using namespace testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The clock that the Wayland library stamps its log with, in microseconds. Its high bits are cut
/// off there.
std::uint32_t now() {
    using namespace std::chrono;
    return static_cast<std::uint32_t>(
        duration_cast<microseconds>(system_clock::now().time_since_epoch()).count());
}

/// When the compositor called back for the first picture of the panel after `trigger`, as the log
/// of the launcher's connection has it, as a time after `trigger`. Absent when it has not.
std::optional<Milliseconds> timeToFrame(const QByteArray& log, std::uint32_t trigger) {
    static const QRegularExpression line(u"^\\[ *(\\d+)\\.(\\d+)\\] (.*)$"_s);
    static const QRegularExpression question(
        u"^ -> (wl_surface@\\d+)\\.frame\\(new id (wl_callback@\\d+)\\)$"_s);
    static const QRegularExpression picture(u"^ -> (wl_surface@\\d+)\\.attach\\(wl_buffer"_s);
    bool isShowing = false;
    // The toolkit asks for the callback of a picture before it attaches it, or has one to come for
    // an earlier picture that was not seen.
    QHash<QString, QString> callbacks;
    QString answer;
    for (const QByteArray& text : log.split('\n')) {
        const auto match = line.match(QString::fromUtf8(text));
        const std::uint32_t stamp = match.captured(1).toUInt() * 1000 + match.captured(2).toUInt();
        const QString message = match.captured(3);
        if (const auto asked = question.match(message); asked.hasMatch()) {
            callbacks.insert(asked.captured(1), asked.captured(2));
        }
        if (!match.hasMatch() || static_cast<std::int32_t>(stamp - trigger) < 0) {
            continue;
        }
        isShowing = isShowing || message.contains(u".set_keyboard_interactivity(1)"_s);
        if (const auto drawn = picture.match(message);
            isShowing && answer.isEmpty() && drawn.hasMatch()) {
            answer = callbacks.value(drawn.captured(1)) + u".done("_s;
        } else if (!answer.isEmpty() && message.startsWith(answer)) {
            return std::chrono::microseconds(stamp - trigger);
        }
    }
    return std::nullopt;
}

/// Shows and hides the panel of a launcher that was just started, and gives the times of its
/// showings.
std::vector<Milliseconds> timesOfShowings(int showings, const std::function<void()>& show,
                                          const WaylandClient& application, WaylandInput& input) {
    const QString logPath = inHome(u"log"_s);
    QFile::remove(logPath);
    ChildProcess::Launch launch{.program = QStringLiteral(QUORVANTEL_PROGRAM),
                                .outputPath = logPath};
    launch.environment.insert(u"WAYLAND_DEBUG"_s, u"1"_s);
    const ChildProcess launcher(launch);
    if (!waitUntil([&] { return readFile(logPath).contains(".attach(wl_buffer"); })) {
        throw std::runtime_error("the launcher did not start");
    }
    std::vector<Milliseconds> times;
    for (int showing = 0; showing < showings; ++showing) {
        // Long enough for the launcher to have nothing left to do.
        std::this_thread::sleep_for(showing == 0 ? 2s : 150ms);
        const std::uint32_t trigger = now();
        show();
        std::optional<Milliseconds> time;
        // A panel that is hidden before has no first frame.
        if (!waitUntil([&] {
                std::this_thread::sleep_for(50ms);
                time = timeToFrame(readFile(logPath), trigger);
                return time && !application.isActive();
            })) {
            throw std::runtime_error("the panel did not come");
        }
        times.push_back(*time);
        input.press({KEY_ESC});
        if (!waitUntil([&] { return application.isActive(); })) {
            throw std::runtime_error("the panel did not go");
        }
    }
    return times;
}

void measure(const char* program, const char* name, int rounds) {
    const IsolatedHome home;
    const WaylandCompositor compositor({.program = QString::fromLatin1(program)});
    compositor.enter();
    WaylandInput input(compositor);
    const WaylandClient application(compositor);
    const QDBusConnection bus =
        QDBusConnection::connectToBus(compositor.busAddress(), compositor.busAddress());
    const std::pair<const char*, std::function<void()>> triggers[]{
        {"further start", [] { QProcess::execute(QStringLiteral(QUORVANTEL_PROGRAM)); }},
        {"D-Bus action",
         [&bus] {
             bus.call(QDBusMessage::createMethodCall(
                          u"org.quorvantel.Quorvantel"_s, u"/org/quorvantel/Quorvantel"_s,
                          u"org.freedesktop.Application"_s, u"Activate"_s)
                      << QVariantMap());
         }},
    };
    for (const auto& [trigger, show] : triggers) {
        Series first;
        Series later;
        constexpr int showingsPerStart = 10;
        for (int done = 0; done < rounds; done += showingsPerStart) {
            const auto times = timesOfShowings(showingsPerStart, show, application, input);
            first.add(times.front());
            std::for_each(times.begin() + 1, times.end(), [&later](auto time) { later.add(time); });
        }
        const QString series = u"%1, %2, "_s.arg(QLatin1String(name)).arg(QLatin1String(trigger));
        first.print(qPrintable(series + u"first"_s));
        later.print(qPrintable(series + u"later"_s));
    }
}

} // namespace
} // namespace quorvantel

/// Measures on compositors of its own the time from the start of the program that users bind to
/// their key, and from the action on the session bus, to the compositor's callback for the panel's
/// first frame.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int rounds = quorvantel::roundsOf(argc, argv, 50);
    try {
        quorvantel::measure("sway", "sway", rounds);
        quorvantel::measure("kwin_wayland", "KWin", rounds);
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "%s\n", exception.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
