#pragma once

#include <QByteArray>
#include <QSocketNotifier>

#include <X11/SM/SMlib.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace quorvantel::testing {

/// A session manager of the test's own (X Session Management Protocol) with one client.
///
/// It does its work while the test waits (`waitUntil`) and needs an application object. One at a
/// time.
class SessionManager {
public:
    /// Returns once a client can connect. Throws std::runtime_error when none can.
    SessionManager() {
        std::array<char, 256> failure{};
        const int length = static_cast<int>(failure.size());
        // Without a handler, libICE ends the process as soon as its peer is gone.
        IceSetIOErrorHandler([](IceConn) {});
        if (SmsInitialize("Quorvantel", "1", accept, this, admit, length, failure.data()) == 0 ||
            IceListenForConnections(&m_listenerCount, &m_listeners, length, failure.data()) == 0) {
            throw std::runtime_error(failure.data());
        }
        for (IceListenObj listener :
             std::span(m_listeners, static_cast<std::size_t>(m_listenerCount))) {
            const std::unique_ptr<char, decltype(&std::free)> text(
                IceGetListenConnectionString(listener), &std::free);
            // The one that is no network port.
            if (m_address.isNull() && std::string_view(text.get()).starts_with("unix/")) {
                m_address = text.get();
                IceSetHostBasedAuthProc(listener, admit);
                m_listening = watch(IceGetListenConnectionNumber(listener),
                                    [this, listener] { acceptConnection(listener); });
            }
        }
    }
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;
    ~SessionManager() {
        crash();
        m_listening.reset();
        IceFreeListenObjs(m_listenerCount, m_listeners);
    }

    /// What the client takes as SESSION_MANAGER.
    QByteArray address() const { return m_address; }
    /// Whether a client takes part in the session and has not left it.
    bool hasClient() const { return m_client != nullptr; }
    /// How often the client said that it has saved itself; a new client is asked to at once.
    int saves() const { return m_saves; }
    /// Whether the client wants never to be started again by the session manager.
    bool isNeverRestarted() const { return m_restartStyle == SmRestartNever; }
    /// Whether the client wanted to ask the user something, which holds up the logout.
    bool hasHeldUpLogout() const { return m_hasHeldUpLogout; }

    /// The client is to save itself and may ask the user about it.
    void beginLogout() { SmsSaveYourself(m_client, SmSaveBoth, True, SmInteractStyleAny, False); }
    void cancelLogout() { SmsShutdownCancelled(m_client); }
    /// The client is to end.
    void completeLogout() { SmsDie(m_client); }

    /// Breaks the connection without a word.
    void crash() {
        if (SmsConn const client = std::exchange(m_client, nullptr)) {
            SmsCleanUp(client);
        }
        if (m_reading) {
            m_reading->setEnabled(false);
            // It may be the one that is just being activated.
            m_reading.release()->deleteLater();
        }
        if (IceConn const connection = std::exchange(m_connection, nullptr)) {
            IceCloseConnection(connection);
        }
    }

private:
    static SessionManager& self(SmPointer manager) {
        return *static_cast<SessionManager*>(manager);
    }

    static Bool admit(char* /*host*/) { return True; }

    static std::unique_ptr<QSocketNotifier> watch(int descriptor, auto handler) {
        auto notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), handler);
        return notifier;
    }

    /// Sets what this client's messages call; any other message ends the test.
    static Status accept(SmsConn client, SmPointer manager, unsigned long* mask,
                         SmsCallbacks* callbacks, char** /*failureReason*/) {
        self(manager).m_client = client;
        *mask = SmsRegisterClientProcMask | SmsDeletePropertiesProcMask |
                SmsInteractRequestProcMask | SmsSaveYourselfDoneProcMask |
                SmsCloseConnectionProcMask | SmsSetPropertiesProcMask;
        callbacks->register_client = {enroll, manager};
        callbacks->interact_request = {
            [](SmsConn, SmPointer data, int) { self(data).m_hasHeldUpLogout = true; }, manager};
        callbacks->delete_properties = {
            [](SmsConn, SmPointer, int count, char** names) { SmFreeReasons(count, names); },
            manager};
        callbacks->save_yourself_done = {
            [](SmsConn, SmPointer data, Bool) { ++self(data).m_saves; }, manager};
        callbacks->close_connection = {leave, manager};
        callbacks->set_properties = {setProperties, manager};
        return 1;
    }

    static void leave(SmsConn /*client*/, SmPointer manager, int count, char** reasons) {
        SmFreeReasons(count, reasons);
        self(manager).crash();
    }

    /// Has the client save itself for a first time, as the protocol asks for.
    static Status enroll(SmsConn client, SmPointer /*manager*/, char* previousId) {
        std::free(previousId);
        std::array<char, 6> id{"1test"};
        SmsRegisterClientReply(client, id.data());
        SmsSaveYourself(client, SmSaveLocal, False, SmInteractStyleNone, False);
        return 1;
    }

    static void setProperties(SmsConn /*client*/, SmPointer manager, int count, SmProp** all) {
        for (SmProp* const property : std::span(all, static_cast<std::size_t>(count))) {
            if (std::string_view(property->name) == SmRestartStyleHint) {
                self(manager).m_restartStyle =
                    *static_cast<const unsigned char*>(property->vals->value);
            }
            SmFreeProperty(property);
        }
        std::free(all);
    }

    void acceptConnection(IceListenObj listener) {
        IceAcceptStatus status = IceAcceptFailure;
        IceConn const connection = IceAcceptConnection(listener, &status);
        if (connection == nullptr || m_connection != nullptr) {
            return;
        }
        m_connection = connection;
        // The test decides alone when it is over.
        IceSetShutdownNegotiation(m_connection, False);
        m_reading = watch(IceConnectionNumber(m_connection), [this] {
            if (IceProcessMessages(m_connection, nullptr, nullptr) == IceProcessMessagesIOError) {
                crash();
            }
        });
    }

    int m_listenerCount = 0;
    IceListenObj* m_listeners = nullptr;
    QByteArray m_address;
    std::unique_ptr<QSocketNotifier> m_listening;
    IceConn m_connection = nullptr;
    std::unique_ptr<QSocketNotifier> m_reading;
    SmsConn m_client = nullptr;
    int m_saves = 0;
    int m_restartStyle = -1;
    bool m_hasHeldUpLogout = false;
};

} // namespace quorvantel::testing

// They would spoil the headers that come after this one.
#undef Bool
#undef Status
