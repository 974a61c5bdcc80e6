#pragma once

#include "e2e/AccessibleObject.h"

#include <QString>
#include <QStringList>

#include <atspi/atspi.h>

#include <memory>
#include <optional>

namespace quorvantel::testing {

/// Assistive technology on a session bus: a client of AT-SPI, through the library that screen
/// readers use. It finds the objects that an application offers and hears of what happens to them.
///
/// The library connects once in the life of a process, so a test with a reader needs a process of
/// its own. Events arrive while Qt's events are processed (`waitUntil`).
class ScreenReader {
public:
    /// Connects, which starts the accessibility services on the bus. Throws std::runtime_error when
    /// there are none.
    explicit ScreenReader(const QString& sessionBusAddress);
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;
    ~ScreenReader();

    /// Tells the session that a screen reader runs, as one does when the user starts it.
    void announceItself() const;

    /// The first object with this role, such as "list", in the application with this name; absent
    /// when there is none.
    std::optional<AccessibleObject> find(const QString& application, const QString& role) const;

    /// What a reader would speak, oldest first: "focused: list item Editor" when that object gets
    /// the focus, and likewise with "selected", and "showing" for what comes into sight.
    const QStringList& heard() const { return m_heard; }
    /// Also of what has arrived and not been heard yet.
    void forget();

private:
    static void hear(AtspiEvent* event, void* reader);

    QString m_sessionBusAddress;
    std::unique_ptr<AtspiEventListener, decltype(&g_object_unref)> m_listener;
    QStringList m_heard;
};

} // namespace quorvantel::testing
