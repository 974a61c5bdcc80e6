#pragma once

#include <QByteArray>
#include <QSocketNotifier>

#include <memory>
#include <optional>

// As in the headers of libICE and libSM, whose macros would spoil those of others.
struct _IceConn;
struct _IceListenObj;
struct _SmsConn;

namespace quorvantel::testing {

/// A session manager of the test's own (X Session Management Protocol) with one client.
///
/// It does its work while the test waits (`waitUntil`) and needs an application object. One at a
/// time.
class SessionManager {
public:
    /// When a client wants to be started again, by the protocol's numbers.
    enum class RestartStyle { IfRunning, Anyway, Immediately, Never };

    /// Returns once a client can connect. Throws std::runtime_error when none can.
    SessionManager();
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;
    ~SessionManager();

    /// What the client takes as SESSION_MANAGER.
    QByteArray address() const;

    /// Whether a client takes part in the session and has not left it.
    bool hasClient() const { return m_client != nullptr; }

    /// How often the client said that it has saved itself; a new client is asked to at once.
    int saves() const { return m_saves; }

    /// Absent when the client has not said so yet.
    std::optional<RestartStyle> restartStyle() const { return m_restartStyle; }

    /// Whether the client wanted to ask the user something, which holds up the logout.
    bool hasHeldUpLogout() const { return m_hasHeldUpLogout; }

    /// Begins a logout: the client is to save itself and may ask the user about it.
    void beginLogout();

    /// The user thought better of the logout.
    void cancelLogout();

    /// Completes the logout: the client is to end.
    void completeLogout();

    /// Breaks the connection without a word, as a crash does.
    void crash();

private:
    /// What the protocol's library calls.
    struct Callbacks;

    void acceptConnection();
    void readMessages();
    void closeConnection();

    int m_listenerCount = 0;
    _IceListenObj** m_listeners = nullptr;
    /// The one that is no network port.
    _IceListenObj* m_listener = nullptr;
    std::unique_ptr<QSocketNotifier> m_listening;
    _IceConn* m_connection = nullptr;
    std::unique_ptr<QSocketNotifier> m_reading;
    _SmsConn* m_client = nullptr;
    int m_saves = 0;
    std::optional<RestartStyle> m_restartStyle;
    bool m_hasHeldUpLogout = false;
};

} // namespace quorvantel::testing
