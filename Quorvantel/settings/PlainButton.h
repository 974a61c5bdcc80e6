#pragma once

#include "settings/ThemedRoot.h"

#include <QPushButton>

namespace quorvantel {

/// A push button without a frame: its label in the accent colour, underlined under the pointer and
/// on a tinted ground while it has the keyboard focus.
class PlainButton : public QPushButton {
    Q_OBJECT

public:
    /// `theme` must outlive the button.
    PlainButton(const QString& label, const ThemedRoot& theme, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const ThemedRoot& m_theme;
};

} // namespace quorvantel
