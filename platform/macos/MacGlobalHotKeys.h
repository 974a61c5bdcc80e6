#pragma once

#include "platform/GlobalHotKeys.h"

#include <list>

namespace quorvantel::platform {

/// Global hotkeys of the Carbon Event Manager, which takes no permission of the user's for them.
///
/// The system refuses little: several applications may have the same combination, and then all of
/// them get its presses. A combination of the system's own is granted, but the system keeps it.
class MacGlobalHotKeys final : public GlobalHotKeys {
public:
    MacGlobalHotKeys();
    ~MacGlobalHotKeys() override;

    std::unique_ptr<Token> installHandler(PressHandler handler) override;

    /// The answer is there at once. The status is the result code of the Event Manager.
    std::unique_ptr<Registration> registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 HotKeyIdentity identity,
                                                 ChangeHandler onChange) override;

    /// The system does without the hotkeys meanwhile, so that their presses are ordinary ones.
    std::unique_ptr<Token> suspend() override;

private:
    class HandlerRegistration;
    class KeyRegistration;
    class Suspension;

    bool isSuspended() const { return m_suspensions > 0; }
    void report(HotKeyIdentity identity) const;

    std::list<HandlerRegistration*> m_handlers;
    std::list<KeyRegistration*> m_registrations;
    int m_suspensions = 0;
};

} // namespace quorvantel::platform
