#pragma once

#include "help/TopicView.h"

#include <QAccessibleInterface>
#include <QTextCursor>

namespace quorvantel::help {

/// A picture in a topic as assistive technology meets it, named by its description.
///
/// It is no longer valid once its topic is not shown. Owned by Qt's registry of such objects, where
/// `TopicPageAccessible` enters and deletes it.
class PictureAccessible : public QAccessibleInterface {
public:
    /// `picture` selects the picture's character in the document of `view`, which must outlive it.
    PictureAccessible(TopicView& view, const QTextCursor& picture);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Graphic; }
    QAccessible::State state() const override;

private:
    /// In the coordinates of the view's viewport.
    QRect frame() const;

    TopicView& m_view;
    QTextCursor m_picture;
};

} // namespace quorvantel::help
