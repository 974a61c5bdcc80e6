#include "GeneratedApplications.h"
#include "Series.h"
#include "support/TestFiles.h"

#include <QImage>

#include <X11/keysym.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;
using namespace Qt::StringLiterals;

constexpr int applications = 200;
constexpr int keysEachTime = 5;

/// Mebibytes of a field of proc(5) "status".
double memory(const LauncherSession& session, const QByteArray& field) {
    for (const QByteArray& line :
         readFile(u"/proc/%1/status"_s.arg(session.processId())).split('\n')) {
        if (line.startsWith(QByteArray(field + ':'))) {
            return line.mid(field.size() + 1).simplified().split(' ').front().toDouble() / 1024;
        }
    }
    throw std::runtime_error("the launcher is gone");
}

void print(const LauncherSession& session, const std::string& title) {
    session.waitForRest();
    std::printf("| %s | %.1f MiB | %.1f MiB |\n", title.c_str(), memory(session, "VmRSS"),
                memory(session, "RssAnon"));
    std::fflush(stdout);
}

/// Gives every application an icon of its own.
void addIcons() {
    QImage icon(128, 128, QImage::Format_ARGB32_Premultiplied);
    for (int index = 0; index < applications; ++index) {
        const QString id = u"generated%1"_s.arg(index);
        icon.fill(QColor::fromHsv(index, 200, 200));
        const QString path = inHome(id + u".png"_s);
        icon.save(path);
        const QString entry = inHome(u".local/share/applications/"_s + id + u".desktop"_s);
        writeFile(entry, readFile(entry) + "Icon=" + path.toUtf8() + '\n');
    }
}

/// Shows the panel and types a few letters so that other icons are listed each time.
void use(LauncherSession& session, int time) {
    session.summon();
    for (int key = 0; key < keysEachTime; ++key) {
        session.keyboard().type(QByteArray(1, static_cast<char>('a' + (time + 7 * key) % 26)));
        session.keyboard().press(
            {key == keysEachTime - 1 ? xcb_keysym_t{XK_Down} : xcb_keysym_t{XK_BackSpace}});
    }
    session.keyboard().press({XK_Escape});
    session.keyboard().press({XK_Escape});
    session.waitForDismissal();
}

void openWindow(LauncherSession& session, const QByteArray& title) {
    if (!waitUntil([&] { return session.desktop().activeTitle() == title; })) {
        throw std::runtime_error("a window does not come");
    }
}

void measure(int uses) {
    LauncherSession session;
    addApplications(session, applications);
    addIcons();
    session.start();
    print(session, "after the start");
    for (int time = 0; time < uses; ++time) {
        use(session, time);
        if (time == 0) {
            print(session, "after a first use");
        }
    }
    print(session, "after " + std::to_string(uses) + " uses");
    session.summon();
    session.keyboard().press({XK_Super_L, XK_comma});
    openWindow(session, "Quorvantel Settings");
    session.keyboard().press({XK_F1});
    openWindow(session, "Quorvantel Help");
    print(session, "with settings and help");
    session.keyboard().press({XK_Alt_L, XK_F4});
    openWindow(session, "Quorvantel Settings");
    session.keyboard().press({XK_Alt_L, XK_F4});
    waitUntil([&] { return session.desktop().activeTitle().isEmpty(); });
    print(session, "after they are closed");
}

} // namespace
} // namespace quorvantel

/// Measures from outside what memory the launcher takes in the course of a day. The argument is how
/// often it is used.
int main(int argc, char** argv) {
    try {
        quorvantel::measure(quorvantel::roundsOf(argc, argv, 1000));
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}
