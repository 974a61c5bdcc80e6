#pragma once

#include "help/TopicView.h"

#include <QAccessibleWidget>
#include <QPointer>

#include <vector>

namespace quorvantel::help {

/// The part of a `TopicView` that shows the text, as assistive technology meets it: it holds the
/// pictures, which in the text itself are characters without a name.
class TopicPageAccessible : public QAccessibleWidget {
public:
    explicit TopicPageAccessible(TopicView& view);
    ~TopicPageAccessible() override;

    /// Has every view that exists and will exist name its pictures. More calls change nothing.
    static void install();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    const std::vector<QAccessible::Id>& pictures() const;
    void dropPictures() const;

    TopicView& m_view;
    /// Those of `m_document`.
    mutable std::vector<QAccessible::Id> m_pictures;
    mutable QPointer<QTextDocument> m_document;
};

} // namespace quorvantel::help
