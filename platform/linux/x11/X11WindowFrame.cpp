#include "platform/linux/x11/X11WindowFrame.h"

#include <QFile>
#include <QStandardPaths>
#include <QWindow>

namespace quorvantel::platform {

namespace {

QByteArray themeVariant(WindowFrame::Appearance appearance) {
    switch (appearance) {
    case WindowFrame::Appearance::System:
        return {};
    case WindowFrame::Appearance::Light:
        return QByteArrayLiteral("light");
    case WindowFrame::Appearance::Dark:
        return QByteArrayLiteral("dark");
    }
    Q_UNREACHABLE();
}

/// Empty for the colours that the user chose, and where the scheme is not installed.
QByteArray colorSchemeFile(WindowFrame::Appearance appearance) {
    if (appearance == WindowFrame::Appearance::System) {
        return {};
    }
    const QString name = appearance == WindowFrame::Appearance::Dark
                             ? QStringLiteral("color-schemes/BreezeDark.colors")
                             : QStringLiteral("color-schemes/BreezeLight.colors");
    return QFile::encodeName(QStandardPaths::locate(QStandardPaths::GenericDataLocation, name));
}

} // namespace

X11WindowFrame::X11WindowFrame(const X11Display& display)
    : m_display(display),
      m_utf8(display.atom("UTF8_STRING")),
      m_themeVariant(display.atom("_GTK_THEME_VARIANT")),
      m_colorScheme(display.atom("_KDE_NET_WM_COLOR_SCHEME")) {}

void X11WindowFrame::setAppearance(QWindow& window, Appearance appearance) {
    const auto id = static_cast<xcb_window_t>(window.winId());
    setText(id, m_themeVariant, m_utf8, themeVariant(appearance));
    setText(id, m_colorScheme, XCB_ATOM_STRING, colorSchemeFile(appearance));
    xcb_flush(m_display.connection);
}

void X11WindowFrame::setText(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                             const QByteArray& text) const {
    constexpr std::uint8_t bitsOfAByte = 8;
    if (text.isEmpty()) {
        xcb_delete_property(m_display.connection, window, property);
    } else {
        xcb_change_property(m_display.connection, XCB_PROP_MODE_REPLACE, window, property, type,
                            bitsOfAByte, static_cast<std::uint32_t>(text.size()), text.constData());
    }
}

} // namespace quorvantel::platform
