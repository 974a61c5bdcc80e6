#pragma once

#include "platform/linux/DesktopPreferences.h"
#include "platform/linux/x11/X11Display.h"

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace quorvantel::platform {

/// The numbers and texts in what a settings manager offers (XSETTINGS protocol, property
/// _XSETTINGS_SETTINGS), up to where the data end or make no sense. Colours are left out.
XSettingsValues parseXSettings(const QByteArray& data);

/// What the session's settings manager tells every program (XSETTINGS protocol), now and whenever
/// it tells something else, ends or is replaced. Nothing while there is none. Main thread only.
class X11Settings : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Reads the settings, in a few round trips to the display server.
    explicit X11Settings(const X11Display& display);
    ~X11Settings() override;

    const XSettingsValues& values() const { return m_values; }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

Q_SIGNALS:
    void changed();

private:
    void followManager(xcb_window_t manager);
    void setValues(const XSettingsValues& values);
    XSettingsValues read() const;

    X11Display m_display;
    xcb_atom_t m_managerSelection;
    xcb_atom_t m_settings;
    /// 0 when the server cannot tell who manages the settings.
    std::uint8_t m_selectionEvent = 0;
    xcb_window_t m_manager = XCB_WINDOW_NONE;
    XSettingsValues m_values;
};

} // namespace quorvantel::platform
