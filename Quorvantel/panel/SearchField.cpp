#include "panel/SearchField.h"

#include "settings/ControlPalette.h"
#include "settings/InterfaceFont.h"

#include <QAction>
#include <QContextMenuEvent>

namespace quorvantel {

namespace {

constexpr int fontSize = 18;

/// The colours of a menu, which stands out from the panel.
QPalette menuPalette(const ResolvedTheme& theme) {
    QPalette palette = controlPalette(theme);
    // Styles differ in which of them is the ground of a menu.
    for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base}) {
        palette.setColor(ground, theme.elevatedBackground.toQColor());
    }
    return palette;
}

} // namespace

SearchField::SearchField(const ThemedRoot& theme, QWidget* parent)
    : QLineEdit(parent), m_theme(theme) {
    setFrame(false);
    setFont(interfaceFont(fontSize));
    setPlaceholderText(QStringLiteral("Search apps and settings…"));
    setAccessibleName(placeholderText());
    connect(&theme, &ThemedRoot::themeChanged, this, &SearchField::applyTheme);
    applyTheme();
}

void SearchField::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* const menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // Qt accepts only a top-level window as the owner of a menu's, which the panel's content is
    // not.
    menu->setParent(nullptr, menu->windowFlags());
    // A menu that took the focus would have Qt ask the window system for it when it closes.
    menu->setFocusProxy(this);
    // Of itself a menu has the colours of the desktop.
    menu->setPalette(menuPalette(m_theme.theme()));
    const QList<QAction*> actions = menu->actions();
    for (QAction* const action : actions) {
        action->setIconVisibleInMenu(false);
    }
    m_menu = menu;
    menu->popup(event->globalPos());
}

void SearchField::closeMenu() {
    if (m_menu) {
        m_menu->close();
    }
}

void SearchField::applyTheme() {
    QPalette palette = controlPalette(m_theme.theme());
    palette.setColor(QPalette::Base, Qt::transparent);
    setPalette(palette);
}

} // namespace quorvantel
