#include "platform/linux/shortcuts/PortalShortcut.h"

#include "platform/linux/shortcuts/PortalShortcutEntry.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>

#include <algorithm>
#include <utility>

namespace quorvantel::platform {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString shortcutsInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString shortcutId = QStringLiteral("summon");

/// The keys that the portal has for the shortcut, in its own words; empty when it has none.
QString triggerIn(const QVariant& shortcuts) {
    const auto entries = qdbus_cast<PortalShortcutEntries>(shortcuts);
    const auto ours = std::ranges::find(entries, shortcutId, &PortalShortcutEntry::id);
    return ours == entries.end()
               ? QString()
               : ours->properties.value(QStringLiteral("trigger_description")).toString();
}

/// By the portal interface a text, with some portals an object path.
QString sessionIn(const QVariantMap& results) {
    const QVariant handle = results.value(QStringLiteral("session_handle"));
    return handle.canConvert<QDBusObjectPath>() ? handle.value<QDBusObjectPath>().path()
                                                : handle.toString();
}

} // namespace

PortalShortcut::PortalShortcut(QDBusConnection bus, const Accelerator& accelerator,
                               Handlers handlers)
    : m_bus(std::move(bus)),
      m_asked(accelerator),
      m_handlers(std::move(handlers)),
      m_portal(m_bus, service) {
    qDBusRegisterMetaType<PortalShortcutEntry>();
    qDBusRegisterMetaType<PortalShortcutEntries>();
    m_bus.connect({}, path, shortcutsInterface, QStringLiteral("Activated"), this,
                  SLOT(activated(QDBusMessage)));
    m_bus.connect({}, path, shortcutsInterface, QStringLiteral("ShortcutsChanged"), this,
                  SLOT(shortcutsChanged(QDBusMessage)));
    connect(&m_portal, &BusNameOwner::changed, this, &PortalShortcut::followOwner);
    // The call itself starts a portal that does not run yet.
    createSession();
}

PortalShortcut::~PortalShortcut() {
    if (!m_session.isEmpty()) {
        m_bus.send(QDBusMessage::createMethodCall(service, m_session,
                                                  QStringLiteral("org.freedesktop.portal.Session"),
                                                  QStringLiteral("Close")));
    }
}

void PortalShortcut::followOwner() {
    if (!m_portal.owner().isEmpty()) {
        if (m_request == nullptr && m_session.isEmpty()) {
            createSession();
        }
    } else if (!m_session.isEmpty()) {
        m_request.reset();
        m_session.clear();
        answer(HotKeyState(HotKeyPending{}));
    }
}

void PortalShortcut::createSession() {
    m_request = std::make_unique<PortalRequest>(
        m_bus, shortcutsInterface, QStringLiteral("CreateSession"), QVariantList(),
        QVariantMap{{QStringLiteral("session_handle_token"), QStringLiteral("quorvantel")}},
        [this](const std::optional<PortalResponse>& response) { bind(response); });
}

void PortalShortcut::bind(const std::optional<PortalResponse>& session) {
    m_session = session && session->code == PortalResponse::success ? sessionIn(session->results)
                                                                    : QString();
    if (m_session.isEmpty()) {
        answer(ShortcutNotOffered{});
        return;
    }
    const PortalShortcutEntries shortcuts{
        {shortcutId,
         {{QStringLiteral("description"), QStringLiteral("Show or hide the panel")},
          {QStringLiteral("preferred_trigger"), written(m_asked, portalSyntax)}}}};
    m_request.release()->deleteLater();
    m_request = std::make_unique<PortalRequest>(
        m_bus, shortcutsInterface, QStringLiteral("BindShortcuts"),
        QVariantList{QVariant::fromValue(QDBusObjectPath(m_session)),
                     QVariant::fromValue(shortcuts), QString()},
        QVariantMap(), [this](const std::optional<PortalResponse>& response) { settle(response); });
}

void PortalShortcut::settle(const std::optional<PortalResponse>& bound) {
    if (bound && bound->code == PortalResponse::cancelledByUser) {
        answer(HotKeyState(HotKeyUnavailable{
            ShortcutStatus::denied,
            QStringLiteral("The hotkey was declined when the desktop asked about it.")}));
        return;
    }
    const QString trigger = bound && bound->code == PortalResponse::success
                                ? triggerIn(bound->results.value(QStringLiteral("shortcuts")))
                                : QString();
    if (trigger.isEmpty()) {
        answer(ShortcutNotOffered{});
    } else {
        answer(HotKeyState(HotKeyRegistered{trigger}));
    }
}

void PortalShortcut::activated(const QDBusMessage& signal) {
    const QList<QVariant> arguments = signal.arguments();
    if (isFromSession(signal) && !m_isSuspended && arguments.size() >= 2 &&
        arguments.at(1) == shortcutId) {
        const auto onPress = m_handlers.onPress;
        onPress();
    }
}

void PortalShortcut::shortcutsChanged(const QDBusMessage& signal) {
    const QList<QVariant> arguments = signal.arguments();
    if (!isFromSession(signal) || arguments.size() < 2) {
        return;
    }
    const QString trigger = triggerIn(arguments.at(1));
    if (trigger.isEmpty()) {
        answer(HotKeyState(HotKeyUnavailable{
            ShortcutStatus::switchedOff,
            QStringLiteral("The hotkey is switched off in the system's settings."), true}));
    } else {
        answer(HotKeyState(HotKeyRegistered{trigger}));
    }
}

bool PortalShortcut::isFromSession(const QDBusMessage& signal) const {
    const QList<QVariant> arguments = signal.arguments();
    return signal.service() == m_portal.owner() && !m_session.isEmpty() && !arguments.isEmpty() &&
           arguments.first().value<QDBusObjectPath>().path() == m_session;
}

void PortalShortcut::answer(const ShortcutAnswer& answer) {
    const auto onAnswer = m_handlers.onAnswer;
    onAnswer(answer);
}

} // namespace quorvantel::platform
