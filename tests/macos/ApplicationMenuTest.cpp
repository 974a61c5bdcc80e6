#include "platform/macos/ApplicationMenu.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenu>

#include <gtest/gtest.h>

#include <vector>

namespace quorvantel::platform {
namespace {

class FakeLoginItem final : public LoginItem {
public:
    bool isEnabled() const override { return m_isEnabled; }
    void setEnabled(bool isEnabled) override { m_isEnabled = isEnabled; }

private:
    bool m_isEnabled = true;
};

TEST(ApplicationMenu, AsksForTheHelpAndForTheStartAtLogin) {
    FakeLoginItem loginItem;
    std::vector<ApplicationRequest> requests;
    ApplicationMenu menu(loginItem,
                         [&](ApplicationRequest request) { requests.push_back(request); });
    const QList<QAction*> actions = menu.bar().actions().at(0)->menu()->actions();
    ASSERT_EQ(actions.size(), 2);
    QAction& login = *actions[0];
    QAction& help = *actions[1];
    // The toolkit moves an action by its role, and an unasked role by what its text resembles.
    EXPECT_EQ(login.menuRole(), QAction::ApplicationSpecificRole);
    EXPECT_EQ(help.menuRole(), QAction::NoRole);
    EXPECT_TRUE(login.isChecked());

    help.trigger();
    login.trigger();
    EXPECT_EQ(requests,
              (std::vector{ApplicationRequest::ShowHelp, ApplicationRequest::ToggleStartAtLogin}));
    EXPECT_TRUE(login.isChecked()) << "nobody has changed it";

    loginItem.setEnabled(false);
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_FALSE(login.isChecked());
}

} // namespace
} // namespace quorvantel::platform
