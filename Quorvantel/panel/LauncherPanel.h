#pragma once

#include "panel/LauncherView.h"
#include "panel/PanelShadow.h"
#include "platform/PanelHost.h"
#include "platform/WindowBackdrop.h"

#include <QPointF>
#include <QWidget>

#include <optional>

namespace quorvantel {

/// The borderless floating window of the launcher. It is transparent; its content draws the rounded
/// surface. The user drags it by any area that is not a control.
class LauncherPanel : public QWidget {
    Q_OBJECT

public:
    /// Takes ownership of `view`, which fills the panel. The platform objects must outlive the
    /// panel.
    LauncherPanel(LauncherView* view, const platform::PanelHost& host,
                  platform::WindowBackdrop& backdrop);

    /// Whether the panel is shown, but nothing of it has been drawn yet.
    bool awaitsFirstFrame() const { return m_awaitsFirstFrame; }

Q_SIGNALS:
    /// The first frame since the panel was shown has been drawn, or will not be since it is hidden
    /// again.
    void firstFrameDrawn();

    /// The window has another place, whoever moved it.
    void moved();

    /// The window is about to be closed from outside, by the platform for instance.
    void closing();

protected:
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void endFirstFrame();
    void fitBackdrop();
    void fitBlur();

    platform::WindowBackdrop& m_backdrop;
    LauncherView* m_view;
    PanelShadow m_shadow;
    /// As of the last showing; asking takes a round trip to the window system.
    bool m_isComposited = false;
    bool m_awaitsFirstFrame = false;
    /// Where in the window the user holds it; absent while it is not dragged.
    std::optional<QPoint> m_grip;
};

} // namespace quorvantel
