#pragma once

#include "platform/linux/x11/X11EventHandler.h"

#include <QAbstractNativeEventFilter>

#include <vector>

namespace quorvantel::platform {

/// Shows each event of the X server to the handlers, in the order of their ranks, until one keeps
/// it; what none of them keeps is the toolkit's.
///
/// The only native event filter of the launcher: the order of several would be that of their
/// making, backwards. Main thread only; must outlive its handlers.
class X11EventDispatcher : public QAbstractNativeEventFilter {
public:
    X11EventDispatcher();
    ~X11EventDispatcher() override;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    friend class X11EventHandler;

    struct Entry {
        X11EventRank rank;
        X11EventHandler* handler;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    void add(X11EventHandler& handler, X11EventRank rank);
    void remove(const X11EventHandler& handler);

    /// By rank, and then as they came.
    std::vector<Entry> m_handlers;
};

} // namespace quorvantel::platform
