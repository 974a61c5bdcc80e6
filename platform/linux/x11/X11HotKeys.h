#pragma once

#include "platform/GlobalHotKeys.h"
#include "platform/linux/x11/HeldKey.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"
#include "platform/linux/x11/X11Keyboard.h"
#include "platform/linux/x11/X11RawEvents.h"

#include <QObject>

#include <functional>
#include <list>
#include <memory>
#include <optional>

namespace quorvantel::platform {

/// Global hotkeys as passive key grabs on the root window.
///
/// A combination is grabbed once for every state of the locks. The grabs are synchronous: the
/// server keeps what is typed after the hotkey until its handlers have run, so that a panel which
/// they show gets all of it, however busy the launcher was. While the panel holds the keyboard,
/// passive grabs sleep; the same key press then reaches the panel's window on the same connection,
/// where it is recognised just as well. When the keyboard's mapping changes, the grabs move to
/// wherever the keys went.
class X11HotKeys : public GlobalHotKeys, public X11EventHandler {
public:
    /// Says whether somebody else on this connection has taken the keyboard over meanwhile, and
    /// with it the decision about what was typed.
    using KeyboardTaken = std::function<bool()>;

    /// `rawEvents` and `keyboard` must outlive this object and all registrations.
    X11HotKeys(
        const X11Display& display, X11EventDispatcher& events, X11RawEvents& rawEvents,
        X11Keyboard& keyboard, KeyboardTaken isKeyboardTaken = [] { return false; });
    ~X11HotKeys() override;

    std::unique_ptr<Token> installHandler(PressHandler handler) override;

    /// The answer is there at once. The status is the error code of the X protocol: BadAccess (10)
    /// when another client holds the combination, BadValue (2) when the keyboard has no such key.
    std::unique_ptr<Registration> registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 HotKeyIdentity identity,
                                                 ChangeHandler onChange = nullptr) override;

    /// The grabs stay meanwhile, lest another client takes the combination.
    std::unique_ptr<Token> suspend() override;

    /// Has the server deliver what it kept since a press of a hotkey, once what that press set off
    /// has been done. To be called by whoever keeps a press from this object; harmless when it was
    /// not a hotkey's.
    void releaseTyping();

    bool handleEvent(const xcb_generic_event_t& event) override;

private:
    class HandlerRegistration;
    class KeyRegistration;
    class Suspension;

    void grab(KeyRegistration& registration);
    void ungrab(KeyRegistration& registration) const;
    bool handleKeyPress(const xcb_key_press_event_t& event);
    void allowTyping() const;
    void resume();
    void hold(xcb_keycode_t key);
    /// A key that is down already, as after it was recorded, repeats; none of that is a press.
    void holdKeyThatIsDown(const KeyRegistration& registration);
    void letGo();
    void settleHeldKey();
    void report(HotKeyIdentity identity) const;
    void followKeyboard();
    void followKeyboard(KeyRegistration& registration);

    X11Display m_display;
    X11RawEvents& m_rawEvents;
    KeyboardTaken m_isKeyboardTaken;
    X11Keyboard& m_keyboard;
    std::list<HandlerRegistration*> m_handlers;
    std::list<KeyRegistration*> m_registrations;
    int m_suspensions = 0;
    /// The hotkey that is held down; its key repeats do not count as presses.
    std::optional<HeldKey> m_heldKey;
    /// Lives as long as `m_heldKey` is set.
    std::unique_ptr<X11RawEvents::Observation> m_releaseObservation;
    /// The question whether `m_heldKey` was still down when that observation began, until its
    /// answer is read.
    std::optional<xcb_query_keymap_cookie_t> m_heldKeyQuestion;
    QObject m_context;
};

} // namespace quorvantel::platform
