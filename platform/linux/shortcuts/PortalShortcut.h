#pragma once

#include "platform/linux/shortcuts/BusNameOwner.h"
#include "platform/linux/shortcuts/DesktopShortcut.h"
#include "platform/linux/shortcuts/PortalRequest.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <memory>

namespace quorvantel::platform {

/// The launcher's shortcut with the XDG Desktop Portal (`org.freedesktop.portal.GlobalShortcuts`),
/// which may ask the user for it and give it other keys.
///
/// Some portals say that they bound the shortcut and bind no keys to it; it counts as not offered
/// unless its keys are told. A portal that begins anew is asked anew.
class PortalShortcut : public QObject, public DesktopShortcut {
    Q_OBJECT

public:
    PortalShortcut(QDBusConnection bus, const Accelerator& accelerator, Handlers handlers);
    ~PortalShortcut() override;

    /// A portal cannot let the keys pass; their presses are not told.
    void setSuspended(bool isSuspended) override { m_isSuspended = isSuspended; }

private Q_SLOTS:
    void activated(const QDBusMessage& signal);
    void shortcutsChanged(const QDBusMessage& signal);

private:
    void followOwner();
    void createSession();
    void bind(const std::optional<PortalResponse>& session);
    void settle(const std::optional<PortalResponse>& bound);
    void answer(const ShortcutAnswer& answer);
    bool isFromSession(const QDBusMessage& signal) const;

    QDBusConnection m_bus;
    Accelerator m_asked;
    Handlers m_handlers;
    BusNameOwner m_portal;
    std::unique_ptr<PortalRequest> m_request;
    /// Object path; empty while there is none.
    QString m_session;
    bool m_isSuspended = false;
};

} // namespace quorvantel::platform
