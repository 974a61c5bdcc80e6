#include "catalogue/YieldingScan.h"

#include <chrono>
#include <utility>

namespace quorvantel {

namespace {

/// How long a scan may go on before it looks for events. A letter waits for several turns: between
/// it and its list the display server is heard several times.
constexpr std::chrono::microseconds turnLength{500};

} // namespace

YieldingScan::YieldingScan(const AppIndexer& indexer, Completion completion)
    : m_indexer(indexer), m_completion(std::move(completion)) {
    QObject::connect(&m_turn, &QTimer::timeout, &m_turn, [this] { goOn(); });
}

void YieldingScan::start() {
    m_scan.emplace(m_indexer);
    m_turn.start();
    goOn();
}

void YieldingScan::goOn() {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + turnLength;
    while (m_scan->step()) {
        if (Clock::now() >= end) {
            return;
        }
    }
    m_turn.stop();
    std::vector<LaunchTarget> targets = m_scan->takeTargets();
    m_scan.reset();
    m_completion(std::move(targets));
}

} // namespace quorvantel
