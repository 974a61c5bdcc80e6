#include "platform/linux/x11/X11HotKeys.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quorvantel::platform {

namespace {

HotKeyUnavailable unavailable(std::uint8_t errorCode) {
    switch (errorCode) {
    case XCB_ACCESS:
        return {errorCode, QStringLiteral("Another program has this combination.")};
    case XCB_VALUE:
        return {errorCode, QStringLiteral("This keyboard has no such key.")};
    default:
        return {errorCode, {}};
    }
}

} // namespace

class X11HotKeys::HandlerRegistration : public Token {
public:
    HandlerRegistration(X11HotKeys& owner, PressHandler pressHandler)
        : handler(std::move(pressHandler)), m_owner(owner) {
        m_owner.m_handlers.push_back(this);
    }
    ~HandlerRegistration() override { m_owner.m_handlers.remove(this); }

    PressHandler handler;

private:
    X11HotKeys& m_owner;
};

class X11HotKeys::KeyRegistration : public Registration {
public:
    struct Grab {
        xcb_keycode_t key;
        std::uint16_t modifiers;
        std::vector<std::uint16_t> lockCombinations;

        /// Whether a press is this one's, with or without locks.
        bool matches(const xcb_key_press_event_t& event) const {
            const unsigned int locks = lockCombinations.back();
            return key == event.detail && modifiers == (event.state & KeyModifiers::all & ~locks);
        }

        friend bool operator==(const Grab&, const Grab&) = default;
    };

    KeyRegistration(X11HotKeys& owner, std::uint32_t virtualKey, std::uint32_t carbonModifiers,
                    HotKeyIdentity hotKeyIdentity, ChangeHandler changeHandler)
        : identity(hotKeyIdentity),
          onChange(std::move(changeHandler)),
          m_owner(owner),
          m_virtualKey(virtualKey),
          m_carbonModifiers(carbonModifiers) {
        m_owner.m_registrations.push_back(this);
    }
    ~KeyRegistration() override {
        m_owner.ungrab(*this);
        m_owner.m_registrations.remove(this);
    }

    /// What to grab on the given keyboard; absent when it has no such key.
    std::optional<Grab> wanted(const Keymap& keymap) const {
        const auto key = keymap.keyAt(m_virtualKey);
        if (!key) {
            return std::nullopt;
        }
        return Grab{static_cast<xcb_keycode_t>(*key), keymap.modifiers().bitsOf(m_carbonModifiers),
                    keymap.modifiers().lockCombinations()};
    }

    const HotKeyState& state() const override { return current; }

    HotKeyIdentity identity;
    ChangeHandler onChange;
    /// What is grabbed now.
    std::optional<Grab> grab;
    HotKeyState current;

private:
    X11HotKeys& m_owner;
    std::uint32_t m_virtualKey;
    std::uint32_t m_carbonModifiers;
};

class X11HotKeys::Suspension : public Token {
public:
    explicit Suspension(X11HotKeys& owner) : m_owner(owner) { ++m_owner.m_suspensions; }
    ~Suspension() override {
        if (--m_owner.m_suspensions == 0) {
            m_owner.resume();
        }
    }

private:
    X11HotKeys& m_owner;
};

X11HotKeys::X11HotKeys(const X11Display& display, X11EventDispatcher& events,
                       X11RawEvents& rawEvents, X11Keyboard& keyboard,
                       KeyboardTaken isKeyboardTaken)
    : X11EventHandler(events, X11EventRank::HotKeys),
      m_display(display),
      m_rawEvents(rawEvents),
      m_isKeyboardTaken(std::move(isKeyboardTaken)),
      m_keyboard(keyboard) {
    QObject::connect(&keyboard, &X11Keyboard::changed, &m_context, [this] { followKeyboard(); });
}

X11HotKeys::~X11HotKeys() {
    letGo();
    allowTyping();
}

std::unique_ptr<GlobalHotKeys::Token> X11HotKeys::installHandler(PressHandler handler) {
    return std::make_unique<HandlerRegistration>(*this, std::move(handler));
}

std::unique_ptr<GlobalHotKeys::Registration> X11HotKeys::registerHotKey(std::uint32_t keyCode,
                                                                        std::uint32_t modifiers,
                                                                        HotKeyIdentity identity,
                                                                        ChangeHandler onChange) {
    auto registration =
        std::make_unique<KeyRegistration>(*this, keyCode, modifiers, identity, std::move(onChange));
    grab(*registration);
    holdKeyThatIsDown(*registration);
    return registration;
}

std::unique_ptr<GlobalHotKeys::Token> X11HotKeys::suspend() {
    return std::make_unique<Suspension>(*this);
}

void X11HotKeys::resume() {
    for (const KeyRegistration* registration : m_registrations) {
        if (!m_heldKey) {
            holdKeyThatIsDown(*registration);
        }
    }
}

void X11HotKeys::grab(KeyRegistration& registration) {
    registration.grab = registration.wanted(m_keyboard.keymap());
    if (!registration.grab) {
        registration.current = unavailable(XCB_VALUE);
        return;
    }
    std::vector<xcb_void_cookie_t> cookies;
    for (const std::uint16_t locks : registration.grab->lockCombinations) {
        const auto modifiers = static_cast<std::uint16_t>(registration.grab->modifiers | locks);
        cookies.push_back(xcb_grab_key_checked(m_display.connection, 1, m_display.root, modifiers,
                                               registration.grab->key, XCB_GRAB_MODE_ASYNC,
                                               XCB_GRAB_MODE_SYNC));
    }
    std::uint8_t errorCode = 0;
    for (const xcb_void_cookie_t cookie : cookies) {
        const XcbPointer<xcb_generic_error_t> error(
            xcb_request_check(m_display.connection, cookie));
        if (error && errorCode == 0) {
            errorCode = error->error_code;
        }
    }
    registration.current = HotKeyRegistered{};
    if (errorCode != 0) {
        registration.current = unavailable(errorCode);
        // Some states of the locks may have been free; half a hotkey is none.
        ungrab(registration);
    }
}

void X11HotKeys::ungrab(KeyRegistration& registration) const {
    const auto grab = std::exchange(registration.grab, std::nullopt);
    if (!grab) {
        return;
    }
    for (const std::uint16_t locks : grab->lockCombinations) {
        xcb_ungrab_key(m_display.connection, grab->key, m_display.root,
                       static_cast<std::uint16_t>(grab->modifiers | locks));
    }
    xcb_flush(m_display.connection);
}

bool X11HotKeys::handleEvent(const xcb_generic_event_t& event) {
    const unsigned int type = typeOf(event);
    if (type == XCB_KEY_PRESS) {
        const auto& press = eventAs<xcb_key_press_event_t>(event);
        const bool isHotKey = handleKeyPress(press);
        if (isHotKey || press.event == m_display.root) {
            releaseTyping();
        }
        return isHotKey;
    }
    if (type == XCB_KEY_RELEASE && m_heldKey) {
        m_heldKey->noteRelease(eventAs<xcb_key_release_event_t>(event));
    }
    return false;
}

bool X11HotKeys::handleKeyPress(const xcb_key_press_event_t& event) {
    if (m_suspensions > 0) {
        return false;
    }
    for (const KeyRegistration* registration : m_registrations) {
        if (!registration->grab || !registration->grab->matches(event)) {
            continue;
        }
        settleHeldKey();
        if (m_heldKey && m_heldKey->isRepeat(event)) {
            return true;
        }
        hold(event.detail);
        report(registration->identity);
        return true;
    }
    return false;
}

void X11HotKeys::releaseTyping() {
    // Queued, for so are the handlers' doings.
    QMetaObject::invokeMethod(
        &m_context,
        [this] {
            if (!m_isKeyboardTaken()) {
                allowTyping();
            }
        },
        Qt::QueuedConnection);
}

void X11HotKeys::allowTyping() const {
    xcb_allow_events(m_display.connection, XCB_ALLOW_ASYNC_KEYBOARD, XCB_CURRENT_TIME);
    xcb_flush(m_display.connection);
}

void X11HotKeys::hold(xcb_keycode_t key) {
    letGo();
    m_heldKey.emplace(key);
    // The key may be let go while another application has the keyboard, so its release is looked
    // for on the device as well.
    m_releaseObservation = m_rawEvents.observe(
        X11RawEvents::Type::KeyRelease, [this](std::uint32_t released, xcb_timestamp_t /*time*/) {
            if (m_heldKey && m_heldKey->key() == released) {
                letGo();
            }
        });
    // Or it was let go before that observation began. The answer matters at the next press only:
    // waiting for it here would keep the user waiting.
    m_heldKeyQuestion = xcb_query_keymap(m_display.connection);
    xcb_flush(m_display.connection);
}

void X11HotKeys::holdKeyThatIsDown(const KeyRegistration& registration) {
    if (registration.grab) {
        hold(registration.grab->key);
        // An answer that came only after the first press would take that one for a repeat.
        settleHeldKey();
    }
}

void X11HotKeys::letGo() {
    if (m_heldKeyQuestion) {
        xcb_discard_reply(m_display.connection, m_heldKeyQuestion->sequence);
    }
    m_heldKeyQuestion.reset();
    m_heldKey.reset();
    m_releaseObservation.reset();
}

void X11HotKeys::settleHeldKey() {
    const auto question = std::exchange(m_heldKeyQuestion, std::nullopt);
    if (!question) {
        return;
    }
    const XcbPointer<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(m_display.connection, *question, nullptr));
    const bool wasDown = reply && isDown(*reply, m_heldKey->key());
    if (!wasDown) {
        letGo();
    }
}

void X11HotKeys::report(HotKeyIdentity identity) const {
    // The handlers may come and go while they run.
    std::vector<PressHandler> handlers;
    for (const HandlerRegistration* registration : m_handlers) {
        handlers.push_back(registration->handler);
    }
    for (const PressHandler& handler : handlers) {
        handler(identity);
    }
}

void X11HotKeys::followKeyboard() {
    // Those who are told may end registrations, their own and others, so the list is walked in a
    // copy.
    const std::vector<KeyRegistration*> registrations(m_registrations.begin(),
                                                      m_registrations.end());
    for (KeyRegistration* const registration : registrations) {
        if (std::ranges::find(m_registrations, registration) != m_registrations.end()) {
            followKeyboard(*registration);
        }
    }
}

void X11HotKeys::followKeyboard(KeyRegistration& registration) {
    const auto wanted = registration.wanted(m_keyboard.keymap());
    if (wanted && registration.grab == wanted) {
        return;
    }
    const HotKeyState before = registration.current;
    ungrab(registration);
    grab(registration);
    if (registration.current != before && registration.onChange) {
        const ChangeHandler handler = registration.onChange;
        handler();
    }
}

} // namespace quorvantel::platform
