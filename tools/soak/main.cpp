#include "RandomUser.h"
#include "platform/linux/PropertyList.h"
#include "support/ClientWindow.h"
#include "support/ForeignGrab.h"
#include "support/TestFiles.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <random>
#include <stdexcept>
#include <thread>

namespace quorvantel::soak {

namespace {

using namespace Qt::StringLiterals;
using namespace quorvantel::testing;
using Clock = std::chrono::steady_clock;

/// What the launcher may gain after a quarter of the time, in kibibytes. Its icons alone may take
/// eight mebibytes, which few of the applications here have.
constexpr int allowedGrowth = 6 * 1024;

void require(bool condition, const char* failure) {
    if (!condition) {
        throw std::runtime_error(failure);
    }
}

/// Kibibytes of the launcher's own, other than files and what it shares with the X server.
int memory(const LauncherSession& session) {
    for (const QByteArray& line :
         readFile(u"/proc/%1/status"_s.arg(session.processId())).split('\n')) {
        if (line.startsWith("RssAnon:")) {
            return line.mid(8).trimmed().split(' ').front().toInt();
        }
    }
    throw std::runtime_error("the launcher is gone");
}

/// Ends what the user has begun, so that nothing but the launcher itself is left.
void comeToRest(LauncherSession& session) {
    for (int menu = 0; menu < 3; ++menu) {
        session.keyboard().press({XK_Escape});
    }
    require(session.waitForDismissal(), "the panel does not go");
    require(session.waitForRest(), "the launcher does not come to rest");
}

/// Opens what takes most memory when it is opened for the first time.
void openWindows(LauncherSession& session) {
    const auto expectInFront = [&session](const QByteArray& title) {
        require(waitUntil([&] { return session.desktop().activeTitle() == title; }),
                "a window does not come");
    };
    session.summon();
    session.keyboard().press({XK_Super_L, XK_comma});
    expectInFront("Quorvantel Settings");
    session.keyboard().press({XK_F1});
    expectInFront("Quorvantel Help");
}

void checkFiles(const LauncherSession& session) {
    for (const QString& name : {u"frecency.json"_s, u"abbreviations.json"_s}) {
        require(session.dataFile(name).has_value(), "a store is torn");
    }
    const QByteArray defaults = readFile(inHome(u".config/Quorvantel/defaults.plist"_s));
    require(platform::PropertyList::parse(defaults).has_value(), "the settings are torn");
}

void soak(std::chrono::seconds length, unsigned seed) {
    LauncherSession session;
    session.addApplication(u"zinc"_s, u"Zinc"_s);
    session.start();
    const ClientWindow client(session.display(), QRect(40, 640, 400, 120));
    openWindows(session);
    RandomUser user(session, seed);
    const auto begin = Clock::now();
    const auto quarter = begin + length / 4;
    auto nextReport = begin;
    std::optional<int> settled;
    qint64 shown = 0;
    for (qint64 actions = 0; Clock::now() < begin + length; ++actions) {
        user.act();
        require(session.isRunning(), "the launcher has ended");
        shown += session.panel() ? 1 : 0;
        if (!settled && Clock::now() >= quarter) {
            settled = memory(session);
        }
        if (Clock::now() >= nextReport) {
            const auto elapsed =
                std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin);
            // What is learned takes memory, and a random user picks for endless new queries.
            const auto learned =
                session.dataFile(u"abbreviations.json"_s).value_or(QJsonObject()).size();
            std::printf(
                "%5lld s: %lld actions, %lld with the panel, %lld queries learned, %d KiB\n",
                static_cast<long long>(elapsed.count()), actions, shown,
                static_cast<long long>(learned), memory(session));
            std::fflush(stdout);
            nextReport += length / 10;
        }
        // As fast as nobody types, but the launcher is to get a chance to answer.
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
    }
    comeToRest(session);
    const ForeignGrab keyboard(session.display());
    checkFiles(session);
    const int growth = memory(session) - settled.value();
    std::printf("The keyboard is free, the files are whole; %d KiB more than settled.\n%s", growth,
                session.output().constData());
    require(growth <= allowedGrowth, "the launcher grows");
    const auto exit = session.terminate();
    require(exit && !exit->crashed && exit->status == 0, "the launcher does not end in order");
}

} // namespace

} // namespace quorvantel::soak

/// Arguments: the minutes, and a seed unless a new one is to be chosen.
int main(int argc, char** argv) {
    const int minutes = argc > 1 ? std::atoi(argv[1]) : 10;
    const unsigned seed =
        argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : std::random_device{}();
    std::printf("seed %u\n", seed);
    try {
        quorvantel::soak::soak(std::chrono::minutes(minutes), seed);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}
