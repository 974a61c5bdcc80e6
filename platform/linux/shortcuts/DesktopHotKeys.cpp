#include "platform/linux/shortcuts/DesktopHotKeys.h"

#include "platform/linux/shortcuts/GnomeShortcut.h"
#include "platform/linux/shortcuts/KdeShortcut.h"
#include "platform/linux/shortcuts/PortalShortcut.h"
#include "platform/linux/shortcuts/QtKey.h"
#include "platform/linux/shortcuts/UserBinding.h"

#include <algorithm>
#include <vector>

namespace quorvantel::platform {

class DesktopHotKeys::HandlerToken : public Token {
public:
    HandlerToken(DesktopHotKeys& owner, PressHandler handler)
        : m_owner(owner), m_handler(std::move(handler)) {
        m_owner.m_handlers.push_back(&m_handler);
    }
    ~HandlerToken() override { m_owner.m_handlers.remove(&m_handler); }

private:
    DesktopHotKeys& m_owner;
    PressHandler m_handler;
};

class DesktopHotKeys::SuspensionToken : public Token {
public:
    explicit SuspensionToken(DesktopHotKeys& owner) : m_owner(owner) {
        ++m_owner.m_suspensions;
        m_owner.updateSuspension();
    }
    ~SuspensionToken() override {
        --m_owner.m_suspensions;
        m_owner.updateSuspension();
    }

private:
    DesktopHotKeys& m_owner;
};

class DesktopHotKeys::KeyRegistration : public Registration {
public:
    KeyRegistration(DesktopHotKeys& owner, std::uint32_t keyCode, std::uint32_t modifiers,
                    HotKeyIdentity identity, ChangeHandler onChange)
        : m_owner(owner),
          m_keyCode(keyCode),
          m_modifiers(modifiers),
          m_identity(identity),
          m_onChange(std::move(onChange)) {
        const std::pair asked(keyCode, modifiers);
        m_keepsChoice = m_owner.m_lastAsked.value_or(asked) == asked;
        m_owner.m_lastAsked = asked;
        m_owner.m_registrations.push_back(this);
        if (m_owner.m_keymap) {
            m_state = begin();
        }
    }
    ~KeyRegistration() override { m_owner.m_registrations.remove(this); }

    const HotKeyState& state() const override { return m_state; }

    void setSuspended(bool isSuspended) {
        if (m_shortcut) {
            m_shortcut->setSuspended(isSuspended);
        }
    }

    void followKeymap() {
        const auto accelerator = Accelerator::at(m_keyCode, m_modifiers, *m_owner.m_keymap);
        if (!m_hasBegun || accelerator != m_accelerator) {
            m_keepsChoice = m_keepsChoice && !m_hasBegun;
            turn(begin());
        }
    }

private:
    HotKeyState begin() {
        m_hasBegun = true;
        m_accelerator = Accelerator::at(m_keyCode, m_modifiers, *m_owner.m_keymap);
        m_waysLeft = shortcutWays(m_owner.m_desktops);
        return tryNextWay();
    }

    HotKeyState tryNextWay() {
        // The one before gives its shortcut back before the next one asks.
        m_shortcut.reset();
        if (!m_accelerator) {
            return HotKeyUnavailable{ShortcutStatus::noSuchKey,
                                     QStringLiteral("This keyboard has no such key.")};
        }
        const ShortcutWay way = m_waysLeft.front();
        m_waysLeft.erase(m_waysLeft.begin());
        if (way == ShortcutWay::User) {
            return userBinding(m_owner.m_desktops, *m_accelerator, m_owner.m_startCommand);
        }
        m_shortcut = makeShortcut(way);
        if (!m_shortcut) {
            return HotKeyUnavailable{
                ShortcutStatus::noSuchKey,
                QStringLiteral("The desktop can bind no shortcut to this key.")};
        }
        m_shortcut->setSuspended(m_owner.m_suspensions > 0);
        return HotKeyPending{};
    }

    std::unique_ptr<DesktopShortcut> makeShortcut(ShortcutWay way) {
        DesktopShortcut::Handlers handlers{
            [this](const ShortcutAnswer& answer) { handleAnswer(answer); },
            [this] { m_owner.report(m_identity); }};
        switch (way) {
        case ShortcutWay::Kde:
            if (const auto key = qtKeyOf(*m_accelerator)) {
                return std::make_unique<KdeShortcut>(m_owner.m_bus, *key, std::move(handlers));
            }
            return nullptr;
        case ShortcutWay::Portal:
            return std::make_unique<PortalShortcut>(m_owner.m_bus, *m_accelerator,
                                                    std::move(handlers));
        case ShortcutWay::Gnome:
            return std::make_unique<GnomeShortcut>(*m_accelerator, m_owner.m_startCommand,
                                                   m_keepsChoice, std::move(handlers));
        case ShortcutWay::User:
            break;
        }
        return nullptr;
    }

    void handleAnswer(const ShortcutAnswer& answer) {
        const auto* const state = std::get_if<HotKeyState>(&answer);
        turn(state != nullptr ? HotKeyState(*state) : tryNextWay());
    }

    void turn(HotKeyState state) {
        if (state == m_state) {
            return;
        }
        m_state = std::move(state);
        if (m_onChange) {
            // It may end this registration.
            const ChangeHandler onChange = m_onChange;
            onChange();
        }
    }

    DesktopHotKeys& m_owner;
    std::uint32_t m_keyCode;
    std::uint32_t m_modifiers;
    HotKeyIdentity m_identity;
    ChangeHandler m_onChange;
    /// Absent when the keyboard has no such key.
    std::optional<Accelerator> m_accelerator;
    /// Whether other keys that the desktop has for the launcher are the user's choice.
    bool m_keepsChoice = true;
    bool m_hasBegun = false;
    std::vector<ShortcutWay> m_waysLeft;
    /// Absent when nobody was asked.
    std::unique_ptr<DesktopShortcut> m_shortcut;
    HotKeyState m_state;
};

DesktopHotKeys::DesktopHotKeys(QDBusConnection bus, QStringList desktops, QString startCommand,
                               std::optional<Keymap> keymap)
    : m_bus(std::move(bus)),
      m_desktops(std::move(desktops)),
      m_startCommand(std::move(startCommand)),
      m_keymap(std::move(keymap)) {}

DesktopHotKeys::~DesktopHotKeys() = default;

std::unique_ptr<GlobalHotKeys::Token> DesktopHotKeys::installHandler(PressHandler handler) {
    return std::make_unique<HandlerToken>(*this, std::move(handler));
}

std::unique_ptr<GlobalHotKeys::Registration>
DesktopHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                               HotKeyIdentity identity, ChangeHandler onChange) {
    return std::make_unique<KeyRegistration>(*this, keyCode, modifiers, identity,
                                             std::move(onChange));
}

std::unique_ptr<GlobalHotKeys::Token> DesktopHotKeys::suspend() {
    return std::make_unique<SuspensionToken>(*this);
}

void DesktopHotKeys::setKeymap(const Keymap& keymap) {
    m_keymap = keymap;
    // Those who are told may end registrations and make others.
    const std::vector<KeyRegistration*> registrations(m_registrations.begin(),
                                                      m_registrations.end());
    for (KeyRegistration* const registration : registrations) {
        if (std::ranges::find(m_registrations, registration) != m_registrations.end()) {
            registration->followKeymap();
        }
    }
}

void DesktopHotKeys::report(HotKeyIdentity identity) const {
    // The handlers may come and go while they run.
    std::vector<PressHandler> handlers;
    for (const PressHandler* const handler : m_handlers) {
        handlers.push_back(*handler);
    }
    for (const PressHandler& handler : handlers) {
        handler(identity);
    }
}

void DesktopHotKeys::updateSuspension() {
    for (KeyRegistration* const registration : m_registrations) {
        registration->setSuspended(m_suspensions > 0);
    }
}

} // namespace quorvantel::platform
