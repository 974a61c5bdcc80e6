#include "platform/macos/PendingCompletions.h"

#include <utility>

namespace quorvantel::platform {

PendingCompletions::Number PendingCompletions::add(Workspace::Completion completion) {
    m_waiting.emplace(++m_latest, std::move(completion));
    return m_latest;
}

void PendingCompletions::finish(Number number, const QString& error) {
    // Taken out first, since it may start something else, or end the workspace.
    if (const auto waiting = m_waiting.extract(number)) {
        waiting.mapped()(error);
    }
}

} // namespace quorvantel::platform
