#pragma once

#include "platform/ApplicationRequests.h"
#include "platform/linux/CallerActivation.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace quorvantel::platform {

/// The launcher's side of D-Bus activation (Desktop Entry Specification): the desktop calls
/// `org.freedesktop.Application` under the launcher's name on the session bus.
///
/// Nothing waits for the bus. When it does not answer within half a second, or the name is held by
/// something that does not, one log line says so and the launcher goes on without. A name held by
/// another launcher summons that one and ends this.
class ApplicationService : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Receives a request and what the caller gave along.
    using Handler = std::function<void(ApplicationRequest, const CallerToken& token)>;

    explicit ApplicationService(QDBusConnection bus);

    /// Takes the name and calls from now on. To be called once.
    void receive(Handler handler);

public Q_SLOTS:
    // NOLINTBEGIN(readability-identifier-naming): the names that the interface has.
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    /// The launcher opens no files, so this is a start like any other.
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    /// An action that the launcher does not have is an error of the caller's.
    Q_SCRIPTABLE void ActivateAction(const QString& action, const QVariantList& parameter,
                                     const QVariantMap& platformData);
    // NOLINTEND(readability-identifier-naming)

private:
    void requestName();
    void handOver();

    QDBusConnection m_bus;
    Handler m_handler;
};

} // namespace quorvantel::platform
