#include "help/PictureAccessible.h"

#include <QWindow>

namespace quorvantel::help {

PictureAccessible::PictureAccessible(TopicView& view, const QTextCursor& picture)
    : m_view(view), m_picture(picture) {}

bool PictureAccessible::isValid() const {
    return !m_picture.isNull() && m_picture.document() == m_view.document();
}

QWindow* PictureAccessible::window() const {
    return m_view.window()->windowHandle();
}

QAccessibleInterface* PictureAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(m_view.viewport());
}

QString PictureAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name
               ? m_picture.charFormat().stringProperty(QTextFormat::ImageAltText)
               : QString();
}

QRect PictureAccessible::rect() const {
    const QRect place = frame();
    return {m_view.viewport()->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State PictureAccessible::state() const {
    QAccessible::State state;
    state.invisible = !m_view.isVisible();
    state.offscreen = !m_view.viewport()->rect().intersects(frame());
    return state;
}

QRect PictureAccessible::frame() const {
    QTextCursor before = m_picture;
    before.setPosition(m_picture.selectionStart());
    // Less the caret that would stand behind it.
    return m_view.cursorRect(before)
        .united(m_view.cursorRect(m_picture))
        .adjusted(0, 0, -m_view.cursorWidth(), 0);
}

} // namespace quorvantel::help
