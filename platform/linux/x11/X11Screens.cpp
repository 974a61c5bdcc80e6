#include "platform/linux/x11/X11Screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <array>
#include <span>

namespace quorvantel::platform {

namespace {

/// The property holds the four depths and then a start and an end for each.
constexpr std::uint32_t strutLength = 12;

constexpr std::array strutEdges{Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge};

std::span<const std::uint32_t> cardinals(const xcb_get_property_reply_t* reply) {
    if (reply == nullptr || reply->format != 32) {
        return {};
    }
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply)), reply->value_len};
}

/// Qt leaves the corner of a screen where it is in pixels and scales its size.
QRect pixelGeometry(const QScreen& screen) {
    const QRect points = screen.geometry();
    return {points.topLeft(), points.size() * screen.devicePixelRatio()};
}

} // namespace

X11Screens::X11Screens(const X11Display& display, X11EventDispatcher& events)
    : X11EventHandler(events, X11EventRank::Observer),
      m_display(display),
      m_clientList(display.atom("_NET_CLIENT_LIST")),
      m_workArea(display.atom("_NET_WORKAREA")),
      m_strutPartial(display.atom("_NET_WM_STRUT_PARTIAL")) {}

bool X11Screens::handleEvent(const xcb_generic_event_t& event) {
    if (typeOf(event) == XCB_PROPERTY_NOTIFY) {
        const auto& property = eventAs<xcb_property_notify_event_t>(event);
        const bool isRelevant = property.atom == m_clientList || property.atom == m_workArea;
        if (property.window == m_display.root && isRelevant) {
            m_struts.reset();
            mayHaveChanged();
        }
    }
    return false;
}

QRect X11Screens::visibleGeometry(const QScreen& screen) const {
    QRect desktop;
    for (const QScreen* const other : QGuiApplication::screens()) {
        desktop |= pixelGeometry(*other);
    }
    const QRect pixels = pixelGeometry(screen);
    const QRect visible = unreservedPart(pixels, desktop.size(), struts());
    const qreal scale = screen.devicePixelRatio();
    const QRectF points(pixels.topLeft() + (visible.topLeft() - pixels.topLeft()) / scale,
                        QSizeF(visible.size()) / scale);
    // On a single screen the work area holds as well what a desktop reserves by other means.
    const bool isSingle = QGuiApplication::screens().size() == 1;
    return isSingle ? points.toAlignedRect() & screen.availableGeometry() : points.toAlignedRect();
}

const std::vector<Strut>& X11Screens::struts() const {
    if (!m_struts) {
        m_struts = readStruts();
    }
    return *m_struts;
}

std::vector<Strut> X11Screens::readStruts() const {
    std::vector<xcb_get_property_cookie_t> cookies;
    for (const xcb_window_t window : m_display.property(m_display.root, m_clientList)) {
        cookies.push_back(xcb_get_property(m_display.connection, 0, window, m_strutPartial,
                                           XCB_ATOM_CARDINAL, 0, strutLength));
    }
    std::vector<Strut> struts;
    for (const xcb_get_property_cookie_t cookie : cookies) {
        const XcbPointer<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(m_display.connection, cookie, nullptr));
        const auto values = cardinals(reply.get());
        if (values.size() < strutLength) {
            continue;
        }
        for (std::size_t index = 0; index < strutEdges.size(); ++index) {
            const std::size_t range = strutEdges.size() + 2 * index;
            if (values[index] != 0) {
                struts.push_back({strutEdges[index], static_cast<int>(values[index]),
                                  static_cast<int>(values[range]),
                                  static_cast<int>(values[range + 1])});
            }
        }
    }
    return struts;
}

} // namespace quorvantel::platform
