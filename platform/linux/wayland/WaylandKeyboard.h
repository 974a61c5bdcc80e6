#pragma once

#include "platform/Keyboard.h"
#include "platform/linux/keyboard/Keymap.h"
#include "platform/linux/wayland/WaylandConnection.h"

#include <QObject>

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvantel::platform {

/// The user's keyboard, for what the toolkit keeps to itself: its key map.
class WaylandKeyboard : public QObject, public Keyboard {
    Q_OBJECT

public:
    /// The connection must outlive the object. The key map arrives by the event loop.
    explicit WaylandKeyboard(const WaylandConnection& connection);

    /// Absent until the compositor tells it; that of a US keyboard when it tells none that can be
    /// read.
    const std::optional<Keymap>& keymap() const { return m_keymap; }

    QChar baseCharacter(const QKeyEvent& event) override;

    /// The surface of the launcher's that has the keyboard; null when none has it.
    const wl_surface* focus() const { return m_focus; }

    /// Null when the compositor has none.
    wl_seat* seat() const { return m_seat.get(); }

Q_SIGNALS:
    void keymapChanged();

    /// A surface of the launcher's got the keyboard while the keys of these letters and digits were
    /// down already, in no order.
    void entered(const QString& held);

private:
    void setPresent(bool isPresent);
    void read(std::uint32_t format, int file, std::uint32_t size);
    void setLayout(unsigned int layout);

    WaylandPointer<wl_seat> m_seat;
    WaylandPointer<wl_keyboard> m_keyboard;
    std::optional<Keymap> m_keymap;
    /// The number of the layout in force.
    unsigned int m_layout = 0;
    const wl_surface* m_focus = nullptr;
    /// The kernel's codes of the keys that were down when the surface got the keyboard, until the
    /// layout in force is told.
    std::optional<std::vector<std::uint32_t>> m_heldKeys;
};

} // namespace quorvantel::platform
