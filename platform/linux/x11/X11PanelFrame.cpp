#include "platform/linux/x11/X11PanelFrame.h"

#include "platform/linux/x11/AlphaChannel.h"

#include <QCloseEvent>
#include <QCoreApplication>

namespace quorvantel::platform {

X11PanelFrame::X11PanelFrame(QWindow& content) : m_content(content) {
    requestAlphaChannel(*this);
    setFlags(content.flags());
    setTitle(content.title());
    // The native window exists from now on, so that showing the panel creates nothing.
    create();
    content.setParent(this);
}

X11PanelFrame::~X11PanelFrame() {
    m_content.hide();
    m_content.setParent(nullptr);
}

bool X11PanelFrame::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        // The toolkit tells top-level windows only, of which the one inside this one is none.
        QCoreApplication::sendEvent(&m_content, event);
    }
    return QWindow::event(event);
}

void X11PanelFrame::closeEvent(QCloseEvent* event) {
    Q_EMIT closing();
    // A closed QWindow loses its native windows, which the next showing would miss.
    event->ignore();
}

void X11PanelFrame::exposeEvent(QExposeEvent* event) {
    QWindow::exposeEvent(event);
    Q_EMIT exposed();
}

} // namespace quorvantel::platform
