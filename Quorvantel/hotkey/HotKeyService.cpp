#include "hotkey/HotKeyService.h"

#include <utility>

namespace quorvantel {

namespace {

std::optional<HotKeyError> errorOf(platform::HotKeyStatus status) {
    return status == platform::hotKeySuccess
               ? std::nullopt
               : std::optional(HotKeyError::registrationFailed(status));
}

} // namespace

HotKeyService::HotKeyService(platform::GlobalHotKeys& hotKeys, QObject* parent)
    : QObject(parent), m_hotKeys(hotKeys) {}

HotKeyService::~HotKeyService() {
    unregister();
}

std::optional<HotKeyError> HotKeyService::registerHotKey(const HotKeyBinding& binding,
                                                         Handler handler) {
    if (!binding.hasRequiredModifier()) {
        return HotKeyError::invalidModifiers();
    }
    unregister();
    m_handler = std::move(handler);
    m_eventHandler = m_hotKeys.installHandler(
        [this](platform::HotKeyIdentity pressedIdentity) { pressed(pressedIdentity); });
    auto result = m_hotKeys.registerHotKey(binding.keyCode, binding.modifiers, identity,
                                           [this, binding](platform::HotKeyStatus status) {
                                               Q_EMIT availabilityChanged(binding, errorOf(status));
                                           });
    if (const auto* status = std::get_if<platform::HotKeyStatus>(&result)) {
        unregister();
        return errorOf(*status);
    }
    m_hotKey = std::move(std::get<std::unique_ptr<platform::GlobalHotKeys::Registration>>(result));
    return std::nullopt;
}

void HotKeyService::unregister() {
    m_hotKey.reset();
    m_eventHandler.reset();
    m_handler = nullptr;
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
