#include "platform/linux/shortcuts/KdeShortcut.h"

#include "platform/Directories.h"

#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QKeySequence>

#include <limits>
#include <utility>

namespace quorvantel::platform {

namespace {

/// Until the answer comes the state is pending, which is what is true.
constexpr int noTimeout = std::numeric_limits<int>::max();

const QString path = QStringLiteral("/kglobalaccel");
const QString shortcutsInterface = QStringLiteral("org.kde.KGlobalAccel");
const QString componentInterface = QStringLiteral("org.kde.kglobalaccel.Component");
const QString actionName = QStringLiteral("summon");

// The flags of setShortcutKeys.
constexpr unsigned int isPresent = 2;
constexpr unsigned int replacesStored = 4;
constexpr unsigned int isDefault = 8;

QString componentName() {
    return launcherIdentifier.toString();
}

QString componentPath() {
    return QStringLiteral("/component/") + componentName().replace(u'.', u'_');
}

/// Component and action by their names, then by what the user reads in the system's settings.
QStringList actionId() {
    return {componentName(), actionName, QStringLiteral("Quorvantel"),
            QStringLiteral("Show or hide the panel")};
}

bool isOurs(const QStringList& id) {
    return id.size() >= 2 && id.at(0) == componentName() && id.at(1) == actionName;
}

QVariant sequences(int key) {
    return QVariant::fromValue(KdeKeySequences{KdeKeySequence::of(key)});
}

int firstKey(const KdeKeySequences& keys) {
    for (const KdeKeySequence& sequence : keys) {
        if (sequence.firstKey() != 0) {
            return sequence.firstKey();
        }
    }
    return 0;
}

HotKeyUnavailable switchedOff() {
    return {ShortcutStatus::switchedOff,
            QStringLiteral("The hotkey is switched off in the system's settings."), true};
}

/// `holder` is a component and an action, as in `actionId`.
HotKeyUnavailable takenBy(const QStringList& holder) {
    if (holder.size() < 4) {
        return {ShortcutStatus::taken, QStringLiteral("Another program has this combination.")};
    }
    return {ShortcutStatus::taken,
            QStringLiteral("%1 has this combination for “%2”.").arg(holder.at(2), holder.at(3))};
}

} // namespace

KdeShortcut::KdeShortcut(QDBusConnection bus, int qtKey, Handlers handlers)
    : m_bus(std::move(bus)),
      m_asked(qtKey),
      m_handlers(std::move(handlers)),
      m_service(m_bus, QStringLiteral("org.kde.kglobalaccel")) {
    qDBusRegisterMetaType<KdeKeySequence>();
    qDBusRegisterMetaType<KdeKeySequences>();
    m_bus.connect({}, path, shortcutsInterface, QStringLiteral("yourShortcutsChanged"), this,
                  SLOT(keysChanged(QDBusMessage)));
    m_bus.connect({}, componentPath(), componentInterface, QStringLiteral("globalShortcutPressed"),
                  this, SLOT(pressed(QDBusMessage)));
    connect(&m_service, &BusNameOwner::changed, this, &KdeShortcut::followOwner);
}

KdeShortcut::~KdeShortcut() {
    if (m_entry == Entry::AsAsked) {
        // Merely inactive, it would still be refused to other programs.
        send("unregister", {componentName(), actionName});
    } else if (m_entry != Entry::None) {
        send("setInactive", {actionId()});
    }
}

void KdeShortcut::setSuspended(bool isSuspended) {
    if (std::exchange(m_isSuspended, isSuspended) == isSuspended) {
        return;
    }
    if (!isSuspended) {
        ask();
    } else if (m_entry != Entry::None) {
        m_conversation.reset();
        send("setInactive", {actionId()});
    }
}

void KdeShortcut::followOwner() {
    m_conversation.reset();
    m_entry = Entry::None;
    if (m_service.owner().isEmpty()) {
        answer(HotKeyPending{});
    } else {
        ask();
    }
}

void KdeShortcut::ask() {
    m_conversation.reset();
    if (m_isSuspended || m_service.owner().isEmpty()) {
        return;
    }
    m_conversation = std::make_unique<QObject>();
    m_entry = Entry::Unknown;
    send("doRegister", {actionId()});
    call<KdeKeySequences>("defaultShortcutKeys", {actionId()},
                          [this](const KdeKeySequences& keys) { take(firstKey(keys) == m_asked); });
}

void KdeShortcut::take(bool keepsChoice) {
    send("setShortcutKeys", {actionId(), sequences(m_asked), isDefault});
    const unsigned int flags = keepsChoice ? isPresent : isPresent | replacesStored;
    call<KdeKeySequences>("setShortcutKeys", {actionId(), sequences(m_asked), flags},
                          [this, keepsChoice](const KdeKeySequences& keys) {
                              if (!keepsChoice && firstKey(keys) == 0) {
                                  refuseTaken();
                              } else {
                                  settle(keys);
                              }
                          });
}

void KdeShortcut::settle(const KdeKeySequences& keys) {
    const int key = firstKey(keys);
    m_entry = key == m_asked ? Entry::AsAsked : Entry::ChosenByUser;
    if (key == 0) {
        answer(switchedOff());
        return;
    }
    answer(HotKeyRegistered{m_entry == Entry::AsAsked
                                ? QString()
                                : QKeySequence(key).toString(QKeySequence::NativeText)});
}

void KdeShortcut::refuseTaken() {
    // Without keys it would be taken for one that the user has switched off.
    send("unregister", {componentName(), actionName});
    m_entry = Entry::None;
    call<QStringList>("actionList", {QVariant::fromValue(KdeKeySequence::of(m_asked))},
                      [this](const QStringList& holder) { answer(takenBy(holder)); });
}

void KdeShortcut::pressed(const QDBusMessage& signal) {
    const QList<QVariant> arguments = signal.arguments();
    if (signal.service() != m_service.owner() || m_isSuspended || arguments.size() < 2 ||
        arguments.at(0) != componentName() || arguments.at(1) != actionName) {
        return;
    }
    const auto onPress = m_handlers.onPress;
    onPress();
}

void KdeShortcut::keysChanged(const QDBusMessage& signal) {
    const QList<QVariant> arguments = signal.arguments();
    if (signal.service() != m_service.owner() || arguments.size() < 2) {
        return;
    }
    if (isOurs(arguments.at(0).toStringList())) {
        settle(qdbus_cast<KdeKeySequences>(arguments.at(1)));
    } else if (m_entry == Entry::None) {
        // Another program may have lost the combination.
        ask();
    }
}

void KdeShortcut::answer(const HotKeyState& state) {
    const auto onAnswer = m_handlers.onAnswer;
    onAnswer(state);
}

QDBusMessage KdeShortcut::message(const char* method, const QVariantList& arguments) const {
    // By the owner's name, so that the bus starts no other program for it.
    QDBusMessage call = QDBusMessage::createMethodCall(m_service.owner(), path, shortcutsInterface,
                                                       QString::fromLatin1(method));
    call.setArguments(arguments);
    return call;
}

void KdeShortcut::send(const char* method, const QVariantList& arguments) {
    if (!m_service.owner().isEmpty()) {
        m_bus.send(message(method, arguments));
    }
}

template <typename Reply, typename Receiver>
void KdeShortcut::call(const char* method, const QVariantList& arguments, Receiver receiver) {
    auto* const watcher = new QDBusPendingCallWatcher(
        m_bus.asyncCall(message(method, arguments), noTimeout), m_conversation.get());
    connect(watcher, &QDBusPendingCallWatcher::finished, m_conversation.get(),
            [this, receiver = std::move(receiver)](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<Reply> reply = *finished;
                finished->deleteLater();
                if (reply.isError()) {
                    answer(
                        HotKeyUnavailable{ShortcutStatus::failed,
                                          QStringLiteral("The desktop has registered no hotkey: ") +
                                              reply.error().message()});
                } else {
                    receiver(reply.value());
                }
            });
}

} // namespace quorvantel::platform
