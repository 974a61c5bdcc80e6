#include "platform/linux/wayland/ToplevelPanelSurface.h"

#include <QEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace quorvantel::platform {

ToplevelPanelSurface::ToplevelPanelSurface(const PanelContent& content,
                                           const WaylandConnection& connection,
                                           const WaylandKeyboard& keyboard)
    : WaylandPanelSurface(content, connection, keyboard), m_outputs(connection) {
    content.window.installEventFilter(this);
    connect(&content.window, &QWindow::widthChanged, this, &PanelSurface::geometryChanged);
    connect(&content.window, &QWindow::heightChanged, this, &PanelSurface::geometryChanged);
}

ToplevelPanelSurface::~ToplevelPanelSurface() {
    takeAway();
}

void ToplevelPanelSurface::setPlace(const PanelPlace& place) {
    m_place = place;
    Q_EMIT geometryChanged();
}

void ToplevelPanelSurface::show() {
    begin();
    content().showMaximized();
}

void ToplevelPanelSurface::hide() {
    takeAway();
    end();
}

bool ToplevelPanelSurface::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Close) {
        return WaylandPanelSurface::eventFilter(watched, event);
    }
    // Closed by Qt, the window would be no more.
    event->ignore();
    QMetaObject::invokeMethod(this, &PanelSurface::closeRequested, Qt::QueuedConnection);
    return true;
}

void ToplevelPanelSurface::takeAway() {
    forgetKeyboard();
    content().hide();
}

QPoint ToplevelPanelSurface::contentOrigin() const {
    // Where the desktop has its bars, it does not tell: those that take from the height are taken
    // to be at the top, as GNOME's is, and beside a dock on either side the panel is in the middle
    // of what that leaves.
    const QSize bars = m_outputs.geometryOf(*content().screen()).size() - content().size();
    const QPoint origin = m_place.frame.topLeft() - QPoint(bars.width() / 2, bars.height());
    // Dragged below the bar, the panel would be cut.
    return {origin.x(), std::max(origin.y(), 0)};
}

QRect ToplevelPanelSurface::panelRect() const {
    return {contentOrigin(), m_place.frame.size()};
}

} // namespace quorvantel::platform
