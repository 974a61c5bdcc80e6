#pragma once

#include "platform/linux/SettingsManager.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"
#include "platform/linux/x11/X11Selection.h"

namespace quorvantel::platform {

/// The numbers and texts in what a settings manager offers (XSETTINGS protocol, property
/// _XSETTINGS_SETTINGS), up to where the data end or make no sense. Colours are left out.
XSettingsValues parseXSettings(const QByteArray& data);

/// The settings manager of an X session.
class X11Settings : public SettingsManager, public X11EventHandler {
    Q_OBJECT

public:
    /// Reads the settings, in a few round trips to the display server.
    X11Settings(const X11Display& display, X11EventDispatcher& events);

    const XSettingsValues& values() const override { return m_values; }

    bool handleEvent(const xcb_generic_event_t& event) override;

private:
    void followManager(xcb_window_t manager);
    void setValues(const XSettingsValues& values);
    XSettingsValues read() const;

    X11Display m_display;
    X11Selection m_managerSelection;
    xcb_atom_t m_settings;
    xcb_window_t m_manager = XCB_WINDOW_NONE;
    XSettingsValues m_values;
};

} // namespace quorvantel::platform
