#include "platform/linux/start/BusProbe.h"
#include "platform/linux/start/InstanceFolder.h"
#include "platform/linux/start/StartRequest.h"
#include "support/SessionBus.h"
#include "support/TestFiles.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;
using namespace quorvantel::testing;

QString placeOf(const FileDescriptor& folder) {
    return QFile::symLinkTarget(u"/proc/self/fd/%1"_s.arg(folder.get()));
}

TEST(StartTest, AFolderThatOthersCouldChangeIsNotUsed) {
    const QString folder = inHome(u"quorvantel"_s);
    EXPECT_EQ(placeOf(openInstanceFolder()), folder);
    EXPECT_EQ(modeOf(folder), 0700U);
    QFile::setPermissions(folder, QFile::permissions(folder) | QFile::WriteOther);
    EXPECT_NE(placeOf(openInstanceFolder()), folder);
    QDir().rename(folder, inHome(u"elsewhere"_s));
    QFile::setPermissions(inHome(u"elsewhere"_s),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile::link(inHome(u"elsewhere"_s), folder);
    EXPECT_NE(placeOf(openInstanceFolder()), inHome(u"elsewhere"_s));
}

TEST(StartTest, ReadsOnlyWholeRequestsAndKnowsWhichAreOfOneSession) {
    const StartRequest request{":1", "id_TIME5", "wayland-1", "token"};
    EXPECT_EQ(StartRequest::decoded(request.encoded()), request);
    EXPECT_EQ(StartRequest::decoded(request.encoded() + "of a later version"), request);
    for (const std::string& message : {std::string(), std::string(":1\0id", 5)}) {
        EXPECT_FALSE(StartRequest::decoded(message));
    }
    EXPECT_EQ(StartRequest::decoded(std::string(":1\0id\0", 6)),
              (StartRequest{":1", "id", "", "id"}));
    const auto isSame = [](const StartRequest& start, const StartRequest& running) {
        return isSameSession(start, running) && isSameSession(running, start);
    };
    EXPECT_TRUE(isSame({":0", "", "", ""}, {":0.1", "", "wayland-0", ""}));
    EXPECT_TRUE(isSame({}, {":0", "", "", ""}));
    EXPECT_TRUE(isSame({":1", "", "/run/user/1/wayland-0", ""}, {":0", "", "wayland-0", ""}));
    EXPECT_FALSE(isSame({":0", "", "", ""}, {":1", "", "wayland-0", ""}));
    EXPECT_FALSE(isSame({":1", "", "wayland-1", ""}, {":0", "", "wayland-0", ""}));
    EXPECT_FALSE(isSame({"10.0.0.1:0", "", "", ""}, {"10.0.0.2:0", "", "", ""}));
}

TEST(StartTest, TheBusOfTheUserIsInTheRuntimeFolder) {
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/some");
    qputenv("XDG_RUNTIME_DIR", "/run/\u00FC 1,2");
    EXPECT_EQ(sessionBusAddress(), "unix:path=/some");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "");
    EXPECT_EQ(sessionBusAddress(), "unix:path=/run/%c3%bc%201%2c2/bus");
    qunsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(sessionBusAddress(), "");
}

TEST(StartTest, ABusIsSilentOnlyWhenItKeepsAClientWaiting) {
    constexpr std::chrono::milliseconds shortTime{200};
    SessionBus bus(inHome(u""_s));
    std::string address = bus.address().toStdString();
    EXPECT_FALSE(isBusSilent(address, patience));
    bus.signal(SIGSTOP);
    address.replace(address.rfind('/'), 1, "%2f");
    EXPECT_TRUE(isBusSilent(address, shortTime));
    bus.signal(SIGCONT);
    for (const char* const other : {"", "unix:path=/absent", "tcp:host=localhost,port=1", "%"}) {
        EXPECT_FALSE(isBusSilent(other, shortTime)) << other;
    }
    // The kernel chooses a name; one client may wait.
    const FileDescriptor full(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr name{.sa_family = AF_UNIX, .sa_data = {}};
    socklen_t length = sizeof name;
    ::bind(full.get(), &name, sizeof name.sa_family);
    ::listen(full.get(), 0);
    ::getsockname(full.get(), &name, &length);
    for (int client = 0; client < 3; ++client) {
        EXPECT_TRUE(isBusSilent("unix:abstract=" + std::string(name.sa_data + 1, 5), shortTime));
    }
}

} // namespace
} // namespace quorvantel::platform
