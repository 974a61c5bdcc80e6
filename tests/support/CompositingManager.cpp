#include "support/CompositingManager.h"

namespace quorvantel::testing {
namespace {

constexpr auto blurRegion = "_KDE_NET_WM_BLUR_BEHIND_REGION";

} // namespace

CompositingManager::CompositingManager(const QByteArray& display) : m_connection(display) {
    const xcb_window_t window = xcb_generate_id(m_connection.get());
    xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, window, m_connection.root(), 0, 0,
                      1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(m_connection.get(), window, m_connection.atom("_NET_WM_CM_S0"),
                            XCB_CURRENT_TIME);
    m_connection.synchronize();
}

void CompositingManager::offerBlur() {
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_connection.root(),
                        m_connection.atom(blurRegion), XCB_ATOM_CARDINAL, 32, 0, nullptr);
    m_connection.synchronize();
}

void CompositingManager::withdrawBlur() {
    xcb_delete_property(m_connection.get(), m_connection.root(), m_connection.atom(blurRegion));
    m_connection.synchronize();
}

} // namespace quorvantel::testing
