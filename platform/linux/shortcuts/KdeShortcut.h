#pragma once

#include "platform/linux/shortcuts/BusNameOwner.h"
#include "platform/linux/shortcuts/DesktopShortcut.h"
#include "platform/linux/shortcuts/KdeKeySequence.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QObject>

#include <memory>

namespace quorvantel::platform {

/// The launcher's shortcut among KDE's global shortcuts (`org.kde.KGlobalAccel`), which KWin itself
/// answers on Wayland.
///
/// KDE keeps beside the keys those that the program asked for, its "default". When that is what is
/// asked for now, the keys are what the user made of them in the system's settings, and they stay;
/// otherwise the launcher has another hotkey meanwhile, and takes it. While nobody answers for the
/// shortcuts the state is pending, and whoever comes to is asked, as after a restart of KWin.
class KdeShortcut : public QObject, public DesktopShortcut {
    Q_OBJECT

public:
    /// `qtKey` is what `qtKeyOf` makes of the hotkey.
    KdeShortcut(QDBusConnection bus, int qtKey, Handlers handlers);
    ~KdeShortcut() override;

    void setSuspended(bool isSuspended) override;

private Q_SLOTS:
    void pressed(const QDBusMessage& signal);
    void keysChanged(const QDBusMessage& signal);

private:
    /// What KDE has under the launcher's name.
    enum class Entry { None, Unknown, AsAsked, ChosenByUser };

    void followOwner();
    void ask();
    void take(bool keepsChoice);
    void settle(const KdeKeySequences& keys);
    void refuseTaken();
    void answer(const HotKeyState& state);
    QDBusMessage message(const char* method, const QVariantList& arguments) const;
    void send(const char* method, const QVariantList& arguments);
    template <typename Reply, typename Receiver>
    void call(const char* method, const QVariantList& arguments, Receiver receiver);

    QDBusConnection m_bus;
    int m_asked;
    Handlers m_handlers;
    BusNameOwner m_service;
    Entry m_entry = Entry::None;
    bool m_isSuspended = false;
    /// The calls under way; without it nobody waits for their answers any more.
    std::unique_ptr<QObject> m_conversation;
};

} // namespace quorvantel::platform
