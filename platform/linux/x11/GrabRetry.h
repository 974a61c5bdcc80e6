#pragma once

#include <QTimer>

#include <functional>

namespace quorvantel::platform {

/// Asks for the keyboard again for a moment, since whoever holds it, a menu for instance, often
/// lets it go by then.
class GrabRetry {
public:
    /// `attempt` says whether there is nothing left to ask for; `onGivenUp` is told when that was
    /// still not so in the end.
    explicit GrabRetry(
        std::function<bool()> attempt, std::function<void()> onGivenUp = [] {});

    /// Begins anew; the first attempt comes a moment later.
    void start();
    void stop() { m_timer.stop(); }

private:
    void tryAgain();

    std::function<bool()> m_attempt;
    std::function<void()> m_onGivenUp;
    QTimer m_timer;
    int m_attemptsLeft = 0;
};

} // namespace quorvantel::platform
