#include "platform/linux/x11/GrabRetry.h"

#include <chrono>
#include <utility>

namespace quorvantel::platform {

namespace {

using namespace std::chrono_literals;

constexpr auto interval = 20ms;
constexpr int attempts = 15;

} // namespace

GrabRetry::GrabRetry(std::function<bool()> attempt, std::function<void()> onGivenUp)
    : m_attempt(std::move(attempt)), m_onGivenUp(std::move(onGivenUp)) {
    m_timer.setInterval(interval);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tryAgain(); });
}

void GrabRetry::start() {
    m_attemptsLeft = attempts;
    m_timer.start();
}

void GrabRetry::tryAgain() {
    if (m_attempt()) {
        m_timer.stop();
    } else if (--m_attemptsLeft == 0) {
        m_timer.stop();
        m_onGivenUp();
    }
}

} // namespace quorvantel::platform
