#pragma once

#include "platform/linux/wayland/LayerSurface.h"

#include <QObject>

#include <functional>
#include <map>
#include <memory>

class QWindow;

namespace quorvantel::platform {

class PanelSurface;
class WaylandConnection;

/// Shows the menus and tooltips of a panel that is a layer surface as layer surfaces, too. Qt knows
/// only how to attach them to an application's windows; they would stay unseen, and a menu would
/// keep the keyboard.
class PanelPopups : public QObject {
    Q_OBJECT

public:
    /// Makes a layer surface on the panel's output.
    using MakeRole = std::function<std::unique_ptr<LayerSurface>(wl_surface& surface)>;

    /// Both must outlive the object. What is opened while the panel is shown is the panel's.
    PanelPopups(const PanelSurface& panel, const WaylandConnection& connection, MakeRole makeRole);

    /// Where the top-left corner of the panel's window is on its output.
    void setOrigin(const QPoint& origin) { m_origin = origin; }

    bool isAnyOpen() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// One was opened or closed.
    void changed();

private:
    void takeOver(QWindow& window, QEvent* event);

    const PanelSurface& m_panel;
    const WaylandConnection& m_connection;
    MakeRole m_makeRole;
    QPoint m_origin;
    /// Null for those that are not shown.
    std::map<const QWindow*, std::unique_ptr<LayerSurface>> m_roles;
};

} // namespace quorvantel::platform
