#pragma once

#include "theme/ThemedRoot.h"

#include <QLineEdit>
#include <QMenu>
#include <QPointer>

namespace quorvantel {

/// The field of the panel that the query is typed into, in the colours of the theme.
///
/// Its menu of editing commands leaves the keyboard focus alone: the field keeps it, and with it
/// the panel the keyboard.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    /// `theme` must outlive the field.
    explicit SearchField(const ThemedRoot& theme, QWidget* parent = nullptr);

    /// Closes the menu and what is open of it, if it is.
    void closeMenu();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void applyTheme();

    const ThemedRoot& m_theme;
    /// While it is open; it deletes itself then.
    QPointer<QMenu> m_menu;
};

} // namespace quorvantel
