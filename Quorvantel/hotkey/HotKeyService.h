#pragma once

#include "hotkey/HotKeyBinding.h"
#include "hotkey/HotKeyError.h"
#include "platform/GlobalHotKeys.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace quorvantel {

/// Owns the one system-wide summon hotkey.
///
/// Re-registering always passes through unregistered: a binding that the system refuses leaves the
/// service with no hotkey at all, so that what the user sees in the settings and what works never
/// differ silently. Main thread only.
class HotKeyService : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<void()>;

    /// The signature is the four-character code "QvHk".
    static constexpr platform::HotKeyIdentity identity{0x5176486B, 1};

    /// `hotKeys` must outlive the service.
    explicit HotKeyService(platform::GlobalHotKeys& hotKeys, QObject* parent = nullptr);
    ~HotKeyService() override;

    /// Replaces the current registration with `binding`. Afterwards each press runs `handler` from
    /// the event loop, after the platform's own dispatch has returned.
    ///
    /// Without Command or Control nothing is touched and `invalidModifiers` is returned. When the
    /// system refuses, `registrationFailed` is returned and nothing is registered.
    std::optional<HotKeyError> registerHotKey(const HotKeyBinding& binding, Handler handler);

    /// Removes the registration and the handler; harmless when there is none.
    void unregister();

    bool isRegistered() const { return m_hotKey != nullptr; }

Q_SIGNALS:
    /// The system took the registered hotkey away, for this reason, or gave it back, without one.
    /// The registration stays in either case.
    void availabilityChanged(const HotKeyBinding& binding,
                             const std::optional<HotKeyError>& reason);

private:
    void pressed(platform::HotKeyIdentity pressedIdentity);

    platform::GlobalHotKeys& m_hotKeys;
    // In the order of acquisition: members are released in reverse, the hotkey before its handler.
    std::unique_ptr<platform::GlobalHotKeys::Registration> m_eventHandler;
    std::unique_ptr<platform::GlobalHotKeys::Registration> m_hotKey;
    Handler m_handler;
};

} // namespace quorvantel
