#pragma once

#include "panel/LauncherView.h"
#include "platform/PanelHost.h"

#include <QPoint>
#include <QWidget>

#include <memory>
#include <optional>

namespace quorvantel {

/// Carries the launcher's view in the window that the desktop shows as the panel, and acts on the
/// first click into it.
///
/// The window may be larger than the panel, which the view then is a part of; what is around it is
/// the host's to draw.
class FirstMouseHostingView : public QWidget {
    Q_OBJECT

public:
    /// Takes ownership of `view`. `host` must outlive the hosting view.
    FirstMouseHostingView(LauncherView* view, platform::PanelHost& host);

    LauncherView& view() const { return *m_view; }
    platform::PanelSurface& surface() const { return *m_surface; }

    /// Ends a drag and closes an open menu, for the panel goes.
    void endInteraction();

Q_SIGNALS:
    /// The user dragged the background by this step.
    void dragged(QPoint step);

    /// The user clicked into the window, but not at the panel.
    void clickedElsewhere();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool isAtPanel(const QMouseEvent& event) const;
    void followSurface();

    LauncherView* m_view;
    std::unique_ptr<platform::PanelSurface> m_surface;
    /// Where the mouse last held the background; absent while it does not.
    std::optional<QPoint> m_grip;
    bool m_isPressedElsewhere = false;
};

} // namespace quorvantel
