#pragma once

#include "platform/GlobalHotKeys.h"

#include <QSet>
#include <QStringList>

#include <utility>

namespace quorvantel::testing {

/// Answers as the test says, and refuses some combinations at once with the status 10. Writes down
/// what is in force: "handler", "suspension", and a combination as "modifiers+code".
class FakeHotKeys : public platform::GlobalHotKeys {
public:
    std::unique_ptr<Token> installHandler(PressHandler pressHandler) override {
        handler = std::move(pressHandler);
        return std::make_unique<Entry<Token>>(*this, QStringLiteral("handler"));
    }

    std::unique_ptr<Registration> registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 platform::HotKeyIdentity,
                                                 ChangeHandler changeHandler) override {
        const QString name = QStringLiteral("%1+%2").arg(modifiers).arg(keyCode);
        onChange = std::move(changeHandler);
        current = refused.contains(name) ? refusal : answer;
        return std::make_unique<KeyEntry>(*this, name);
    }

    std::unique_ptr<Token> suspend() override {
        return std::make_unique<Entry<Token>>(*this, QStringLiteral("suspension"));
    }

    /// Gives the latest registration another state.
    void turn(platform::HotKeyState state) {
        current = std::move(state);
        const ChangeHandler tell = onChange;
        tell();
    }

    static inline const platform::HotKeyState refusal = platform::HotKeyUnavailable{10, {}};

    /// In the order in which they came.
    QStringList registered;
    /// What came and went, as "+name" and "-name".
    QStringList log;
    QSet<QString> refused;
    /// What a combination that is not refused is told at first.
    platform::HotKeyState answer = platform::HotKeyRegistered{};
    PressHandler handler;

private:
    template <typename Base>
    class Entry : public Base {
    public:
        Entry(FakeHotKeys& hotKeys, QString name) : m_hotKeys(hotKeys), m_name(std::move(name)) {
            m_hotKeys.registered << m_name;
            m_hotKeys.log << u'+' + m_name;
        }
        ~Entry() override {
            m_hotKeys.registered.removeOne(m_name);
            m_hotKeys.log << u'-' + m_name;
        }

    protected:
        FakeHotKeys& m_hotKeys;

    private:
        QString m_name;
    };

    class KeyEntry : public Entry<Registration> {
    public:
        using Entry::Entry;
        const platform::HotKeyState& state() const override { return m_hotKeys.current; }
    };

    platform::HotKeyState current;
    ChangeHandler onChange;
};

} // namespace quorvantel::testing
