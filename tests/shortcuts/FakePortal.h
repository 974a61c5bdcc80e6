#pragma once

#include "platform/linux/shortcuts/PortalShortcutEntry.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

namespace quorvantel::testing {

/// The GlobalShortcuts interface of the XDG Desktop Portal, or one that never answers.
class FakePortal : public QDBusVirtualObject {
public:
    enum class Manner { Binds, BindsNothing, Denies, Hangs };

    FakePortal(QDBusConnection portalBus, Manner initial) : manner(initial), m_bus(portalBus) {
        qDBusRegisterMetaType<platform::PortalShortcutEntry>();
        qDBusRegisterMetaType<platform::PortalShortcutEntries>();
        m_bus.registerVirtualObject(root, this, QDBusConnection::SubPath);
        m_bus.registerService(service);
    }
    ~FakePortal() override {
        m_bus.unregisterService(service);
        m_bus.unregisterObject(root);
    }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& /*bus*/) override {
        calls << call.member();
        if (manner == Manner::Hangs) {
            return true;
        }
        const QVariantList arguments = call.arguments();
        if (call.member() == QStringLiteral("Close")) {
            return true;
        }
        const auto options = qdbus_cast<QVariantMap>(arguments.last());
        const QString request = root + QStringLiteral("/request/") +
                                call.service().mid(1).replace(u'.', u'_') + u'/' +
                                options.value(QStringLiteral("handle_token")).toString();
        QVariantMap results{{QStringLiteral("session_handle"), session}};
        const bool isBinding = call.member() == QStringLiteral("BindShortcuts");
        if (isBinding) {
            auto entries = qdbus_cast<platform::PortalShortcutEntries>(arguments.at(1));
            preferredTrigger =
                entries.first().properties.value(QStringLiteral("preferred_trigger"));
            results = {{QStringLiteral("shortcuts"), bound(QStringLiteral("Alt+Logo+Space"))}};
        }
        const bool isDenied = isBinding && manner == Manner::Denies;
        // As real portals do, before the answer to the call.
        emitSignal(request, "org.freedesktop.portal.Request", "Response",
                   {isDenied ? 1U : 0U, isDenied ? QVariantMap() : results});
        m_bus.send(call.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        return true;
    }

    void press() {
        emitSignal(root, interface, "Activated",
                   {sessionPath(), QStringLiteral("summon"), QVariant::fromValue(qulonglong{0}),
                    QVariantMap()});
    }

    void rebind(const QString& trigger) {
        emitSignal(root, interface, "ShortcutsChanged", {sessionPath(), bound(trigger)});
    }

    Manner manner;
    QStringList calls;
    QVariant preferredTrigger;

private:
    QVariant bound(const QString& trigger) const {
        return QVariant::fromValue(manner == Manner::BindsNothing
                                       ? platform::PortalShortcutEntries()
                                       : platform::PortalShortcutEntries{
                                             {QStringLiteral("summon"),
                                              {{QStringLiteral("trigger_description"), trigger}}}});
    }

    QVariant sessionPath() const { return QVariant::fromValue(QDBusObjectPath(session)); }

    void emitSignal(const QString& path, const char* signalInterface, const char* name,
                    const QVariantList& arguments) {
        QDBusMessage signal =
            QDBusMessage::createSignal(path, QLatin1String(signalInterface), QLatin1String(name));
        signal.setArguments(arguments);
        m_bus.send(signal);
    }

    static constexpr auto interface = "org.freedesktop.portal.GlobalShortcuts";
    const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
    const QString root = QStringLiteral("/org/freedesktop/portal/desktop");
    const QString session = root + QStringLiteral("/session/1_1/quorvantel");

    QDBusConnection m_bus;
};

} // namespace quorvantel::testing
