#pragma once

#include "panel/LauncherView.h"

#include <QPoint>
#include <QWidget>
#include <QWindow>

#include <optional>

namespace quorvantel {

/// Carries the launcher's view inside the panel's window, and acts on the first click into it.
///
/// It is as large as the panel can grow, whatever the panel's height; the panel's window uncovers
/// more or less of it. So a panel that is shown or grows allocates nothing, waits for no new buffer
/// of the display server and draws only what has changed.
class FirstMouseHostingView : public QWidget {
    Q_OBJECT

public:
    /// Takes ownership of `view`. `panel` must outlive the hosting view.
    FirstMouseHostingView(LauncherView* view, QWindow& panel);

    LauncherView& view() const { return *m_view; }

    /// Whether the panel is shown; the hosting view itself stays shown inside a hidden panel.
    bool isOnScreen() const { return m_panel.isVisible(); }

    /// Ends a drag and closes an open menu, for the panel goes.
    void endInteraction();

Q_SIGNALS:
    /// The user dragged the background by this step.
    void dragged(QPoint step);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QWindow& m_panel;
    LauncherView* m_view;
    /// Where on the screen the mouse last held the background; absent while it does not.
    std::optional<QPoint> m_grip;
};

} // namespace quorvantel
