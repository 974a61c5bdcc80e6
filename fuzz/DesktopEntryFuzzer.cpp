#include "Fuzzing.h"
#include "platform/linux/DesktopEntryApplications.h"

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
    const DesktopEntry entry(content);
    const DesktopEntry icon(content, DesktopEntry::Part::Icon);
    require(!entry.syntaxError().isEmpty() || icon.icon() == entry.icon());
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
