#include "platform/linux/DesktopEntryApplications.h"

#include "platform/PrivateFile.h"
#include "platform/linux/ProgramSearch.h"
#include "platform/linux/TypedNames.h"
#include "platform/linux/XdgDirectories.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dirent.h>
#include <glib.h>
#include <sys/stat.h>

#include <chrono>
#include <deque>
#include <memory>
#include <utility>

namespace quorvantel::platform {

namespace {

constexpr qint64 maximumEntrySize = qint64{1024} * 1024;
constexpr int maximumFolderDepth = 10;
constexpr int maximumNames = 10'000;
constexpr std::chrono::milliseconds maximumTime{200};
constexpr QByteArrayView extension(".desktop");
constexpr const char* keywords = "Keywords";

struct FolderDeleter {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

/// A folder that was entered, and the desktop files in it.
struct EntryFolder {
    QString path;
    /// What the desktop file IDs of its files begin with.
    QString prefix;
    std::unique_ptr<DIR, FolderDeleter> folder;
    /// In the encoding of the file system.
    std::vector<QByteArray> files;

    int descriptor() const { return ::dirfd(folder.get()); }
    QString pathOf(const QByteArray& file) const { return path + u'/' + QFile::decodeName(file); }
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

    /// Enters the next folder.
    EntryFolder takeFolder() {
        const auto start = std::chrono::steady_clock::now();
        const Waiting waiting = m_waiting.front();
        m_waiting.pop_front();
        EntryFolder folder = enter(waiting);
        m_timeTaken += std::chrono::steady_clock::now() - start;
        return folder;
    }

    /// Whether folders were left out, once there is none to enter.
    bool isCutShort() const { return !m_waiting.empty(); }

private:
    struct Waiting {
        QString path;
        QString prefix;
        int depth;
    };

    EntryFolder enter(const Waiting& waiting) {
        EntryFolder folder{waiting.path, waiting.prefix, nullptr, {}};
        const QString canonical = QFileInfo(waiting.path).canonicalFilePath();
        if (canonical.isEmpty() || m_entered.contains(canonical)) {
            return folder;
        }
        m_entered.insert(canonical);
        folder.folder.reset(::opendir(QFile::encodeName(waiting.path).constData()));
        while (folder.folder && (waiting.depth == 0 || m_seen < maximumNames)) {
            const dirent* const entry = ::readdir(folder.folder.get());
            if (entry == nullptr) {
                break;
            }
            look(*entry, waiting, folder);
        }
        return folder;
    }

    void look(const dirent& entry, const Waiting& waiting, EntryFolder& folder) {
        const QByteArrayView name(entry.d_name);
        if (name == "." || name == "..") {
            return;
        }
        m_seen += waiting.depth > 0 ? 1 : 0;
        const auto type = typeOf(entry, folder.descriptor());
        // A name that is no text could not be told to whoever is to open the file.
        const bool isText = g_utf8_validate(entry.d_name, -1, nullptr) != FALSE;
        if (type == DT_REG && name.endsWith(extension) && isText) {
            folder.files.push_back(name.toByteArray());
        } else if (type == DT_DIR && waiting.depth < maximumFolderDepth) {
            const QString decoded = QFile::decodeName(entry.d_name);
            m_waiting.push_back({waiting.path + u'/' + decoded,
                                 waiting.prefix + decoded + QLatin1Char('-'), waiting.depth + 1});
        }
    }

    /// The type that came with the name; of a link, and where none came, that of what is there.
    static unsigned char typeOf(const dirent& entry, int folder) {
        if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) {
            return entry.d_type;
        }
        struct stat status {};
        if (::fstatat(folder, entry.d_name, &status, 0) != 0) {
            return DT_UNKNOWN;
        }
        return static_cast<unsigned char>(IFTODT(status.st_mode));
    }

    std::deque<Waiting> m_waiting;
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

InstalledApplication application(const EntryFolder& folder, const QByteArray& file,
                                 const DesktopEntry& entry, const QByteArray& currentDesktops) {
    const QString name = QFile::decodeName(file.chopped(extension.size()));
    if (entry.isHidden() || !entry.isShownIn(currentDesktops)) {
        InstalledApplication hidden;
        hidden.identifier = folder.prefix + name;
        hidden.isBackgroundOnly = true;
        return hidden;
    }
    return {
        .location = QUrl::fromLocalFile(folder.pathOf(file)),
        .identifier = folder.prefix + name,
        .localizedName = entry.localizedText(G_KEY_FILE_DESKTOP_KEY_NAME),
        .name = entry.text(G_KEY_FILE_DESKTOP_KEY_NAME),
        .fileName = typedFileName(name),
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
        if (m_nextFile < m_folder.files.size()) {
            readFile(m_folder.files[m_nextFile++], applications);
        } else if (m_finder && m_finder->hasFolder()) {
            m_folder = m_finder->takeFolder();
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
    void readFile(const QByteArray& file, std::vector<InstalledApplication>& applications) {
        FileContent content =
            readListedFile(m_folder.descriptor(), file.constData(), maximumEntrySize);
        if (const auto* error = std::get_if<FileError>(&content)) {
            report(file, describe(*error));
            return;
        }
        const DesktopEntry entry(std::get<QByteArray>(std::move(content)));
        if (const QString problem = defect(entry); !problem.isEmpty()) {
            report(file, problem);
            return;
        }
        // A program that is not installed is no fault: others that come later may do without it.
        if (entry.isHidden() || (isApplication(entry) && !entry.lacksProgram(m_programs))) {
            applications.push_back(application(m_folder, file, entry, m_currentDesktops));
        }
    }

    void report(const QByteArray& file, const QString& problem) const {
        m_owner.reportOnce(m_folder.pathOf(file), problem);
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
    ProgramSearch m_programs;
    qsizetype m_nextDirectory = 0;
    /// Of the directory that is being read.
    std::optional<EntryFinder> m_finder;
    /// The one that was entered last.
    EntryFolder m_folder;
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

void DesktopEntryApplications::reportOnce(const QString& path, const QString& problem) const {
    if (m_reported.contains(path)) {
        return;
    }
    m_reported.insert(path);
    qWarning("Quorvantel: ignoring %s: %s", qUtf8Printable(path), qUtf8Printable(problem));
}

} // namespace quorvantel::platform
