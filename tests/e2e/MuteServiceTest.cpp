#include "e2e/LauncherSession.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QTemporaryDir>

#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using namespace ::quorvantel::testing;

/// A service of a bus that answers each call with one text, or none.
class Service : public QDBusVirtualObject {
public:
    Service(const QString& busAddress, const QString& name, QString answer = {})
        : m_name(name),
          m_answer(std::move(answer)),
          m_bus(QDBusConnection::connectToBus(busAddress, name)) {
        m_bus.registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath);
        m_bus.registerService(name);
    }
    ~Service() override { QDBusConnection::disconnectFromBus(m_name); }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        ++calls;
        return m_answer.isNull() || bus.send(message.createReply(m_answer));
    }

    int calls = 0;

private:
    QString m_name;
    QString m_answer;
    QDBusConnection m_bus;
};

class MuteServiceTest : public ::testing::Test {
protected:
    void expectUsable() {
        session.start();
        session.summon();
        session.search("wifi", 2);
        session.keyboard().press({XK_Escape});
        EXPECT_TRUE(session.waitForDismissal());
    }

    LauncherSession session;
    QTemporaryDir directory;
    SessionBus accessibilityBus{directory.path()};
};

TEST_F(MuteServiceTest, NothingWaitsForServicesThatAnswerNothing) {
    const Service accessibility(session.busAddress(), u"org.a11y.Bus"_s);
    const Service portal(session.busAddress(), u"org.freedesktop.portal.Desktop"_s);
    expectUsable();
    EXPECT_TRUE(waitUntil([&] { return accessibility.calls > 0 && portal.calls > 0; }));
}

TEST_F(MuteServiceTest, NothingWaitsForABusThatIsSilentAtTheStartOrLater) {
    accessibilityBus.signal(SIGSTOP);
    for (const bool isLate : {false, true}) {
        std::optional<Service> service;
        const auto come = [&] {
            service.emplace(session.busAddress(), u"org.a11y.Bus"_s, accessibilityBus.address());
        };
        if (!isLate) {
            come();
        }
        expectUsable();
        if (isLate) {
            come();
        }
        EXPECT_TRUE(waitUntil([&] { return service->calls > 0; }));
        session.summon();
        session.terminate();
    }
    accessibilityBus.signal(SIGCONT);
}

TEST_F(MuteServiceTest, NothingWaitsForARegistryThatIsSilent) {
    const Service service(session.busAddress(), u"org.a11y.Bus"_s, accessibilityBus.address());
    const Service registry(accessibilityBus.address(), u"org.a11y.atspi.Registry"_s);
    expectUsable();
    EXPECT_TRUE(waitUntil([&] { return registry.calls > 0; }));
    session.summon();
}

} // namespace
} // namespace quorvantel
