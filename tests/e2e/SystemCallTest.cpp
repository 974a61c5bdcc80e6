#include "e2e/LauncherSession.h"
#include "e2e/SystemCallTrace.h"
#include "support/TestFiles.h"

#include <QDirIterator>
#include <QImage>

#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using namespace ::quorvantel::testing;

using Calls = std::vector<SystemCallTrace::Call>;

class SystemCallTest : public ::testing::Test {
protected:
    SystemCallTest() {
        const QString icon = inHome(u"icon.png"_s);
        QImage(QSize(64, 64), QImage::Format_RGB32).save(icon);
        for (const QString& name : {u"Zaqax"_s, u"Zaqabx"_s}) {
            const QByteArray entry =
                "[Desktop Entry]\nType=Application\nExec=true\nName=" + name.toUtf8() +
                "\nIcon=" + icon.toUtf8() + '\n';
            writeFile(inHome(u".local/share/applications/"_s + name + u".desktop"_s), entry);
        }
        session.start(trace.of(session.launch()));
    }

    void press(const std::vector<xcb_keysym_t>& chord) { session.keyboard().press(chord); }

    void searchBoth() {
        session.summon();
        session.search("zqx", 2);
    }

    void expectInFront(const QByteArray& title) {
        EXPECT_TRUE(waitUntil([&] { return session.desktop().activeTitle() == title; }));
    }

    static void expectNone(const Calls& calls, const auto& condition) {
        for (const SystemCallTrace::Call& call : calls) {
            EXPECT_FALSE(condition(call)) << call.name.data() << '(' << call.arguments.data();
        }
    }

    LauncherSession session;
    const SystemCallTrace trace{inHome(u"trace"_s)};
};

TEST_F(SystemCallTest, AWholeSessionNeitherReachesANetworkNorLeavesAnythingElsewhere) {
    searchBoth();
    press({XK_Down});
    press({XK_Return});
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_TRUE(session.waitForDataFile(u"abbreviations.json"_s));
    session.summon();
    press({XK_Super_L, XK_comma});
    expectInFront("Quorvantel Settings");
    for (const auto key :
         std::initializer_list<xcb_keysym_t>{XK_Down, XK_Down, XK_Tab, XK_Left, XK_F1}) {
        press({key});
    }
    expectInFront("Quorvantel Help");
    press({XK_Control_L, XK_w});
    expectInFront("Quorvantel Settings");
    press({XK_Control_L, XK_q});
    const auto exit = session.waitForExit();
    ASSERT_TRUE(exit && !exit->crashed && exit->status == 0);

    const Calls calls = trace.calls();
    EXPECT_TRUE(std::ranges::any_of(calls, [](const auto& call) { return call.name == "socket"; }));
    expectNone(calls, [](const auto& call) {
        return call.name == "socket" && !call.arguments.startsWith("AF_UNIX");
    });
    const QByteArray home = QFile::encodeName(QDir::homePath());
    expectNone(calls, [&home](const auto& call) {
        const auto isIn = [&](const char* folder) {
            // The folders above it are made where they are missing.
            const QByteArray whole = home + folder;
            return call.path.startsWith(whole) || whole.startsWith(QByteArray(call.path + '/'));
        };
        return call.changesFiles() && !isIn("/.config/Quorvantel/") &&
               !isIn("/.local/share/Quorvantel/") && !isIn("/quorvantel/") &&
               call.path != "/dev/null";
    });
    QDirIterator files(QDir::homePath(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    QStringList telling;
    while (files.hasNext()) {
        if (readFile(files.next()).contains("zqx")) {
            telling.append(files.fileName());
        }
    }
    EXPECT_EQ(telling, QStringList(u"abbreviations.json"_s));
}

TEST_F(SystemCallTest, BetweenTheHotKeyAndTheHideNothingIsAskedOfBusesDisksOrProcesses) {
    const auto use = [this](xcb_keysym_t last) {
        searchBoth();
        press({XK_Down});
        press({XK_BackSpace});
        press({last});
        EXPECT_TRUE(session.waitForDismissal());
    };
    // The first showing reads what it needs once: how keys compose, and the icons.
    EXPECT_TRUE(session.waitForRest());
    const auto first = std::chrono::system_clock::now();
    use(XK_Escape);
    const auto begin = std::chrono::system_clock::now();
    use(XK_Escape);
    const auto end = std::chrono::system_clock::now();
    // The launch of a program shows that the trace is up to date.
    use(XK_Return);
    Calls calls;
    ASSERT_TRUE(waitUntil([&] {
        calls = trace.calls();
        return std::ranges::any_of(
            calls, [&](const auto& call) { return call.time > end && call.name == "execve"; });
    }));
    std::erase_if(calls, [&](const auto& call) { return call.time < first || call.time > end; });
    expectNone(calls, [](const auto& call) { return call.path.endsWith(".so"); });
    std::erase_if(calls, [&](const auto& call) { return call.time < begin; });
    expectNone(calls, [](const auto& call) {
        // What looks for applications, three seconds after it did so last, reads between events.
        const bool looksForApplications =
            !call.changesFiles() && (call.path.contains("pplications") ||
                                     call.name == "getdents64" || call.path.endsWith("/true"));
        return !looksForApplications && call.name != "recvmsg" && call.name != "recvfrom";
    });
}

} // namespace
} // namespace quorvantel
