#include "platform/macos/MacGlobalHotKeys.h"

#include "platform/macos/HotKeyStatuses.h"

#include <QObject>

#include <Carbon/Carbon.h>

#include <utility>
#include <vector>

namespace quorvantel::platform {

static_assert(HotKeyModifier::command == cmdKey && HotKeyModifier::shift == shiftKey &&
              HotKeyModifier::option == optionKey && HotKeyModifier::control == controlKey);

/// The handlers share the events: the system calls the latest one, which tells all.
class MacGlobalHotKeys::HandlerRegistration : public Token {
public:
    HandlerRegistration(MacGlobalHotKeys& owner, PressHandler pressHandler)
        : handler(std::move(pressHandler)), m_owner(owner) {
        m_owner.m_handlers.push_back(this);
        const EventTypeSpec presses{kEventClassKeyboard, kEventHotKeyPressed};
        InstallEventHandler(GetApplicationEventTarget(), &HandlerRegistration::handle, 1, &presses,
                            &m_owner, &m_handler);
    }
    ~HandlerRegistration() override {
        if (m_handler != nullptr) {
            RemoveEventHandler(m_handler);
        }
        m_owner.m_handlers.remove(this);
    }

    const PressHandler handler;

private:
    static OSStatus handle(EventHandlerCallRef /*next*/, EventRef event, void* owner) {
        EventHotKeyID hotKey{};
        if (event != nullptr && owner != nullptr &&
            GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr,
                              sizeof(hotKey), nullptr, &hotKey) == noErr) {
            static_cast<const MacGlobalHotKeys*>(owner)->report({hotKey.signature, hotKey.id});
        }
        return noErr;
    }

    MacGlobalHotKeys& m_owner;
    EventHandlerRef m_handler = nullptr;
};

class MacGlobalHotKeys::KeyRegistration : public Registration {
public:
    KeyRegistration(MacGlobalHotKeys& owner, std::uint32_t keyCode, std::uint32_t modifiers,
                    HotKeyIdentity identity, ChangeHandler onChange)
        : m_owner(owner),
          m_keyCode(keyCode),
          m_modifiers(modifiers),
          m_identity{identity.signature, identity.id},
          m_onChange(std::move(onChange)) {
        m_owner.m_registrations.push_back(this);
        m_state = claim();
        if (m_owner.isSuspended()) {
            giveBack();
        }
    }
    ~KeyRegistration() override {
        giveBack();
        m_owner.m_registrations.remove(this);
    }

    const HotKeyState& state() const override { return m_state; }

    void giveBack() {
        if (EventHotKeyRef hotKey = std::exchange(m_hotKey, nullptr)) {
            UnregisterEventHotKey(hotKey);
        }
    }

    void claimAgain() {
        giveBack();
        const HotKeyState before = std::exchange(m_state, claim());
        if (m_state != before && m_onChange) {
            // A copy, since it may end the registration.
            QMetaObject::invokeMethod(
                &m_context, [onChange = m_onChange] { onChange(); }, Qt::QueuedConnection);
        }
    }

private:
    HotKeyState claim() {
        return hotKeyState(RegisterEventHotKey(m_keyCode, m_modifiers, m_identity,
                                               GetApplicationEventTarget(), 0, &m_hotKey));
    }

    MacGlobalHotKeys& m_owner;
    std::uint32_t m_keyCode;
    std::uint32_t m_modifiers;
    EventHotKeyID m_identity;
    ChangeHandler m_onChange;
    /// Null while the system does not have the combination.
    EventHotKeyRef m_hotKey = nullptr;
    HotKeyState m_state;
    /// What is queued goes with it.
    QObject m_context;
};

class MacGlobalHotKeys::Suspension : public Token {
public:
    explicit Suspension(MacGlobalHotKeys& owner) : m_owner(owner) {
        if (++m_owner.m_suspensions == 1) {
            for (KeyRegistration* const registration : m_owner.m_registrations) {
                registration->giveBack();
            }
        }
    }
    ~Suspension() override {
        if (--m_owner.m_suspensions == 0) {
            for (KeyRegistration* const registration : m_owner.m_registrations) {
                registration->claimAgain();
            }
        }
    }

private:
    MacGlobalHotKeys& m_owner;
};

MacGlobalHotKeys::MacGlobalHotKeys() = default;

MacGlobalHotKeys::~MacGlobalHotKeys() = default;

std::unique_ptr<GlobalHotKeys::Token> MacGlobalHotKeys::installHandler(PressHandler handler) {
    return std::make_unique<HandlerRegistration>(*this, std::move(handler));
}

std::unique_ptr<GlobalHotKeys::Registration>
MacGlobalHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                 HotKeyIdentity identity, ChangeHandler onChange) {
    return std::make_unique<KeyRegistration>(*this, keyCode, modifiers, identity,
                                             std::move(onChange));
}

std::unique_ptr<GlobalHotKeys::Token> MacGlobalHotKeys::suspend() {
    return std::make_unique<Suspension>(*this);
}

void MacGlobalHotKeys::report(HotKeyIdentity identity) const {
    // One that was on its way when the hotkeys were suspended.
    if (isSuspended()) {
        return;
    }
    // The handlers may come and go while they run.
    std::vector<PressHandler> handlers;
    for (const HandlerRegistration* const registration : m_handlers) {
        handlers.push_back(registration->handler);
    }
    for (const PressHandler& handler : handlers) {
        handler(identity);
    }
}

} // namespace quorvantel::platform
