#include "platform/linux/wayland/ToplevelPanelSurface.h"

#include <QScreen>
#include <QWindow>

namespace quorvantel::platform {

ToplevelPanelSurface::ToplevelPanelSurface(const PanelContent& content,
                                           const WaylandConnection& connection)
    : WaylandPanelSurface(content, connection) {
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

void ToplevelPanelSurface::takeAway() {
    forgetKeyboard();
    content().hide();
}

QPoint ToplevelPanelSurface::contentOrigin() const {
    // The bars, if any, are taken to be at the top, as GNOME's is.
    const int barHeight = content().screen()->geometry().height() - content().height();
    return m_place.frame.topLeft() - QPoint(0, barHeight);
}

QRect ToplevelPanelSurface::panelRect() const {
    return {contentOrigin(), m_place.frame.size()};
}

} // namespace quorvantel::platform
