#include "panel/SearchField.h"

#include "theme/ControlPalette.h"
#include "theme/InterfaceFont.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QRegularExpression>
#include <QValidator>

#include <algorithm>

namespace quorvantel {

namespace {

constexpr int fontSize = 18;

/// Whether a character other than the plain space looks like one: a line break, a tab, a special
/// space of Unicode.
bool isSpecialSpace(QChar character) {
    return character != u' ' &&
           (character.isSpace() || character.category() == QChar::Other_Control);
}

/// The text as one line with plain spaces, which is how it looks: a run of special spaces is a
/// single plain one, with the plain spaces around it.
QString onOneLine(QString text) {
    static const QRegularExpression runs(QStringLiteral("(?<! ) *+[\\p{Z}\\p{Cc}]++"));
    return text.replace(runs, QStringLiteral(" "));
}

/// Accepts every text, but on one line. However a text comes into a field, by a key, the clipboard,
/// a drop or an input method, the field asks its validator before it tells anybody.
class LineJoiner : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& input, int& cursor) const override {
        if (std::ranges::none_of(input, isSpecialSpace)) {
            return Acceptable;
        }
        const QString before = onOneLine(input.first(cursor));
        input = onOneLine(input);
        cursor = static_cast<int>(std::min(before.size(), input.size()));
        return Acceptable;
    }
};

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
    // Beside the caret there is nothing to tell apart: it is the only field.
    setAttribute(Qt::WA_MacShowFocusRect, false);
    setValidator(new LineJoiner(this));
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
