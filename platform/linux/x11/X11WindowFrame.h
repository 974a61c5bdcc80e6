#pragma once

#include "platform/WindowFrame.h"
#include "platform/linux/x11/X11Display.h"

#include <QByteArray>

namespace quorvantel::platform {

/// Tells window managers by the two properties that they know: `_GTK_THEME_VARIANT`, a variant of
/// their theme, and `_KDE_NET_WM_COLOR_SCHEME`, the file with the colours of one, which is named
/// only where KDE's own schemes are installed.
class X11WindowFrame : public WindowFrame {
public:
    explicit X11WindowFrame(const X11Display& display);

    void setAppearance(QWindow& window, Appearance appearance) override;

private:
    /// Removes the property when there is no text for it.
    void setText(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                 const QByteArray& text) const;

    X11Display m_display;
    xcb_atom_t m_utf8;
    xcb_atom_t m_themeVariant;
    xcb_atom_t m_colorScheme;
};

} // namespace quorvantel::platform
