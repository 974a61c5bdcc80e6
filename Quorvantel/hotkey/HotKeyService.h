#pragma once

#include "hotkey/SummonHotKey.h"
#include "platform/GlobalHotKeys.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace quorvantel {

/// Owns the one system-wide summon hotkey, and the knowledge of what became of it.
///
/// Re-registering always passes through unregistered: a binding that the system refuses leaves the
/// service with no hotkey at all, or with the one that was named to take its place, so that what
/// the user sees in the settings and what works never differ silently. Main thread only.
class HotKeyService : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<void()>;
    using Suspension = platform::GlobalHotKeys::Token;

    /// The signature is the four-character code "QvHk".
    static constexpr platform::HotKeyIdentity identity{0x5176486B, 1};

    /// `hotKeys` must outlive the service.
    explicit HotKeyService(platform::GlobalHotKeys& hotKeys, QObject* parent = nullptr);
    ~HotKeyService() override;

    /// Replaces the current registration with `binding`. Each press then runs `handler` from the
    /// event loop, after the platform's own dispatch has returned.
    ///
    /// Without Command or Control this fails with `invalidModifiers`, and the current registration
    /// stays. When the system refuses, now or once it has thought about it, this fails with
    /// `registrationFailed`, and nothing is registered. In either case `substitute`, if any and
    /// another one, is then registered instead; should it fail as well, nothing more is said.
    void registerHotKey(const HotKeyBinding& binding, Handler handler,
                        const std::optional<HotKeyBinding>& substitute = std::nullopt);

    /// Asks once more for a binding that the system refused without having to think about it, as
    /// when another application had it then; another refusal changes nothing and goes without
    /// saying. Harmless in any other state. Presses run `handler` from then on.
    void askAgain(Handler handler);

    /// Removes the registration and the handler; harmless when there is none.
    void unregister();

    /// What works and what failed, as far as is known.
    const SummonHotKey& state() const { return m_state; }

    /// Keeps the hotkey from doing anything for as long as the result lives, such as while the user
    /// records another one. A hotkey that is registered meanwhile waits as well.
    std::unique_ptr<Suspension> suspend() { return m_hotKeys.suspend(); }

Q_SIGNALS:
    /// `state` is another.
    void changed();

    /// The binding that was asked for was refused, or the one that worked was lost.
    void failed(const HotKeyError& error);

private:
    using Registration = std::unique_ptr<platform::GlobalHotKeys::Registration>;

    bool isWantedRegistered() const { return m_registered == m_wanted; }
    void request(const HotKeyBinding& binding);
    void listen();
    Registration ask(const HotKeyBinding& binding);
    void adopt(const HotKeyBinding& binding, Registration hotKey);
    void follow();
    void handleRefusal(const HotKeyError& error);
    void handleLoss(const HotKeyError& error);
    void release();
    void publish();
    void pressed(platform::HotKeyIdentity pressedIdentity);

    platform::GlobalHotKeys& m_hotKeys;
    // In the order of acquisition: members are released in reverse, the hotkey before its handler.
    std::unique_ptr<platform::GlobalHotKeys::Token> m_eventHandler;
    Registration m_hotKey;
    Handler m_handler;
    /// What was asked for last.
    std::optional<HotKeyBinding> m_wanted;
    /// What `m_hotKey` stands for.
    std::optional<HotKeyBinding> m_registered;
    /// Whether that has worked, so that it is lost rather than refused when it does not any more.
    bool m_hasWorked = false;
    /// What is to be tried when `m_registered` is refused.
    std::optional<HotKeyBinding> m_substitute;
    /// Why `m_wanted` does not work.
    std::optional<HotKeyError> m_failure;
    /// Whether the system refused `m_wanted` at once, so that to ask again bothers nobody.
    bool m_isRefusedAtOnce = false;
    SummonHotKey m_state;
};

} // namespace quorvantel
