#include "e2e/ScreenReader.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

#include <stdexcept>

namespace quorvantel::testing {
namespace {

std::optional<AccessibleObject> findRole(const AccessibleObject& object, const QString& role) {
    if (object.role() == role) {
        return object;
    }
    for (int index = 0; index < object.childCount(); ++index) {
        const std::optional<AccessibleObject> child = object.child(index);
        if (const auto found = child ? findRole(*child, role) : std::nullopt) {
            return found;
        }
    }
    return std::nullopt;
}

} // namespace

ScreenReader::ScreenReader(const QString& sessionBusAddress)
    : m_sessionBusAddress(sessionBusAddress), m_listener(nullptr, &g_object_unref) {
    qputenv("DBUS_SESSION_BUS_ADDRESS", sessionBusAddress.toLocal8Bit());
    if (atspi_init() != 0) {
        throw std::runtime_error("the accessibility services do not start");
    }
    m_listener.reset(atspi_event_listener_new(&ScreenReader::hear, this, nullptr));
    for (const char* const type : {"object:state-changed:focused", "object:state-changed:selected",
                                   "object:state-changed:showing"}) {
        if (atspi_event_listener_register(m_listener.get(), type, nullptr) == 0) {
            throw std::runtime_error("cannot listen to the accessibility services");
        }
    }
}

ScreenReader::~ScreenReader() {
    m_listener.reset();
    atspi_exit();
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void ScreenReader::announceItself() const {
    const QString connection = QStringLiteral("screen reader");
    QDBusMessage enable = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"));
    enable << QStringLiteral("org.a11y.Status") << QStringLiteral("ScreenReaderEnabled")
           << QVariant::fromValue(QDBusVariant(true));
    const QDBusMessage reply =
        QDBusConnection::connectToBus(m_sessionBusAddress, connection).call(enable);
    QDBusConnection::disconnectFromBus(connection);
    if (reply.type() != QDBusMessage::ReplyMessage) {
        throw std::runtime_error(reply.errorMessage().toStdString());
    }
}

void ScreenReader::forget() {
    while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
    }
    m_heard.clear();
}

std::optional<AccessibleObject> ScreenReader::find(const QString& application,
                                                   const QString& role) const {
    const AccessibleObject desktop(atspi_get_desktop(0));
    for (int index = 0; index < desktop.childCount(); ++index) {
        const std::optional<AccessibleObject> candidate = desktop.child(index);
        if (candidate && candidate->name() == application) {
            return findRole(*candidate, role);
        }
    }
    return std::nullopt;
}

void ScreenReader::hear(AtspiEvent* event, void* reader) {
    if (event->detail1 != 0) {
        const AccessibleObject source(ATSPI_ACCESSIBLE(g_object_ref(event->source)));
        const QString state = QString::fromUtf8(event->type).section(QLatin1Char(':'), 2, 2);
        static_cast<ScreenReader*>(reader)->m_heard
            << state + QStringLiteral(": ") + source.role() + QLatin1Char(' ') + source.name();
    }
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

} // namespace quorvantel::testing
