#include "platform/linux/x11/X11PanelSurface.h"

#include "platform/linux/gui/QtScreens.h"
#include "shapes/ContinuousCorners.h"

#include <QCursor>
#include <QMouseEvent>

#include <utility>

namespace quorvantel::platform {

X11PanelSurface::X11PanelSurface(const PanelContent& content, X11PanelKeyboard& keyboard,
                                 X11WindowBackdrop& backdrop)
    : m_content(content.window),
      m_cornerRadius(content.cornerRadius),
      m_keyboard(keyboard),
      m_backdrop(backdrop),
      m_frame(content.window),
      m_shadow(content.window.flags(), content.cornerRadius) {
    const QRect whole(QPoint(), content.largestSize);
    m_content.setGeometry(whole);
    m_content.show();
    // The same points are other pixels on a screen of another scale.
    connect(&m_content, &QWindow::screenChanged, this,
            [this, whole] { m_content.setGeometry(whole); });
    connect(&m_frame, &QWindow::screenChanged, this, &X11PanelSurface::fitOutline);
    connect(&m_frame, &X11PanelFrame::exposed, this, &X11PanelSurface::endFirstFrame);
    connect(&m_frame, &X11PanelFrame::closing, this, &PanelSurface::closeRequested);
    connect(&backdrop, &X11WindowBackdrop::changed, this, &X11PanelSurface::followBackdrop);
}

X11PanelSurface::~X11PanelSurface() {
    releaseKeyboard();
}

void X11PanelSurface::setPlace(const PanelPlace& place) {
    const QRect geometry = place.frame.translated(topLeftOf(place.screen));
    const bool isResized = geometry.size() != m_geometry.size();
    m_geometry = geometry;
    m_frame.setGeometry(geometry);
    m_shadow.surround(geometry);
    if (isResized) {
        fitOutline();
    }
}

void X11PanelSurface::show() {
    m_awaitsFirstFrame = m_awaitsFirstFrame || !isVisible();
    m_frame.show();
    m_frame.raise();
    m_keyboard.take(m_content, [this] { Q_EMIT closeRequested(); });
}

void X11PanelSurface::hide() {
    releaseKeyboard();
    m_frame.hide();
    m_shadow.hide();
    endFirstFrame();
}

void X11PanelSurface::endFirstFrame() {
    if (std::exchange(m_awaitsFirstFrame, false)) {
        fitShadow();
        Q_EMIT firstFrameDrawn();
    }
}

void X11PanelSurface::followBackdrop() {
    Q_EMIT backdropChanged();
    fitMask();
    fitShadow();
}

void X11PanelSurface::fitOutline() {
    fitBlur();
    fitMask();
}

void X11PanelSurface::fitMask() {
    // Without a compositor the transparent corners would be black, and a shadow that the desktop
    // casts is left out below the whole window, those corners included.
    const bool isCut = !m_backdrop.isComposited() || m_backdrop.castsShadows();
    m_frame.setMask(isCut ? outline() : QRegion());
}

void X11PanelSurface::setBlurBehind(bool isBlurred) {
    m_isBlurred = isBlurred;
    fitBlur();
}

void X11PanelSurface::fitBlur() {
    m_backdrop.setBlurBehind(m_frame, m_isBlurred ? outline() : QRegion());
}

void X11PanelSurface::fitShadow() {
    // Later than the panel, which it is not to delay, and yet behind it.
    const bool isDrawn = isVisible() && !m_awaitsFirstFrame;
    const bool isWanted = isDrawn && m_backdrop.isComposited() && !m_backdrop.castsShadows();
    m_shadow.setVisible(isWanted);
    if (isWanted) {
        m_frame.raise();
    }
}

QRegion X11PanelSurface::outline() const {
    return continuousRoundedRegion(QRect(QPoint(), m_geometry.size()), m_cornerRadius);
}

QPointF X11PanelSurface::position(const QMouseEvent& event) const {
    return event.globalPosition();
}

std::optional<QPointF> X11PanelSurface::mousePosition() const {
    return QCursor::pos();
}

} // namespace quorvantel::platform
