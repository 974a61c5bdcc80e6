#include "platform/linux/portal/ApplicationService.h"

#include "support/LogLines.h"
#include "support/SessionBus.h"
#include "support/WaitUntil.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVirtualObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

namespace quorvantel::platform {
namespace {

using testing::waitUntil;
using namespace Qt::StringLiterals;

const QString name = u"org.quorvantel.Quorvantel"_s;

/// A launcher on a connection of its own, and what it was asked for.
struct Launcher {
    Launcher(const QString& address, const QString& connection)
        : bus(QDBusConnection::connectToBus(address, connection)), service(bus) {}
    ~Launcher() { QDBusConnection::disconnectFromBus(bus.name()); }
    Launcher(const Launcher&) = delete;
    Launcher& operator=(const Launcher&) = delete;

    void receive() {
        service.receive([this](ApplicationRequest request, const CallerToken& token) {
            requests.emplace_back(request, token.startupId + '/' + token.activationToken);
        });
    }

    QDBusConnection bus;
    ApplicationService service;
    std::vector<std::pair<ApplicationRequest, QByteArray>> requests;
};

/// Takes every call and answers none.
class Deaf : public QDBusVirtualObject {
public:
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& /*message*/,
                       const QDBusConnection& /*connection*/) override {
        return true;
    }
};

class ApplicationServiceTest : public ::testing::Test {
protected:
    /// Calls the launcher as a desktop does and returns the error's name, empty for success.
    QString call(const QString& method, const QVariantList& arguments) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            name, u"/org/quorvantel/Quorvantel"_s, u"org.freedesktop.Application"_s, method);
        message.setArguments(arguments);
        const QDBusPendingCall call = second.bus.asyncCall(message);
        waitUntil([&call] { return call.isFinished(); });
        return call.error().name();
    }

    bool isNameTaken() const {
        return waitUntil([this] { return first.bus.interface()->isServiceRegistered(name); });
    }

    QTemporaryDir directory;
    testing::SessionBus bus{directory.path()};
    Launcher first{bus.address(), u"first"_s};
    Launcher second{bus.address(), u"second"_s};
};

TEST_F(ApplicationServiceTest, HandsOverEveryRequestWithTheCallersToken) {
    first.receive();
    ASSERT_TRUE(isNameTaken());
    const QVariantMap token{{u"activation-token"_s, u"token"_s}};
    QVariantMap both = token;
    both[u"desktop-startup-id"_s] = u"id_TIME1"_s;
    EXPECT_EQ(call(u"Activate"_s, {token}), QString());
    EXPECT_EQ(call(u"Open"_s, {QStringList{u"file:///"_s}, both}), QString());
    for (const char* const action : {"settings", "help", "start-at-login", "quit"}) {
        EXPECT_EQ(
            call(u"ActivateAction"_s, {QString::fromLatin1(action), QVariantList(), QVariantMap()}),
            QString());
    }
    EXPECT_EQ(call(u"ActivateAction"_s, {u"fly"_s, QVariantList(), QVariantMap()}),
              u"org.freedesktop.DBus.Error.InvalidArgs"_s);
    using enum ApplicationRequest;
    const decltype(first.requests) expected{{Summon, "token/token"},   {Summon, "id_TIME1/token"},
                                            {OpenSettings, "/"},       {ShowHelp, "/"},
                                            {ToggleStartAtLogin, "/"}, {Quit, "/"}};
    EXPECT_EQ(first.requests, expected);
}

TEST_F(ApplicationServiceTest, ALauncherThatHasTheNameIsSummonedAndThisOneEnds) {
    first.receive();
    ASSERT_TRUE(isNameTaken());
    second.receive();
    EXPECT_TRUE(waitUntil([this] { return !second.requests.empty(); }));
    EXPECT_EQ(second.requests.at(0).first, ApplicationRequest::Quit);
    EXPECT_EQ(first.requests.at(0).first, ApplicationRequest::Summon);
}

TEST_F(ApplicationServiceTest, GoesOnAloneWhenWhatHasTheNameDoesNotAnswer) {
    Deaf deaf;
    first.bus.registerVirtualObject(u"/"_s, &deaf, QDBusConnection::SubPath);
    first.bus.registerService(name);
    const testing::LogLines log(u"Quorvantel: "_s);
    second.receive();
    EXPECT_TRUE(waitUntil([&log] { return !log.lines().isEmpty(); }));
    EXPECT_EQ(log.lines(),
              QStringList{u"Quorvantel: what holds the name org.quorvantel.Quorvantel on the "
                          "session bus does not answer, so this launcher goes on alone"_s});
    EXPECT_TRUE(second.requests.empty());
}

} // namespace
} // namespace quorvantel::platform
