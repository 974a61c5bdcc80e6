#include "platform/linux/DesktopSettingsPanels.h"

#include "platform/PrivateFile.h"
#include "platform/linux/DesktopEntry.h"
#include "platform/linux/GLibPointers.h"
#include "platform/linux/ProgramSearch.h"

#include <QFile>

#include <optional>
#include <utility>

namespace quorvantel::platform {

namespace {

constexpr qint64 maximumEntrySize = qint64{1024} * 1024;
constexpr QLatin1StringView extension(".desktop");
constexpr QStringView addressPrefix = u"x-apple.systempreferences:com.apple.";

/// The entry of an installed panel.
std::optional<DesktopEntry> readPanel(const QString& path) {
    const FileContent content = readRegularFile(path, maximumEntrySize);
    const auto* bytes = std::get_if<QByteArray>(&content);
    if (bytes == nullptr) {
        return std::nullopt;
    }
    DesktopEntry entry(*bytes);
    ProgramSearch programs;
    const bool isInstalled = entry.syntaxError().isEmpty() &&
                             !entry.flag(G_KEY_FILE_DESKTOP_KEY_HIDDEN) &&
                             !entry.lacksCondition(programs);
    return isInstalled ? std::optional(std::move(entry)) : std::nullopt;
}

} // namespace

DesktopSettingsPanels::DesktopSettingsPanels(QStringList directories, QByteArray currentDesktops)
    : m_directories(std::move(directories)),
      m_currentDesktops(std::move(currentDesktops)),
      m_table(SettingsPanelTable::builtIn()) {}

QHash<QString, Image> DesktopSettingsPanels::installedIcons() const {
    QHash<QString, Image> icons;
    const QHash<QString, QString> paths = listEntries();
    QHash<QString, std::optional<Image>> iconsByEntry;
    const auto iconOf = [&](const QString& name) {
        const auto known = iconsByEntry.constFind(name);
        if (known != iconsByEntry.cend()) {
            return *known;
        }
        const auto entry = readPanel(paths.value(name));
        return *iconsByEntry.insert(name, entry ? std::optional(entry->icon()) : std::nullopt);
    };
    for (const QString& pane : m_table.panes()) {
        for (const SettingsPanel& panel : m_table.panels(pane, m_currentDesktops)) {
            if (!paths.contains(panel.entry)) {
                continue;
            }
            const auto icon = panel.isPane ? iconOf(panel.entry) : Image();
            if (icon && !icon->isNull()) {
                icons.insert(addressPrefix + pane, *icon);
            }
            if (icon) {
                break;
            }
        }
    }
    return icons;
}

QStringList DesktopSettingsPanels::entries(const QUrl& url) const {
    QStringList entries;
    const QString address = url.toString();
    if (!address.startsWith(addressPrefix)) {
        return entries;
    }
    const QHash<QString, QString> paths = listEntries();
    const QString pane = address.mid(addressPrefix.size());
    for (const SettingsPanel& panel : m_table.panels(pane, m_currentDesktops)) {
        const QString path = paths.value(panel.entry);
        if (!path.isEmpty() && readPanel(path)) {
            entries.append(path);
        }
    }
    entries.removeDuplicates();
    return entries;
}

QHash<QString, QString> DesktopSettingsPanels::listEntries() const {
    QHash<QString, QString> paths;
    for (const QString& directory : m_directories) {
        const GDirPointer files(g_dir_open(QFile::encodeName(directory).constData(), 0, nullptr));
        while (const char* const file = files ? g_dir_read_name(files.get()) : nullptr) {
            const QString name = QFile::decodeName(file);
            if (!name.endsWith(extension)) {
                continue;
            }
            // An entry takes the place of those in the directories after its own.
            QString& path = paths[name.chopped(extension.size())];
            path = path.isEmpty() ? directory + u'/' + name : path;
        }
    }
    return paths;
}

} // namespace quorvantel::platform
