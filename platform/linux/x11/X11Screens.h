#pragma once

#include "platform/linux/gui/QtScreens.h"
#include "platform/linux/x11/Strut.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"

#include <optional>
#include <vector>

namespace quorvantel::platform {

/// The screens of an X desktop, each without the bars and docks on it. The desktop's own work area
/// is one rectangle for all screens together and useless on more than one, so the windows' struts
/// are read instead; again only after the window manager changed its list of windows or the work
/// area.
class X11Screens : public QtScreens, public X11EventHandler {
    Q_OBJECT

public:
    X11Screens(const X11Display& display, X11EventDispatcher& events);

    bool handleEvent(const xcb_generic_event_t& event) override;

protected:
    QRect visibleGeometry(const QScreen& screen) const override;

private:
    const std::vector<Strut>& struts() const;
    std::vector<Strut> readStruts() const;

    X11Display m_display;
    xcb_atom_t m_clientList;
    xcb_atom_t m_workArea;
    xcb_atom_t m_strutPartial;
    /// Absent while they have to be read.
    mutable std::optional<std::vector<Strut>> m_struts;
};

} // namespace quorvantel::platform
