#pragma once

#include "platform/linux/gui/PanelShadow.h"

#include <QRasterWindow>

namespace quorvantel::platform {

/// The window of the panel's shadow: behind the panel, taking no clicks. A window apart keeps the
/// panel's own frame exact; it only makes sense on a composited desktop.
class X11PanelShadow : public QRasterWindow {
    Q_OBJECT

public:
    /// `flags` are those of the panel's window.
    X11PanelShadow(Qt::WindowFlags flags, int cornerRadius);

    /// Surrounds a panel with this window geometry.
    void surround(const QRect& panel);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PanelShadow m_shadow;
};

} // namespace quorvantel::platform
