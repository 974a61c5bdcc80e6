#include "platform/linux/XdgLoginItem.h"

#include "platform/PrivateFile.h"
#include "platform/linux/DesktopEntry.h"
#include "platform/linux/XdgDirectories.h"

#include <QDebug>
#include <QFile>

#include <glib.h>

#include <utility>

namespace quorvantel::platform {

namespace {

constexpr qint64 maximumEntrySize = qint64{64} * 1024;

// Some desktops switch an entry off by a key of their own.
constexpr auto switchKey = "X-GNOME-Autostart-enabled";

QString entryFor(const QString& program) {
    // Not announced as a start that the user waits for, as nothing shows.
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Quorvantel\n"
                          "Comment=Find and open applications with a few keystrokes\n"
                          "Icon=%1\n"
                          "Exec=\"%2\"\n"
                          "TryExec=%2\n"
                          "StartupNotify=false\n"
                          "%3=true\n")
        .arg(launcherIdentifier, program, QLatin1String(switchKey));
}

} // namespace

XdgLoginItem::XdgLoginItem(QString program, std::function<void(const QString&)> tell)
    : m_program(std::move(program)),
      m_path(XdgDirectories().configuration() + QStringLiteral("/autostart/") + launcherIdentifier +
             QStringLiteral(".desktop")),
      m_tell(std::move(tell)) {}

bool XdgLoginItem::isEnabled() const {
    const FileContent content = readRegularFile(m_path, maximumEntrySize);
    const auto* const text = std::get_if<QByteArray>(&content);
    if (text == nullptr) {
        return false;
    }
    const DesktopEntry entry(*text);
    return !entry.flag(G_KEY_FILE_DESKTOP_KEY_HIDDEN) &&
           entry.text(switchKey) != QStringLiteral("false");
}

void XdgLoginItem::setEnabled(bool isEnabled) {
    if (!store(isEnabled)) {
        qWarning().noquote() << QStringLiteral("Quorvantel: cannot change ") + m_path;
        return;
    }
    m_tell(isEnabled ? QStringLiteral("Quorvantel starts at login")
                     : QStringLiteral("Quorvantel no longer starts at login"));
}

bool XdgLoginItem::store(bool isEnabled) const {
    return isEnabled ? replacePrivateFile(m_path, entryFor(m_program).toUtf8())
                     : QFile::remove(m_path) || !QFile::exists(m_path);
}

} // namespace quorvantel::platform
