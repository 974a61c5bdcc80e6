#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <vector>

namespace quorvantel::testing {

struct FreeDeleter {
    void operator()(void* reply) const { std::free(reply); }
};

/// A reply or event of the X server, freed with its owner.
template <typename T>
using XReply = std::unique_ptr<T, FreeDeleter>;

/// A client connection of the test's own, beside that of the program under test.
class XConnection {
public:
    /// Connects to a display such as ":7", by default the one that DISPLAY names. Throws
    /// std::runtime_error when there is none.
    explicit XConnection(const QByteArray& display = qgetenv("DISPLAY"));

    xcb_connection_t* get() const { return m_connection.get(); }
    const xcb_screen_t& screen() const { return *m_screen; }
    xcb_window_t root() const { return m_screen->root; }

    xcb_atom_t atom(const QByteArray& name) const;

    /// A property that holds 32-bit values; empty when it is absent or of another format.
    std::vector<std::uint32_t> property(xcb_window_t window, const QByteArray& name) const;

    /// A property that holds a text; empty when it is absent.
    QByteArray text(xcb_window_t window, const QByteArray& name) const;

    /// Sends the window manager a request about a window, as in the Extended Window Manager Hints,
    /// and returns when the server has passed it on.
    void request(xcb_window_t window, const QByteArray& name,
                 const std::array<std::uint32_t, 3>& arguments) const;

    /// Returns when the server has carried out every request of this connection.
    void synchronize() const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_screen_t* m_screen = nullptr;
};

} // namespace quorvantel::testing
