#pragma once

#include "platform/linux/wayland/WaylandPointer.h"

#include <QObject>

#include <vector>

namespace quorvantel::platform {

class WaylandGlobals;

/// Tells when a window of any application is activated
/// (wlr-foreign-toplevel-management-unstable-v1): by a click on it, by the desktop's own keys, or
/// since it was just opened. A compositor that gives the keyboard back to a window activates it
/// too.
class ForeignToplevels : public QObject {
    Q_OBJECT

public:
    /// Hears nothing from a compositor without the protocol.
    explicit ForeignToplevels(const WaylandGlobals& globals);

    bool isAvailable() const { return m_manager != nullptr; }

Q_SIGNALS:
    void activated();

private:
    using Handle = WaylandPointer<zwlr_foreign_toplevel_handle_v1>;

    void add(zwlr_foreign_toplevel_handle_v1* toplevel);

    WaylandPointer<zwlr_foreign_toplevel_manager_v1> m_manager;
    std::vector<Handle> m_toplevels;
};

} // namespace quorvantel::platform
