#include "panel/LauncherPanel.h"

#include "drawing/ContinuousCorners.h"
#include "panel/AlphaChannel.h"
#include "panel/LauncherLayout.h"
#include "panel/PanelPlacement.h"

#include <QAccessible>
#include <QCloseEvent>

#include <utility>

namespace quorvantel {

namespace {

QRegion outline(const QSize& size) {
    return continuousRoundedRegion(QRect(QPoint(), size), LauncherLayout::cornerRadius);
}

/// Makes a window what the view inside it can be created in.
QWindow& prepared(QWindow& window, const platform::PanelHost& host) {
    requestAlphaChannel(window);
    window.setFlags(host.windowFlags());
    window.setTitle(QStringLiteral("Quorvantel"));
    return window;
}

} // namespace

LauncherPanel::LauncherPanel(LauncherView* view, const platform::PanelHost& host,
                             platform::WindowBackdrop& backdrop)
    : m_backdrop(backdrop),
      m_hostingView(view, prepared(*this, host)),
      m_shadow(host.windowFlags()) {
    connect(&m_hostingView, &FirstMouseHostingView::dragged, this, [this](QPoint step) {
        setFrame(m_frame.translated(step));
        Q_EMIT dragged();
    });
    connect(view, &LauncherView::translucencyChanged, this, &LauncherPanel::fitBlur);
    // The same points are other pixels on a screen of another scale.
    connect(this, &QWindow::screenChanged, this, &LauncherPanel::fitBackdrop);
    connect(&backdrop, &platform::WindowBackdrop::changed, this, &LauncherPanel::followBackdrop);
    // The native windows exist from now on, so that showing the panel creates nothing.
    create();
    m_shadow.create();
    setFrame({0, 0, static_cast<int>(PanelPlacement::width),
              static_cast<int>(PanelPlacement::initialHeight)});
    followBackdrop();
    // Drawn once unseen, the panel has its fonts and symbols at hand when it is first summoned.
    m_hostingView.grab();
}

void LauncherPanel::setFrame(const QRect& frame) {
    const bool isResized = frame.size() != m_frame.size();
    m_frame = frame;
    setGeometry(frame);
    m_shadow.surround(frame);
    if (isResized) {
        m_hostingView.view().resize(frame.size());
        fitBackdrop();
    }
}

QAccessibleInterface* LauncherPanel::accessibleRoot() const {
    return QAccessible::queryAccessibleInterface(
        const_cast<FirstMouseHostingView*>(&m_hostingView));
}

bool LauncherPanel::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        // The toolkit tells top-level windows only, of which the view inside this one is none.
        QCoreApplication::sendEvent(&m_hostingView, event);
        if (!isVisible()) {
            m_hostingView.grab();
        }
    }
    return QWindow::event(event);
}

void LauncherPanel::closeEvent(QCloseEvent* event) {
    Q_EMIT closing();
    // A closed QWindow loses its native windows, which the next showing would miss.
    event->ignore();
}

void LauncherPanel::showEvent(QShowEvent* event) {
    m_awaitsFirstFrame = true;
    QWindow::showEvent(event);
}

void LauncherPanel::exposeEvent(QExposeEvent* event) {
    QWindow::exposeEvent(event);
    endFirstFrame();
}

void LauncherPanel::hideEvent(QHideEvent* event) {
    m_hostingView.endInteraction();
    m_shadow.hide();
    QWindow::hideEvent(event);
    endFirstFrame();
}

void LauncherPanel::endFirstFrame() {
    if (!std::exchange(m_awaitsFirstFrame, false)) {
        return;
    }
    fitShadow();
    Q_EMIT firstFrameDrawn();
}

void LauncherPanel::followBackdrop() {
    m_hostingView.view().setComposited(m_backdrop.isComposited());
    // The view says so when that changes whether it is translucent.
    m_hostingView.view().setBlurAvailable(m_backdrop.offersBlur());
    fitMask();
    fitShadow();
}

void LauncherPanel::fitBackdrop() {
    fitBlur();
    fitMask();
}

void LauncherPanel::fitMask() {
    // Without a compositor the transparent corners would be black, and a shadow that the desktop
    // casts is left out below the whole window, those corners included.
    const bool isCut = !m_backdrop.isComposited() || m_backdrop.castsShadows();
    setMask(isCut ? outline(m_frame.size()) : QRegion());
}

void LauncherPanel::fitBlur() {
    m_backdrop.setBlurBehind(*this, m_hostingView.view().isTranslucent() ? outline(m_frame.size())
                                                                         : QRegion());
}

void LauncherPanel::fitShadow() {
    // Later than the panel, which it is not to delay, and yet behind it.
    const bool isDrawn = isVisible() && !m_awaitsFirstFrame;
    const bool isWanted = isDrawn && m_backdrop.isComposited() && !m_backdrop.castsShadows();
    m_shadow.setVisible(isWanted);
    if (isWanted) {
        raise();
    }
}

} // namespace quorvantel
