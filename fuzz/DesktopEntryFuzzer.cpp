#include "Fuzzing.h"
#include "platform/linux/DesktopEntryApplications.h"
#include "platform/linux/GLibPointers.h"

namespace {

using namespace quorvantel::fuzzing;
using namespace quorvantel::platform;

/// Lists any bytes as the one entry there is. What names an icon for the list does so for a row.
void list(const QByteArray& content) {
    const QString directory = temporaryPath(QStringLiteral("applications"));
    writeFile(directory + QStringLiteral("/org.example.App.desktop"), content);
    const DesktopEntryApplications applications({directory});
    const auto listing = applications.list();
    while (const auto found = listing->next()) {
        for (const InstalledApplication& application : *found) {
            require(application.isBackgroundOnly || !application.name.isEmpty());
        }
    }
}

QString textOf(const GText& text) {
    return text && g_utf8_validate(text.get(), -1, nullptr) ? QString::fromUtf8(text.get())
                                                            : QString();
}

/// GLib's reader of the same format, which is slower, says the same of a text with one group.
void compareWithGLib(const QByteArray& content) {
    constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;
    const GKeyFilePointer file(g_key_file_new());
    if (content.contains('\0') || !content.isValidUtf8() ||
        content.count('[') - content.count("[C]") > 1 ||
        !g_key_file_load_from_data(file.get(), content.constData(),
                                   static_cast<gsize>(content.size()), G_KEY_FILE_NONE, nullptr) ||
        textOf(GText(g_key_file_get_start_group(file.get()))) != QLatin1StringView(group)) {
        return;
    }
    const DesktopEntry entry(content);
    require(entry.syntaxError().isEmpty());
    for (const char* const key : {"Name", "Exec", "Icon", "Type", "Hidden", "Keywords"}) {
        require(entry.text(key) ==
                textOf(GText(g_key_file_get_string(file.get(), group, key, nullptr))));
        require(entry.flag(key) ==
                (g_key_file_get_boolean(file.get(), group, key, nullptr) != FALSE));
        gsize count = 0;
        const GTextList texts(g_key_file_get_string_list(file.get(), group, key, &count, nullptr));
        require(entry.texts(key).size() == static_cast<qsizetype>(count));
        for (gsize i = 0; i < count; ++i) {
            require(entry.texts(key)[static_cast<qsizetype>(i)] ==
                    QString::fromUtf8(texts.get()[i]));
        }
        if (g_key_file_has_key(file.get(), group, key, nullptr)) {
            require(entry.localizedText(key) == textOf(GText(g_key_file_get_locale_string(
                                                    file.get(), group, key, "C", nullptr))));
        }
    }
}

/// An argument as the Desktop Entry Specification quotes it: in double quotes, special characters
/// behind a backslash, and all of it again as the text of a key.
QByteArray quoted(const QString& argument) {
    QByteArray text = argument.toUtf8();
    for (const char* const special : {"\\", "\"", "`", "$"}) {
        text.replace(special, QByteArray("\\").append(special));
    }
    text.replace("\\", "\\\\").replace("\n", "\\n").replace("\r", "\\r").replace("\t", "\\t");
    return '"' + text + '"';
}

} // namespace

/// Any bytes as an entry, and as the arguments in one, which a null character separates: they are
/// those that come out.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray content = bytesOf(data, size);
    list(content);
    compareWithGLib(content);
    QStringList arguments{QStringLiteral("/usr/bin/a program")};
    for (const QByteArray& argument : content.split('\0')) {
        arguments.append(QString::fromUtf8(argument));
    }
    QByteArrayList words;
    for (const QString& argument : std::as_const(arguments)) {
        words.append(quoted(argument));
    }
    require(DesktopEntry("[Desktop Entry]\nExec=" + words.join(' ') + '\n').command() == arguments);
    return 0;
}
