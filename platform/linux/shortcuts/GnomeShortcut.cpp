#include "platform/linux/shortcuts/GnomeShortcut.h"

#include <utility>

namespace quorvantel::platform {

namespace {

constexpr auto listSchema = "org.gnome.settings-daemon.plugins.media-keys";
constexpr auto entrySchema = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr auto listKey = "custom-keybindings";
constexpr auto nameKey = "name";
constexpr auto commandKey = "command";
constexpr auto bindingKey = "binding";

const QString entryPath =
    QStringLiteral("/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/quorvantel/");

/// The connection to the session bus that the settings share with all of the process would end it
/// together with the bus.
void outliveSessionBus() {
    const auto connected = +[](GObject* /*source*/, GAsyncResult* result, gpointer /*data*/) {
        const GObjectPointer<GDBusConnection> connection(g_bus_get_finish(result, nullptr));
        if (connection) {
            g_dbus_connection_set_exit_on_close(connection.get(), FALSE);
        }
    };
    g_bus_get(G_BUS_TYPE_SESSION, nullptr, connected, nullptr);
}

} // namespace

GnomeShortcut::GnomeShortcut(const Accelerator& accelerator, QString command, bool keepsChoice,
                             Handlers handlers)
    : m_asked(accelerator),
      m_command(std::move(command)),
      m_keepsChoice(keepsChoice),
      m_handlers(std::move(handlers)),
      m_list(GnomeSettings::find(listSchema)),
      m_entry(GnomeSettings::find(entrySchema, entryPath)),
      m_table([this] { follow(); }) {
    outliveSessionBus();
    QMetaObject::invokeMethod(
        &m_context, [this] { begin(); }, Qt::QueuedConnection);
}

GnomeShortcut::~GnomeShortcut() {
    if (!m_isPut) {
        return;
    }
    const auto held = fromGtkAccelerator(m_entry->text(bindingKey));
    if (!held || !held->isSameAs(m_asked)) {
        enlist(isListed() || m_isWithheld);
        return;
    }
    enlist(false);
    for (const char* const key : {nameKey, commandKey, bindingKey}) {
        m_entry->reset(key);
    }
}

void GnomeShortcut::setSuspended(bool isSuspended) {
    if (std::exchange(m_isSuspended, isSuspended) == isSuspended || !m_isPut) {
        return;
    }
    // Out of the list but not emptied, so that nothing is lost should the launcher end meanwhile.
    if (isSuspended) {
        m_isWithheld = isListed();
        enlist(false);
    } else if (std::exchange(m_isWithheld, false)) {
        enlist(true);
    }
}

void GnomeShortcut::begin() {
    if (!m_list || !m_entry || !m_list->isWritable(listKey) || !m_entry->isWritable(bindingKey)) {
        answer(ShortcutNotOffered{});
        return;
    }
    m_entry->observe([this] { follow(); });
    put();
    answer(state());
}

void GnomeShortcut::put() {
    const bool isChosen = m_keepsChoice && isListed();
    if (!isChosen && purposeOf(m_asked)) {
        // Refused means none, not the one from before.
        enlist(false);
        return;
    }
    m_isPut = true;
    m_entry->setText(nameKey, QStringLiteral("Quorvantel"));
    m_entry->setText(commandKey, m_command);
    if (!isChosen) {
        m_entry->setText(bindingKey, written(m_asked, gtkSyntax));
    }
    m_isWithheld = m_isSuspended;
    enlist(!m_isWithheld);
}

bool GnomeShortcut::isListed() const {
    return m_list->list(listKey).contains(entryPath);
}

void GnomeShortcut::enlist(bool shallBeListed) {
    if (isListed() == shallBeListed) {
        return;
    }
    QStringList paths = m_list->list(listKey);
    if (shallBeListed) {
        paths += entryPath;
    } else {
        paths.removeAll(entryPath);
    }
    m_list->setList(listKey, paths);
}

void GnomeShortcut::follow() {
    // Several settings change at once, the launcher's own among them.
    if (std::exchange(m_isFollowPending, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        &m_context,
        [this] {
            m_isFollowPending = false;
            if (m_isSuspended) {
                return;
            }
            if (!m_isPut) {
                put();
            }
            answer(state());
        },
        Qt::QueuedConnection);
}

HotKeyState GnomeShortcut::state() const {
    std::optional<Accelerator> held = m_asked;
    if (m_isPut) {
        held = isListed() ? fromGtkAccelerator(m_entry->text(bindingKey)) : std::nullopt;
    }
    if (!held) {
        return HotKeyUnavailable{
            ShortcutStatus::switchedOff,
            QStringLiteral("The hotkey is switched off in the system's settings."), true};
    }
    if (const auto purpose = purposeOf(*held)) {
        return HotKeyUnavailable{
            ShortcutStatus::taken,
            QStringLiteral("GNOME has this combination for “%1”.").arg(*purpose)};
    }
    return HotKeyRegistered{held->isSameAs(m_asked) ? QString() : readable(*held)};
}

std::optional<QString> GnomeShortcut::purposeOf(const Accelerator& accelerator) const {
    for (const QString& path : m_list->list(listKey)) {
        const auto other = path == entryPath ? nullptr : GnomeSettings::find(entrySchema, path);
        const auto held = other ? fromGtkAccelerator(other->text(bindingKey)) : std::nullopt;
        if (held && held->isSameAs(accelerator)) {
            return other->text(nameKey);
        }
    }
    return m_table.purposeOf(accelerator);
}

void GnomeShortcut::answer(const ShortcutAnswer& answer) {
    const auto onAnswer = m_handlers.onAnswer;
    onAnswer(answer);
}

} // namespace quorvantel::platform
