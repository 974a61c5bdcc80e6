#pragma once

#include "platform/linux/CallerActivation.h"
#include "platform/linux/StartupNotifier.h"
#include "platform/linux/wayland/WaylandUserSerial.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QWindow>

#include <functional>
#include <list>

namespace quorvantel::platform {

/// Has windows come to the front by tokens (XDG Activation Protocol): the launcher's on behalf of
/// whoever asks for them, and those of launched programs on behalf of the launcher. Main thread
/// only.
class WaylandActivation : public QObject, public StartupNotifier, public CallerActivation {
    Q_OBJECT

public:
    /// Both must outlive the object.
    WaylandActivation(const WaylandConnection& connection, const WaylandUserSerial& serial);
    ~WaylandActivation() override;

    /// The token is that of the user's last deed in the launcher. Empty at once where the
    /// compositor has no tokens, and a moment later where it gives none.
    void begin(const QByteArray& applicationName, const QByteArray& desktopFileId,
               const QByteArray& iconName, Announced announced) override;

    /// Does nothing: a token is of no consequence until a program uses it.
    void fail(const QByteArray& /*id*/) override {}

    void during(const CallerToken& token, const std::function<void()>& task) override;

    /// Asks for a token while the launcher still has the keyboard, for what `begin` is called for
    /// before the event loop is next reached.
    void prepare();

    /// Brings a window to the front as soon as it is on the screen, with the caller's token or,
    /// when nobody called, with one for the user's last deed in the launcher.
    void activate(QWindow& window);

private:
    class Request;

    void ask(std::list<Request>& requests, const QByteArray& application) const;
    void use(const QByteArray& token, QWindow& window);

    const WaylandConnection& m_connection;
    const WaylandUserSerial& m_serial;
    WaylandPointer<xdg_activation_v1> m_activation;
    std::list<Request> m_requests;
    /// The one that `prepare` made, until it is used or given up.
    std::list<Request> m_prepared;
    QByteArray m_callerToken;
};

} // namespace quorvantel::platform
