#include "platform/linux/DesktopEntry.h"

#include <QDir>

namespace quorvantel::platform {

namespace {

constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;

/// Whether a line translates a text that nobody asks for here.
bool isIdleTranslation(QByteArrayView line) {
    const qsizetype locale = line.indexOf('[');
    return locale > 0 && locale < line.indexOf('=') && !line.startsWith("Name[") &&
           !line.startsWith("Icon[");
}

/// Whether a line is needed to tell whether the entry is installed, and its icon.
bool isAboutIcon(QByteArrayView line) {
    return line.startsWith("Icon") || line.startsWith("Hidden") || line.startsWith("TryExec") ||
           line.startsWith('[');
}

/// The main group of a desktop file and what precedes it. Most of a file, and of the time that
/// parsing it takes, are translations of comments and of the further actions in other groups.
QByteArray relevantPart(const QByteArray& content, DesktopEntry::Part wanted) {
    QByteArray part;
    part.reserve(wanted == DesktopEntry::Part::Icon ? 0 : content.size());
    bool isInMainGroup = false;
    for (qsizetype begin = 0; begin < content.size();) {
        const qsizetype newline = content.indexOf('\n', begin);
        const qsizetype end = newline < 0 ? content.size() : newline + 1;
        const QByteArrayView line = QByteArrayView(content).sliced(begin, end - begin).trimmed();
        if (line.startsWith('[')) {
            if (isInMainGroup) {
                break;
            }
            isInMainGroup = line == "[Desktop Entry]";
        }
        if (wanted == DesktopEntry::Part::Icon ? isAboutIcon(line) : !isIdleTranslation(line)) {
            part.append(content.constData() + begin, end - begin);
        }
        begin = end;
    }
    return part;
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

} // namespace

DesktopEntry::DesktopEntry(const QByteArray& content, Part wanted) : m_file(g_key_file_new()) {
    const QByteArray part = relevantPart(content, wanted);
    GError* error = nullptr;
    if (!g_key_file_load_from_data(m_file.get(), part.constData(), static_cast<gsize>(part.size()),
                                   G_KEY_FILE_NONE, &error)) {
        m_syntaxError = QString::fromUtf8(GErrorPointer(error)->message);
    } else if (!g_key_file_has_group(m_file.get(), group)) {
        m_syntaxError = QStringLiteral("no group \"%1\"").arg(QLatin1StringView(group));
    }
}

QString DesktopEntry::text(const char* key) const {
    return QString::fromUtf8(GText(g_key_file_get_string(m_file.get(), group, key, nullptr)).get());
}

QString DesktopEntry::localizedText(const char* key) const {
    return QString::fromUtf8(
        GText(g_key_file_get_locale_string(m_file.get(), group, key, nullptr, nullptr)).get());
}

bool DesktopEntry::flag(const char* key) const {
    return g_key_file_get_boolean(m_file.get(), group, key, nullptr) != FALSE;
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
    return g_key_file_has_key(m_file.get(), group, G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN, nullptr) ==
           FALSE;
}

bool DesktopEntry::lacksProgram() const {
    const QByteArray program = text(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC).toUtf8();
    return !program.isEmpty() && GText(g_find_program_in_path(program.constData())) == nullptr;
}

Image DesktopEntry::icon() const {
    const QString icon = localizedText(G_KEY_FILE_DESKTOP_KEY_ICON);
    if (icon.isEmpty()) {
        return {};
    }
    return QDir::isAbsolutePath(icon) ? Image::file(icon) : Image::iconTheme(themeName(icon));
}

bool DesktopEntry::lists(const char* key, const QByteArray& desktop) const {
    const GTextList names(g_key_file_get_string_list(m_file.get(), group, key, nullptr, nullptr));
    return names && g_strv_contains(names.get(), desktop.constData()) != FALSE;
}

} // namespace quorvantel::platform
