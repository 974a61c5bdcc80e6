#include "support/WaitUntil.h"

#include <QCoreApplication>

#include <algorithm>
#include <thread>

namespace quorvantel::testing {

namespace {

int slowness() {
    static const int factor = std::max(1, qEnvironmentVariableIntValue("QUORVANTEL_TEST_SLOWNESS"));
    return factor;
}

} // namespace

bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds timeout) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point deadline = Clock::now() + slowness() * timeout;
    while (!condition()) {
        if (Clock::now() >= deadline) {
            return false;
        }
        if (QCoreApplication::instance() != nullptr) {
            QCoreApplication::processEvents();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

} // namespace quorvantel::testing
