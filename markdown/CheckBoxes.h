#pragma once

#include <QObject>
#include <QTextObjectInterface>

namespace quorvantel::markdown {

/// Draws the boxes of a task list's items in the colour of their text: empty, or filled with a
/// tick.
class CheckBoxes : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// The type of a box's character in the document.
    static constexpr int objectType = QTextFormat::UserObject + 2;

    /// The width of a box and the space behind it, relative to the height of its font.
    static constexpr double advance = 1.5;

    using QObject::QObject;

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;
};

} // namespace quorvantel::markdown
