#include "support/SessionManager.h"

#include <X11/SM/SMlib.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace quorvantel::testing {
namespace {

Bool admitEverybody(char* /*host*/) {
    return True;
}

/// Without a handler, libICE ends the process as soon as its peer is gone.
void ignoreBrokenConnection(IceConn /*connection*/) {}

QByteArray addressOf(IceListenObj listener) {
    char* const text = IceGetListenConnectionString(listener);
    const QByteArray address(text);
    std::free(text);
    return address;
}

} // namespace

struct SessionManager::Callbacks {
    static SessionManager& self(SmPointer manager) {
        return *static_cast<SessionManager*>(manager);
    }

    static Status accept(SmsConn client, SmPointer manager, unsigned long* mask,
                         SmsCallbacks* callbacks, char** /*failureReason*/) {
        self(manager).m_client = client;
        *mask = (SmsGetPropertiesProcMask << 1U) - 1;
        *callbacks = {
            {enroll, manager},        {interact, manager},      {interactDone, manager},
            {requestSave, manager},   {requestPhase2, manager}, {saveDone, manager},
            {close, manager},         {setProperties, manager}, {deleteProperties, manager},
            {getProperties, manager},
        };
        return 1;
    }

    /// Has the client save itself for a first time, as the protocol asks for.
    static Status enroll(SmsConn client, SmPointer /*manager*/, char* previousId) {
        std::free(previousId);
        std::string id("1test");
        SmsRegisterClientReply(client, id.data());
        SmsSaveYourself(client, SmSaveLocal, False, SmInteractStyleNone, False);
        return 1;
    }

    static void interact(SmsConn /*client*/, SmPointer manager, int /*dialogType*/) {
        self(manager).m_hasHeldUpLogout = true;
    }

    static void interactDone(SmsConn /*client*/, SmPointer /*manager*/, Bool /*cancels*/) {}

    static void requestSave(SmsConn /*client*/, SmPointer /*manager*/, int /*type*/,
                            Bool /*isShutdown*/, int /*interactStyle*/, Bool /*isFast*/,
                            Bool /*isGlobal*/) {}

    static void requestPhase2(SmsConn client, SmPointer /*manager*/) {
        SmsSaveYourselfPhase2(client);
    }

    static void saveDone(SmsConn /*client*/, SmPointer manager, Bool /*isSuccess*/) {
        ++self(manager).m_saves;
    }

    static void close(SmsConn /*client*/, SmPointer manager, int count, char** reasons) {
        SmFreeReasons(count, reasons);
        self(manager).closeConnection();
    }

    static void setProperties(SmsConn /*client*/, SmPointer manager, int count,
                              SmProp** properties) {
        for (SmProp* const property : std::span(properties, static_cast<std::size_t>(count))) {
            if (std::string_view(property->name) == SmRestartStyleHint) {
                const auto style = *static_cast<const unsigned char*>(property->vals->value);
                self(manager).m_restartStyle = static_cast<RestartStyle>(style);
            }
            SmFreeProperty(property);
        }
        std::free(properties);
    }

    static void deleteProperties(SmsConn /*client*/, SmPointer /*manager*/, int count,
                                 char** names) {
        SmFreeReasons(count, names);
    }

    static void getProperties(SmsConn client, SmPointer /*manager*/) {
        SmsReturnProperties(client, 0, nullptr);
    }
};

SessionManager::SessionManager() {
    std::array<char, 256> failure{};
    const int length = static_cast<int>(failure.size());
    IceSetIOErrorHandler(ignoreBrokenConnection);
    if (SmsInitialize("Quorvantel", "1", Callbacks::accept, this, admitEverybody, length,
                      failure.data()) == 0 ||
        IceListenForConnections(&m_listenerCount, &m_listeners, length, failure.data()) == 0) {
        throw std::runtime_error(failure.data());
    }
    const std::span listeners(m_listeners, static_cast<std::size_t>(m_listenerCount));
    m_listener = *std::ranges::find_if(
        listeners, [](IceListenObj listener) { return addressOf(listener).startsWith("unix/"); });
    IceSetHostBasedAuthProc(m_listener, admitEverybody);
    m_listening = std::make_unique<QSocketNotifier>(IceGetListenConnectionNumber(m_listener),
                                                    QSocketNotifier::Read);
    QObject::connect(m_listening.get(), &QSocketNotifier::activated, m_listening.get(),
                     [this] { acceptConnection(); });
}

SessionManager::~SessionManager() {
    closeConnection();
    m_listening.reset();
    IceFreeListenObjs(m_listenerCount, m_listeners);
}

QByteArray SessionManager::address() const {
    return addressOf(m_listener);
}

void SessionManager::beginLogout() {
    SmsSaveYourself(m_client, SmSaveBoth, True, SmInteractStyleAny, False);
}

void SessionManager::cancelLogout() {
    SmsShutdownCancelled(m_client);
}

void SessionManager::completeLogout() {
    SmsDie(m_client);
}

void SessionManager::crash() {
    closeConnection();
}

void SessionManager::acceptConnection() {
    IceAcceptStatus status = IceAcceptFailure;
    const IceConn connection = IceAcceptConnection(m_listener, &status);
    if (connection == nullptr || m_connection != nullptr) {
        return;
    }
    m_connection = connection;
    // The test decides alone when it is over.
    IceSetShutdownNegotiation(m_connection, False);
    m_reading =
        std::make_unique<QSocketNotifier>(IceConnectionNumber(m_connection), QSocketNotifier::Read);
    QObject::connect(m_reading.get(), &QSocketNotifier::activated, m_reading.get(),
                     [this] { readMessages(); });
}

void SessionManager::readMessages() {
    if (IceProcessMessages(m_connection, nullptr, nullptr) == IceProcessMessagesIOError) {
        closeConnection();
    }
}

void SessionManager::closeConnection() {
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

} // namespace quorvantel::testing
