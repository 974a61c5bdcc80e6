#pragma once

#include "settings/ThemedButton.h"

namespace quorvantel {

/// A push button without a frame: its label in the accent colour, underlined under the pointer and
/// on a tinted ground while it is pressed or has the keyboard focus.
class PlainButton : public ThemedButton {
    Q_OBJECT

public:
    /// `theme` must outlive the button.
    PlainButton(const QString& label, const ThemedRoot& theme, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvantel
