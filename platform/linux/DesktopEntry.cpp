#include "platform/linux/DesktopEntry.h"

#include "platform/linux/GLibPointers.h"
#include "platform/linux/ProgramSearch.h"

#include <QDir>

#include <glib.h>

#include <string>
#include <string_view>

namespace quorvantel::platform {

namespace {

using Value = std::optional<std::string_view>;

/// Empty for what is not UTF-8.
QString decoded(std::string_view text) {
    if (!g_utf8_validate_len(text.data(), text.size(), nullptr)) {
        return {};
    }
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// What an escape stands for, by the character behind the backslash.
std::optional<char> escaped(char character) {
    switch (character) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    case '\\':
        return '\\';
    default:
        return std::nullopt;
    }
}

struct Texts {
    std::vector<std::string> texts = std::vector<std::string>(1);
    /// Whether each backslash begins an escape.
    bool isSound = true;
};

/// The texts of a value, which `separator` separates, and which may end with one.
Texts splitTexts(std::string_view value, std::optional<char> separator) {
    Texts split;
    for (std::size_t i = 0; i < value.size(); ++i) {
        std::string& text = split.texts.back();
        if (value[i] == separator) {
            split.texts.emplace_back();
        } else if (value[i] != '\\') {
            text += value[i];
        } else if (++i == value.size()) {
            split.isSound = false;
        } else {
            const auto character = value[i] == separator ? separator : escaped(value[i]);
            split.isSound = split.isSound && character.has_value();
            text += character ? std::string(1, *character) : std::string{'\\', value[i]};
        }
    }
    return split;
}

/// What is no escape stays as it is.
QString text(Value value) {
    if (!value) {
        return {};
    }
    return decoded(value->find('\\') == std::string_view::npos
                       ? *value
                       : std::string_view(splitTexts(*value, std::nullopt).texts.front()));
}

/// None where something is no escape.
QStringList texts(Value value) {
    QStringList list;
    if (!value || g_utf8_validate_len(value->data(), value->size(), nullptr) == FALSE) {
        return list;
    }
    const Texts split = splitTexts(*value, ';');
    for (const std::string& text : split.texts) {
        list.append(QString::fromStdString(text));
    }
    if (list.back().isEmpty()) {
        list.removeLast();
    }
    return split.isSound ? list : QStringList();
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

QString DesktopEntry::text(const char* key) const {
    return platform::text(m_group.value(key));
}

QString DesktopEntry::localizedText(const char* key) const {
    return platform::text(m_group.localizedValue(key));
}

QStringList DesktopEntry::texts(const char* key) const {
    return platform::texts(m_group.value(key));
}

QStringList DesktopEntry::localizedTexts(const char* key) const {
    return platform::texts(m_group.localizedValue(key));
}

const QStringList& DesktopEntry::command() const {
    if (!m_command) {
        m_command = parsedCommand(text(G_KEY_FILE_DESKTOP_KEY_EXEC).toUtf8());
    }
    return *m_command;
}

bool DesktopEntry::flag(const char* key) const {
    std::string_view value = m_group.value(key).value_or("");
    while (!value.empty() && g_ascii_isspace(value.back())) {
        value.remove_suffix(1);
    }
    return value == "true" || value == "1";
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
    return !m_group.value(G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN);
}

bool DesktopEntry::lacksCondition(ProgramSearch& programs) const {
    const QString condition = text(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
    return !condition.isEmpty() && !programs.finds(condition);
}

bool DesktopEntry::lacksProgram(ProgramSearch& programs) const {
    return lacksCondition(programs) ||
           (!command().isEmpty() && !flag(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE) &&
            !programs.finds(command().front()));
}

Image DesktopEntry::icon() const {
    const QString icon = localizedText(G_KEY_FILE_DESKTOP_KEY_ICON);
    if (icon.isEmpty()) {
        return {};
    }
    return QDir::isAbsolutePath(icon) ? Image::file(icon) : Image::iconTheme(themeName(icon));
}

bool DesktopEntry::lists(const char* key, const QByteArray& desktop) const {
    return m_group.value(key) && texts(key).contains(QString::fromUtf8(desktop));
}

} // namespace quorvantel::platform
