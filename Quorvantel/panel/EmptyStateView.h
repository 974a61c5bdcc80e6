#pragma once

#include <QWidget>

namespace quorvantel {

/// The place below the search field that says that a query finds nothing. The launcher view draws
/// it; this widget is what assistive technology finds and speaks there.
class EmptyStateView : public QWidget {
    Q_OBJECT

public:
    explicit EmptyStateView(QWidget* parent = nullptr);

    static QString text();
};

} // namespace quorvantel
