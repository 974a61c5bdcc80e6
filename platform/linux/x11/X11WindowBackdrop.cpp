#include "platform/linux/x11/X11WindowBackdrop.h"

#include <QRegion>
#include <QWindow>

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

namespace quorvantel::platform {

std::vector<std::uint32_t> blurRegionInPixels(const QRegion& region, qreal scale) {
    std::vector<std::uint32_t> pixels;
    for (const QRect& rectangle : region) {
        // Of the edges and not of the sizes, so that what meets in points meets in pixels.
        const int left = qRound(rectangle.x() * scale);
        const int top = qRound(rectangle.y() * scale);
        const int right = qRound((rectangle.x() + rectangle.width()) * scale);
        const int bottom = qRound((rectangle.y() + rectangle.height()) * scale);
        for (const int value : {left, top, right - left, bottom - top}) {
            pixels.push_back(static_cast<std::uint32_t>(value));
        }
    }
    return pixels;
}

X11WindowBackdrop::X11WindowBackdrop(const X11Display& display, X11EventDispatcher& events)
    // Extended Window Manager Hints: the compositing manager of the screen owns this selection.
    : X11EventHandler(events, X11EventRank::Observer),
      m_display(display),
      m_managerSelection(display, "_NET_WM_CM_S0"),
      m_blurRegion(display.atom("_KDE_NET_WM_BLUR_BEHIND_REGION")) {
    m_state = stateNow();
}

void X11WindowBackdrop::setBlurBehind(QWindow& window, const QRegion& region) {
    const auto id = static_cast<xcb_window_t>(window.winId());
    std::vector<std::uint32_t> pixels = blurRegionInPixels(region, window.devicePixelRatio());
    std::vector<std::uint32_t>& known = m_blurRegions[id];
    if (pixels == known) {
        return;
    }
    known = std::move(pixels);
    if (known.empty()) {
        xcb_delete_property(m_display.connection, id, m_blurRegion);
    } else {
        xcb_change_property(m_display.connection, XCB_PROP_MODE_REPLACE, id, m_blurRegion,
                            XCB_ATOM_CARDINAL, 32, static_cast<std::uint32_t>(known.size()),
                            known.data());
    }
}

bool X11WindowBackdrop::handleEvent(const xcb_generic_event_t& event) {
    if (typeOf(event) == XCB_PROPERTY_NOTIFY) {
        handleProperty(eventAs<xcb_property_notify_event_t>(event));
    } else if (const auto manager = m_managerSelection.newOwner(event)) {
        State state = m_state;
        setManager(state, *manager);
        setState(state);
    }
    return false;
}

void X11WindowBackdrop::handleProperty(const xcb_property_notify_event_t& event) {
    if (event.window != m_display.root || event.atom != m_blurRegion) {
        return;
    }
    State state = m_state;
    state.blursOnRequest = event.state == XCB_PROPERTY_NEW_VALUE;
    setState(state);
}

void X11WindowBackdrop::setManager(State& state, xcb_window_t manager) const {
    state.isComposited = manager != XCB_WINDOW_NONE;
    state.isPicom = state.isComposited && isPicom(manager);
}

X11WindowBackdrop::State X11WindowBackdrop::stateNow() const {
    State state;
    setManager(state, m_managerSelection.owner());
    const XcbPointer<xcb_list_properties_reply_t> list(xcb_list_properties_reply(
        m_display.connection, xcb_list_properties(m_display.connection, m_display.root), nullptr));
    if (list) {
        const std::span properties(xcb_list_properties_atoms(list.get()), list->atoms_len);
        state.blursOnRequest = std::ranges::find(properties, m_blurRegion) != properties.end();
    }
    return state;
}

bool X11WindowBackdrop::isPicom(xcb_window_t manager) const {
    constexpr std::uint32_t maximumLength = 16;
    const XcbPointer<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_display.connection,
                               xcb_get_property(m_display.connection, 0, manager, XCB_ATOM_WM_NAME,
                                                XCB_ATOM_STRING, 0, maximumLength),
                               nullptr));
    if (!reply) {
        return false;
    }
    const std::string_view name(
        static_cast<const char*>(xcb_get_property_value(reply.get())),
        static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
    return name == "picom";
}

void X11WindowBackdrop::setState(const State& state) {
    if (std::exchange(m_state, state) != state) {
        Q_EMIT changed();
    }
}

} // namespace quorvantel::platform
