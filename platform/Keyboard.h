#pragma once

#include <QChar>

class QKeyEvent;

namespace quorvantel::platform {

/// The user's keyboard layouts, as far as the toolkit does not tell. Main thread only.
class Keyboard {
public:
    virtual ~Keyboard() = default;

    /// The Latin character that the key of a press or a release types by itself, whichever
    /// modifiers are held with it: a comma for a French Shift+comma, whose event says "?". Where
    /// the layout has none, as a Greek one, it is that of another layout of the user's. Null for a
    /// key without any and for an event that did not come from the keyboard.
    virtual QChar baseCharacter(const QKeyEvent& event) = 0;
};

} // namespace quorvantel::platform
