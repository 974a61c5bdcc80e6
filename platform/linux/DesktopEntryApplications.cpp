#include "platform/linux/DesktopEntryApplications.h"

#include "platform/PrivateFile.h"
#include "platform/linux/TypedNames.h"
#include "platform/linux/XdgDirectories.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <deque>
#include <utility>

namespace quorvantel::platform {

namespace {

constexpr qint64 maximumEntrySize = qint64{1024} * 1024;
constexpr int maximumFolderDepth = 10;
constexpr int maximumNames = 10'000;
constexpr std::chrono::milliseconds maximumTime{200};
constexpr QLatin1StringView extension(".desktop");
constexpr const char* keywords = "Keywords";

/// A desktop file and its desktop file ID without the extension.
struct EntryFile {
    QString path;
    QString identifier;
};

/// Finds the desktop files in a folder and the folders in it, each of which is entered once, by the
/// shortest path.
///
/// A link may lead to anything, such as the whole disk. So the walk ends after so many names in
/// folders, and after so much time, but never before the files of the folder itself.
class EntryFinder {
public:
    explicit EntryFinder(const QString& root) { m_waiting.push_back({root, {}, 0}); }

    /// Whether there is another folder to enter; false as well after too much.
    bool hasFolder() const {
        const bool isBegun = !m_entered.isEmpty();
        return !m_waiting.empty() &&
               !(isBegun && (m_seen >= maximumNames || m_timeTaken >= maximumTime));
    }

    /// Enters the next folder and returns the files in it.
    std::vector<EntryFile> takeFolder() {
        const auto start = std::chrono::steady_clock::now();
        const Folder folder = m_waiting.front();
        m_waiting.pop_front();
        std::vector<EntryFile> files = enter(folder);
        m_timeTaken += std::chrono::steady_clock::now() - start;
        return files;
    }

    /// Whether folders were left out, once there is none to enter.
    bool isCutShort() const { return !m_waiting.empty(); }

private:
    struct Folder {
        QString path;
        QString prefix;
        int depth;
    };

    std::vector<EntryFile> enter(const Folder& folder) {
        std::vector<EntryFile> files;
        const QString canonical = QFileInfo(folder.path).canonicalFilePath();
        if (canonical.isEmpty() || m_entered.contains(canonical)) {
            return files;
        }
        m_entered.insert(canonical);
        QDirIterator entries(folder.path,
                             QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
        while (entries.hasNext() && (folder.depth == 0 || m_seen < maximumNames)) {
            entries.next();
            m_seen += folder.depth > 0 ? 1 : 0;
            const QString name = entries.fileName();
            if (name.endsWith(extension) && !entries.fileInfo().isDir()) {
                files.push_back(
                    {entries.filePath(), folder.prefix + name.chopped(extension.size())});
            } else if (folder.depth < maximumFolderDepth && entries.fileInfo().isDir()) {
                m_waiting.push_back({entries.filePath(), folder.prefix + name + QLatin1Char('-'),
                                     folder.depth + 1});
            }
        }
        return files;
    }

    std::deque<Folder> m_waiting;
    int m_seen = 0;
    std::chrono::steady_clock::duration m_timeTaken{};
    QSet<QString> m_entered;
};

bool isApplication(const DesktopEntry& entry) {
    return entry.text(G_KEY_FILE_DESKTOP_KEY_TYPE) ==
           QLatin1StringView(G_KEY_FILE_DESKTOP_TYPE_APPLICATION);
}

/// What keeps an entry from being a valid one; empty when nothing does.
QString defect(const DesktopEntry& entry) {
    if (!entry.syntaxError().isEmpty()) {
        return entry.syntaxError();
    }
    // Users hide an entry by one of the same name that holds nothing but the key to that.
    if (entry.isHidden()) {
        return {};
    }
    for (const char* key : {G_KEY_FILE_DESKTOP_KEY_TYPE, G_KEY_FILE_DESKTOP_KEY_NAME}) {
        if (entry.text(key).isEmpty()) {
            return QStringLiteral("no valid \"%1\"").arg(QLatin1StringView(key));
        }
    }
    const bool isCommandOptional =
        !isApplication(entry) || (entry.text(G_KEY_FILE_DESKTOP_KEY_EXEC).isEmpty() &&
                                  entry.flag(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE));
    if (!isCommandOptional && entry.command().isEmpty()) {
        return QStringLiteral("no valid \"Exec\"");
    }
    return {};
}

/// The words for the kind of application and for what it is used for.
QString descriptiveWords(const DesktopEntry& entry) {
    QString words = entry.localizedText(G_KEY_FILE_DESKTOP_KEY_GENERIC_NAME) + u' ' +
                    entry.text(G_KEY_FILE_DESKTOP_KEY_GENERIC_NAME);
    for (const QStringList& texts : {entry.localizedTexts(keywords), entry.texts(keywords)}) {
        for (const QString& text : texts) {
            words += u' ' + text;
        }
    }
    return words;
}

/// A program that is not installed is no fault: others that come later may do without it.
bool isUsable(const DesktopEntry& entry) {
    return isApplication(entry) && !entry.lacksProgram();
}

InstalledApplication application(const EntryFile& file, const DesktopEntry& entry,
                                 const QByteArray& currentDesktops) {
    if (entry.isHidden() || !entry.isShownIn(currentDesktops)) {
        InstalledApplication hidden;
        hidden.identifier = file.identifier;
        hidden.isBackgroundOnly = true;
        return hidden;
    }
    return {
        .location = QUrl::fromLocalFile(file.path),
        .identifier = file.identifier,
        .localizedName = entry.localizedText(G_KEY_FILE_DESKTOP_KEY_NAME),
        .name = entry.text(G_KEY_FILE_DESKTOP_KEY_NAME),
        .fileName = typedFileName(QFileInfo(file.path).fileName().chopped(extension.size())),
        .secondaryNames = {descriptiveWords(entry), typedProgram(entry.command())},
        .isBackgroundOnly = false,
        .icon = entry.icon(),
    };
}

} // namespace

class DesktopEntryApplications::EntryListing : public Listing {
public:
    explicit EntryListing(const DesktopEntryApplications& owner) : m_owner(owner) {}

    std::optional<std::vector<InstalledApplication>> next() override {
        std::vector<InstalledApplication> applications;
        if (m_nextFile < m_files.size()) {
            readFile(m_files[m_nextFile++], applications);
        } else if (m_finder && m_finder->hasFolder()) {
            m_files = m_finder->takeFolder();
            m_nextFile = 0;
        } else if (m_nextDirectory < m_owner.m_directories.size()) {
            endDirectory();
            m_finder.emplace(m_owner.m_directories[m_nextDirectory++]);
        } else {
            endDirectory();
            return std::nullopt;
        }
        return applications;
    }

private:
    void readFile(const EntryFile& file, std::vector<InstalledApplication>& applications) const {
        const std::optional<DesktopEntry> entry = m_owner.read(file.path);
        if (entry && (entry->isHidden() || isUsable(*entry))) {
            applications.push_back(application(file, *entry, m_currentDesktops));
        }
    }

    void endDirectory() {
        if (m_finder && m_finder->isCutShort()) {
            m_owner.reportOnce(QStringLiteral("some folders in ") +
                                   m_owner.m_directories[m_nextDirectory - 1],
                               QStringLiteral("there is too much in them"));
        }
        m_finder.reset();
    }

    const DesktopEntryApplications& m_owner;
    QByteArray m_currentDesktops = qgetenv("XDG_CURRENT_DESKTOP");
    qsizetype m_nextDirectory = 0;
    /// Of the directory that is being read.
    std::optional<EntryFinder> m_finder;
    /// Of the folder that was entered last.
    std::vector<EntryFile> m_files;
    std::size_t m_nextFile = 0;
};

QStringList DesktopEntryApplications::standardDirectories() {
    QByteArray shared = qgetenv("XDG_DATA_DIRS");
    if (shared.isEmpty()) {
        shared = QByteArrayLiteral("/usr/local/share:/usr/share");
    }
    QStringList directories{XdgDirectories().applicationSupport() +
                            QStringLiteral("/applications")};
    for (const QByteArray& name : shared.split(':')) {
        const QString directory = QFile::decodeName(name);
        if (QDir::isAbsolutePath(directory)) {
            directories.append(QDir::cleanPath(directory + QStringLiteral("/applications")));
        }
    }
    directories.removeDuplicates();
    return directories;
}

DesktopEntryApplications::DesktopEntryApplications(QStringList directories)
    : m_directories(std::move(directories)) {}

std::unique_ptr<InstalledApplications::Listing> DesktopEntryApplications::list() const {
    return std::make_unique<EntryListing>(*this);
}

std::optional<DesktopEntry> DesktopEntryApplications::read(const QString& path) const {
    const FileContent content = readRegularFile(path, maximumEntrySize);
    if (const auto* error = std::get_if<FileError>(&content)) {
        reportOnce(path, describe(*error));
        return std::nullopt;
    }
    DesktopEntry entry(std::get<QByteArray>(content));
    const QString problem = defect(entry);
    if (!problem.isEmpty()) {
        reportOnce(path, problem);
        return std::nullopt;
    }
    return entry;
}

void DesktopEntryApplications::reportOnce(const QString& path, const QString& problem) const {
    if (m_reported.contains(path)) {
        return;
    }
    m_reported.insert(path);
    qWarning("Quorvantel: ignoring %s: %s", qUtf8Printable(path), qUtf8Printable(problem));
}

} // namespace quorvantel::platform
