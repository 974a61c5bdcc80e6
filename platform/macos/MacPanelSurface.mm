#include "platform/macos/MacPanelSurface.h"

#include "platform/macos/CoreFoundationPointers.h"
#include "platform/macos/NativeWindows.h"
#include "platform/macos/NotificationObserver.h"
#import "platform/macos/PanelContentView.h"
#import "platform/macos/PanelWindow.h"
#include "platform/macos/ScreenPlane.h"
#include "shapes/ContinuousCorners.h"

#include <QCoreApplication>
#include <QEvent>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace quorvantel::platform {

namespace {

/// The panel's outline as a picture that can be stretched to any size.
NSImage* outlineImage(int cornerRadius) {
    // The curves of continuous corners begin further from the corner than at the radius.
    const int cap = 2 * cornerRadius;
    const int size = 2 * cap + 1;
    constexpr int scale = 2;
    QImage drawing(QSize(size, size) * scale, QImage::Format_ARGB32_Premultiplied);
    drawing.setDevicePixelRatio(scale);
    drawing.fill(Qt::transparent);
    QPainter painter(&drawing);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRoundedRect(QRectF(0, 0, size, size), cornerRadius), Qt::black);
    painter.end();
    const CoreFoundationPointer<CGImageRef> pixels(drawing.toCGImage());
    NSImage* image = [[NSImage alloc] initWithCGImage:pixels.get() size:NSMakeSize(size, size)];
    image.capInsets = NSEdgeInsetsMake(cap, cap, cap, cap);
    image.resizingMode = NSImageResizingModeStretch;
    return image;
}

/// Takes the toolkit's view out of the window that the toolkit made for it, which stays empty and
/// is never shown.
NSView* freeView(QWindow& window) {
    NSView* view = nativeView(window);
    view.window.contentView = nil;
    return view;
}

} // namespace

struct MacPanelSurface::Native {
    NSView* toolkitView;
    QuorvantelPanelContentView* contentView;
    QuorvantelPanelWindow* window;
    NotificationObserver keyLoss;
};

MacPanelSurface::MacPanelSurface(const PanelContent& content, const Screens& screens)
    : m_content(content.window), m_screens(screens) {
    NSView* toolkitView = freeView(m_content);
    const QPointer<QWindow> left(&m_content);
    auto* const contentView = [[QuorvantelPanelContentView alloc]
        initWithToolkitView:toolkitView
                    outline:outlineImage(content.cornerRadius)
                onMouseExit:^{
                  QEvent leaving(QEvent::Leave);
                  if (left) {
                      QCoreApplication::sendEvent(left, &leaving);
                  }
                }];
    auto* const window = [[QuorvantelPanelWindow alloc]
        initWithSize:NSMakeSize(content.largestSize.width(), content.largestSize.height())];
    window.contentView = contentView;
    window.title = m_content.title().toNSString();
    m_native.reset(new Native{toolkitView,
                              contentView,
                              window,
                              {NSNotificationCenter.defaultCenter, NSWindowDidResignKeyNotification,
                               window, [this] { loseKeyboard(); }}});
    m_content.installEventFilter(this);
    // For good, since the system's window alone is shown and hidden.
    m_content.show();
    // The toolkit gave the view the size that it last knew.
    toolkitView.frame = contentView.bounds;
}

MacPanelSurface::~MacPanelSurface() {
    releaseKeyboard();
    m_content.hide();
    [m_native->toolkitView removeFromSuperview];
}

void MacPanelSurface::setPlace(const PanelPlace& place) {
    auto screen = place.screen ? screenWithId(*place.screen, m_screens.all()) : std::nullopt;
    if (!screen) {
        screen = m_screens.target();
    }
    if (screen) {
        m_isShadowStale = true;
        // Drawn with the next frame, once what is in the panel has been laid out for the size.
        [m_native->window setFrame:frameOnScreen(place.frame, *screen).toCGRect() display:NO];
    }
}

void MacPanelSurface::show() {
    m_awaitsFirstFrame = m_awaitsFirstFrame || !m_isVisible;
    m_isVisible = true;
    m_isShadowStale = true;
    QuorvantelPanelWindow* window = m_native->window;
    // Nothing of a hidden application shows, and "Hide Others" in another one hides it, too.
    if (NSApp.hidden) {
        [NSApp unhideWithoutActivation];
    }
    // Unlike the usual ways of showing a window, this one does without an active application.
    [window orderFrontRegardless];
    [window makeKeyWindow];
    [window makeFirstResponder:m_native->toolkitView];
    m_hasKeyboard = true;
    // Exposed or not, the first frame comes with it.
    m_content.requestUpdate();
}

void MacPanelSurface::hide() {
    releaseKeyboard();
    m_isVisible = false;
    endFirstFrame();
}

void MacPanelSurface::releaseKeyboard() {
    m_hasKeyboard = false;
    [m_native->window orderOut:nil];
    // The view becomes it anew at the next showing, which tells the toolkit.
    [m_native->window makeFirstResponder:nil];
}

void MacPanelSurface::setBlurBehind(bool isBlurred) {
    m_native->contentView.blurred = isBlurred;
    m_isShadowStale = true;
}

QPointF MacPanelSurface::position(const QMouseEvent& event) const {
    return event.globalPosition();
}

std::optional<QPointF> MacPanelSurface::mousePosition() const {
    NSScreen* first = NSScreen.screens.firstObject;
    if (first == nil) {
        return std::nullopt;
    }
    return turnedOver(QPointF::fromCGPoint(NSEvent.mouseLocation), NSHeight(first.frame));
}

bool MacPanelSurface::eventFilter(QObject* content, QEvent* event) {
    const bool isDrawing = (event->type() == QEvent::Expose && m_content.isExposed()) ||
                           event->type() == QEvent::UpdateRequest;
    if (m_isVisible && isDrawing) {
        frameDrawn();
    }
    return PanelSurface::eventFilter(content, event);
}

void MacPanelSurface::loseKeyboard() {
    if (std::exchange(m_hasKeyboard, false)) {
        Q_EMIT keyboardLost();
    }
}

void MacPanelSurface::frameDrawn() {
    if (std::exchange(m_isShadowStale, false)) {
        // The system takes it from what was drawn last, which is yet to be.
        QMetaObject::invokeMethod(
            this, [this] { [m_native->window invalidateShadow]; }, Qt::QueuedConnection);
    }
    endFirstFrame();
}

void MacPanelSurface::endFirstFrame() {
    if (std::exchange(m_awaitsFirstFrame, false)) {
        Q_EMIT firstFrameDrawn();
    }
}

} // namespace quorvantel::platform
