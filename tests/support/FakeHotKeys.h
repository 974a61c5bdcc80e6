#pragma once

#include "platform/GlobalHotKeys.h"

#include <QSet>
#include <QStringList>

#include <utility>

namespace quorvantel::testing {

/// Grants every combination but the refused ones, with the status 10, and writes down what is in
/// force: "handler", and a combination as "modifiers+code".
class FakeHotKeys : public platform::GlobalHotKeys {
public:
    std::unique_ptr<Registration> installHandler(PressHandler pressHandler) override {
        handler = std::move(pressHandler);
        return std::make_unique<Entry>(*this, QStringLiteral("handler"));
    }

    RegistrationResult registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                      platform::HotKeyIdentity,
                                      StatusHandler statusHandler) override {
        const QString name = QStringLiteral("%1+%2").arg(modifiers).arg(keyCode);
        if (refused.contains(name)) {
            log << u'!' + name;
            return platform::HotKeyStatus{10};
        }
        onStatusChange = std::move(statusHandler);
        return std::make_unique<Entry>(*this, name);
    }

    /// In the order in which they came.
    QStringList registered;
    /// What came, went and was refused, as "+name", "-name" and "!name".
    QStringList log;
    QSet<QString> refused;
    PressHandler handler;
    StatusHandler onStatusChange;

private:
    class Entry : public Registration {
    public:
        Entry(FakeHotKeys& hotKeys, QString name) : m_hotKeys(hotKeys), m_name(std::move(name)) {
            m_hotKeys.registered << m_name;
            m_hotKeys.log << u'+' + m_name;
        }
        ~Entry() override {
            m_hotKeys.registered.removeOne(m_name);
            m_hotKeys.log << u'-' + m_name;
        }

    private:
        FakeHotKeys& m_hotKeys;
        QString m_name;
    };
};

} // namespace quorvantel::testing
