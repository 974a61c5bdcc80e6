#pragma once

#include "platform/PanelHost.h"

#include <QPointF>
#include <QWidget>

#include <optional>

namespace quorvantel {

/// The borderless floating window of the launcher. It is transparent; its content draws the rounded
/// surface. The user drags it by any area that is not a control.
class LauncherPanel : public QWidget {
    Q_OBJECT

public:
    /// Takes ownership of `content`, which fills the panel. `host` must outlive the panel.
    LauncherPanel(QWidget* content, platform::PanelHost& host);

Q_SIGNALS:
    /// The window has another place, whoever moved it.
    void moved();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void cutCorners();

    platform::PanelHost& m_host;
    QWidget* m_content;
    /// Where in the window the user holds it; absent while it is not dragged.
    std::optional<QPoint> m_grip;
};

} // namespace quorvantel
