#include "platform/linux/DesktopEntry.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvantel::platform {

namespace {

constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;

using Languages = std::vector<std::string_view>;

/// The user's languages by name, with and without country and encoding.
Languages userLanguages() {
    Languages languages;
    for (const gchar* const* name = g_get_language_names(); *name != nullptr; ++name) {
        languages.emplace_back(*name);
    }
    return languages;
}

bool startsGroup(std::string_view line) {
    const auto isSpace = [](char unit) { return unit == ' ' || (unit >= '\t' && unit <= '\r'); };
    const auto first = std::ranges::find_if_not(line, isSpace);
    return first != line.end() && *first == '[';
}

/// Whether a line is needed to tell whether the entry is installed, and its icon.
bool isAboutIcon(std::string_view line) {
    return line.starts_with("Icon") || line.starts_with("Hidden") || line.starts_with("TryExec") ||
           startsGroup(line);
}

/// Whether a line holds a translation into another language than the user's.
bool isForeign(std::string_view line, const Languages& languages) {
    // Few characters in all, among which a search by words would not get going.
    const auto* const bracket =
        std::ranges::find_if(line, [](char unit) { return unit == '[' || unit == '='; });
    if (bracket == line.end() || *bracket == '=') {
        return false;
    }
    const std::string_view rest = line.substr(static_cast<std::size_t>(bracket + 1 - line.begin()));
    const std::string_view key = rest.substr(0, rest.find('='));
    const std::size_t end = key.rfind(']');
    return end != std::string_view::npos && end > 0 && key.size() < rest.size() &&
           std::ranges::find(languages, key.substr(0, end)) == languages.end();
}

/// A file up to the end of its first group, without the translations into foreign languages. Most
/// of a file, and of the time that parsing it takes, are these and the further actions in other
/// groups.
QByteArray relevantPart(const QByteArray& content, DesktopEntry::Part wanted) {
    const Languages languages = userLanguages();
    QByteArray part;
    bool isInGroup = false;
    std::string_view rest(content.constData(), static_cast<std::size_t>(content.size()));
    while (!rest.empty()) {
        const std::size_t newline = rest.find('\n');
        const std::string_view line =
            newline == std::string_view::npos ? rest : rest.substr(0, newline + 1);
        rest.remove_prefix(line.size());
        if (startsGroup(line) && std::exchange(isInGroup, true)) {
            break;
        }
        if (wanted == DesktopEntry::Part::Icon ? isAboutIcon(line) : !isForeign(line, languages)) {
            part.append(line.data(), static_cast<qsizetype>(line.size()));
        }
    }
    return part;
}

/// Whether there is no such program, which is a path or a name in PATH.
bool isMissing(const QString& program) {
    return GText(g_find_program_in_path(QFile::encodeName(program).constData())) == nullptr;
}

QStringList textList(const GTextList& texts) {
    QStringList list;
    for (gchar** text = texts.get(); text != nullptr && *text != nullptr; ++text) {
        list.append(QString::fromUtf8(*text));
    }
    return list;
}

/// An icon's name in the theme, which has no extension. Many entries give a file name in its place.
QString themeName(const QString& icon) {
    for (const char* extension : {".png", ".svg", ".xpm"}) {
        if (icon.endsWith(QLatin1StringView(extension))) {
            return icon.chopped(4);
        }
    }
    return icon;
}

/// The words of a command line; none when its quoting is broken.
QStringList parsedCommand(const QByteArray& line) {
    gchar** words = nullptr;
    return g_shell_parse_argv(line.constData(), nullptr, &words, nullptr) != FALSE
               ? textList(GTextList(words))
               : QStringList();
}

} // namespace

DesktopEntry::DesktopEntry(const QByteArray& content, Part wanted) : m_file(g_key_file_new()) {
    const QByteArray part = relevantPart(content, wanted);
    GError* error = nullptr;
    if (!g_key_file_load_from_data(m_file.get(), part.constData(), static_cast<gsize>(part.size()),
                                   G_KEY_FILE_NONE, &error)) {
        m_syntaxError = QString::fromUtf8(GErrorPointer(error)->message);
    } else if (g_strcmp0(GText(g_key_file_get_start_group(m_file.get())).get(), group) != 0) {
        m_syntaxError =
            QStringLiteral("does not begin with \"[%1]\"").arg(QLatin1StringView(group));
    }
    m_command = parsedCommand(text(G_KEY_FILE_DESKTOP_KEY_EXEC).toUtf8());
}

// GLib words an error message for each key that is missing, even if nobody asks for it.

bool DesktopEntry::has(const char* key) const {
    return g_key_file_has_key(m_file.get(), group, key, nullptr) != FALSE;
}

QString DesktopEntry::text(const char* key) const {
    return has(key) ? QString::fromUtf8(
                          GText(g_key_file_get_string(m_file.get(), group, key, nullptr)).get())
                    : QString();
}

QString DesktopEntry::localizedText(const char* key) const {
    return text(localizedKey(key).constData());
}

QStringList DesktopEntry::texts(const char* key) const {
    return has(key) ? textList(GTextList(
                          g_key_file_get_string_list(m_file.get(), group, key, nullptr, nullptr)))
                    : QStringList();
}

QStringList DesktopEntry::localizedTexts(const char* key) const {
    return texts(localizedKey(key).constData());
}

bool DesktopEntry::flag(const char* key) const {
    return has(key) && g_key_file_get_boolean(m_file.get(), group, key, nullptr) != FALSE;
}

bool DesktopEntry::isHidden() const {
    return flag(G_KEY_FILE_DESKTOP_KEY_HIDDEN) || flag(G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY);
}

bool DesktopEntry::isShownIn(const QByteArray& currentDesktops) const {
    for (const QByteArray& desktop : currentDesktops.split(':')) {
        if (lists(G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN, desktop)) {
            return true;
        }
        if (lists(G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN, desktop)) {
            return false;
        }
    }
    return !has(G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN);
}

bool DesktopEntry::lacksProgram() const {
    const QString condition = text(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
    if (!condition.isEmpty() && isMissing(condition)) {
        return true;
    }
    return !m_command.isEmpty() && !flag(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE) &&
           isMissing(m_command.front());
}

Image DesktopEntry::icon() const {
    const QString icon = localizedText(G_KEY_FILE_DESKTOP_KEY_ICON);
    if (icon.isEmpty()) {
        return {};
    }
    return QDir::isAbsolutePath(icon) ? Image::file(icon) : Image::iconTheme(themeName(icon));
}

/// The key of the translation into the user's language that is there, else the key itself. An entry
/// translates only what it has in no particular language as well.
QByteArray DesktopEntry::localizedKey(const char* key) const {
    if (!has(key)) {
        return key;
    }
    for (const gchar* const* language = g_get_language_names(); *language != nullptr; ++language) {
        QByteArray translation = QByteArray(key) + '[' + *language + ']';
        if (has(translation.constData())) {
            return translation;
        }
    }
    return key;
}

bool DesktopEntry::lists(const char* key, const QByteArray& desktop) const {
    return texts(key).contains(QString::fromUtf8(desktop));
}

} // namespace quorvantel::platform
