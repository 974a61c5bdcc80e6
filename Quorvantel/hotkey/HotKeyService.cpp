#include "hotkey/HotKeyService.h"

#include <utility>

namespace quorvantel {

namespace {

bool isUnavailable(const platform::GlobalHotKeys::Registration& hotKey) {
    return std::holds_alternative<platform::HotKeyUnavailable>(hotKey.state());
}

} // namespace

HotKeyService::HotKeyService(platform::GlobalHotKeys& hotKeys, QObject* parent)
    : QObject(parent), m_hotKeys(hotKeys) {}

HotKeyService::~HotKeyService() {
    release();
}

void HotKeyService::registerHotKey(const HotKeyBinding& binding, Handler handler,
                                   const std::optional<HotKeyBinding>& substitute) {
    m_wanted = binding;
    if (binding.hasRequiredModifier()) {
        m_failure.reset();
        m_substitute = substitute == binding ? std::nullopt : substitute;
        m_handler = std::move(handler);
        request(binding);
    } else {
        m_isRefusedAtOnce = false;
        m_failure = HotKeyError::invalidModifiers();
        Q_EMIT failed(*m_failure);
        if (substitute) {
            m_substitute.reset();
            m_handler = std::move(handler);
            request(*substitute);
        }
    }
    publish();
}

void HotKeyService::askAgain(Handler handler) {
    if (!m_isRefusedAtOnce) {
        return;
    }
    Registration hotKey = ask(*m_wanted);
    if (isUnavailable(*hotKey)) {
        return;
    }
    // Only now does the substitute go.
    release();
    m_handler = std::move(handler);
    listen();
    adopt(*m_wanted, std::move(hotKey));
    publish();
}

void HotKeyService::unregister() {
    release();
    m_isRefusedAtOnce = false;
    m_wanted.reset();
    m_failure.reset();
    publish();
}

void HotKeyService::request(const HotKeyBinding& binding) {
    m_hotKey.reset();
    listen();
    adopt(binding, ask(binding));
}

void HotKeyService::listen() {
    m_eventHandler.reset();
    m_eventHandler = m_hotKeys.installHandler(
        [this](platform::HotKeyIdentity pressedIdentity) { pressed(pressedIdentity); });
}

void HotKeyService::adopt(const HotKeyBinding& binding, Registration hotKey) {
    m_registered = binding;
    m_hasWorked = false;
    m_hotKey = std::move(hotKey);
    if (isWantedRegistered()) {
        m_isRefusedAtOnce = isUnavailable(*m_hotKey);
    }
    follow();
}

HotKeyService::Registration HotKeyService::ask(const HotKeyBinding& binding) {
    return m_hotKeys.registerHotKey(binding.keyCode, binding.modifiers, identity, [this] {
        follow();
        publish();
    });
}

void HotKeyService::follow() {
    const platform::HotKeyState& state = m_hotKey->state();
    if (const auto* const unavailable = std::get_if<platform::HotKeyUnavailable>(&state)) {
        const auto error = HotKeyError::registrationFailed(*unavailable);
        // No other hotkey takes the place of one that the user does not want.
        if (m_hasWorked || unavailable->isUsersWish) {
            handleLoss(error);
        } else {
            handleRefusal(error);
        }
        return;
    }
    m_hasWorked = m_hasWorked || std::holds_alternative<platform::HotKeyRegistered>(state);
    if (isWantedRegistered()) {
        m_failure.reset();
    }
}

void HotKeyService::handleRefusal(const HotKeyError& error) {
    if (isWantedRegistered()) {
        m_failure = error;
        Q_EMIT failed(error);
    }
    if (const auto substitute = std::exchange(m_substitute, std::nullopt)) {
        request(*substitute);
    } else {
        release();
    }
}

void HotKeyService::handleLoss(const HotKeyError& error) {
    // The registration stays, for the system may give back what it took away. What becomes of
    // another hotkey says nothing about the one that was asked for.
    if (isWantedRegistered()) {
        m_failure = error;
    }
    Q_EMIT failed(error);
}

void HotKeyService::release() {
    m_hotKey.reset();
    m_eventHandler.reset();
    m_handler = nullptr;
    m_registered.reset();
    m_substitute.reset();
}

void HotKeyService::publish() {
    SummonHotKey state;
    state.failure = m_failure;
    if (m_hotKey) {
        const platform::HotKeyState& answer = m_hotKey->state();
        state.isPending = std::holds_alternative<platform::HotKeyPending>(answer);
        if (const auto* const registered = std::get_if<platform::HotKeyRegistered>(&answer)) {
            state.active = m_registered;
            state.trigger = registered->trigger;
        } else if (const auto* const left = std::get_if<platform::HotKeyLeftToUser>(&answer)) {
            state.leftToUser = *left;
        }
    }
    if (state != m_state) {
        m_state = std::move(state);
        Q_EMIT changed();
    }
}

void HotKeyService::pressed(platform::HotKeyIdentity pressedIdentity) {
    // The handler may register another hotkey, which must not happen inside the dispatch of this
    // one.
    QMetaObject::invokeMethod(
        this,
        [this, pressedIdentity] {
            if (pressedIdentity.id == identity.id && m_handler) {
                // A copy, since the handler may replace itself while it runs.
                const Handler handler = m_handler;
                handler();
            }
        },
        Qt::QueuedConnection);
}

} // namespace quorvantel
