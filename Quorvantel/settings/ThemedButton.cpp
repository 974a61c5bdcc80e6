#include "settings/ThemedButton.h"

#include <QKeyEvent>

namespace quorvantel {

ThemedButton::ThemedButton(const QString& label, const ThemedRoot& theme, QWidget* parent)
    : QPushButton(label, parent), m_theme(theme) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAutoDefault(true); // Return presses it as well as Space.
    connect(&theme, &ThemedRoot::themeChanged, this, qOverload<>(&QWidget::update));
}

void ThemedButton::keyPressEvent(QKeyEvent* event) {
    if ((event->modifiers() & ~Qt::KeypadModifier) != 0) {
        event->ignore();
        return;
    }
    QPushButton::keyPressEvent(event);
}

} // namespace quorvantel
