#pragma once

#include "e2e/LauncherSession.h"

#include <random>

namespace quorvantel::soak {

/// Someone who does to a launcher whatever comes to mind: the hotkey, further starts, letters and
/// keys, clicks, drags and the wheel, in the panel, the settings, the help and beside them, while
/// applications are installed and removed.
class RandomUser {
public:
    /// The same seed does the same things, though the launcher may be at another point by then.
    RandomUser(testing::LauncherSession& session, unsigned seed);

    /// Does one thing.
    void act();

private:
    int upTo(int limit);
    QPoint place();
    void pressKey();
    void click();
    void drag();
    void changeApplications();
    void startAgain();

    testing::LauncherSession& m_session;
    std::mt19937 m_random;
};

} // namespace quorvantel::soak
