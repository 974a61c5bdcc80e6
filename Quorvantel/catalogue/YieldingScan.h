#pragma once

#include "catalogue/AppIndexer.h"

#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

namespace quorvantel {

/// Scans the applications between the events of the calling thread's loop: no event waits for
/// longer than half a millisecond and the reading of one entry.
class YieldingScan {
public:
    using Completion = std::function<void(std::vector<LaunchTarget>)>;

    /// `completion` gets the result of each scan that comes to its end. The indexer must outlive
    /// this object.
    YieldingScan(const AppIndexer& indexer, Completion completion);

    /// Begins a scan, which takes the place of one that is under way.
    void start();

private:
    void goOn();

    const AppIndexer& m_indexer;
    Completion m_completion;
    std::optional<AppIndexer::Scan> m_scan;
    /// Rings whenever the events that were there have been dealt with.
    QTimer m_turn;
};

} // namespace quorvantel
