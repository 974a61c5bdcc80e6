#include "help/SystemText.h"

#include <QStringList>
#include <QSysInfo>

#include <optional>

namespace quorvantel::help {

namespace {

/// The system that the lines below a marker are for, empty for all; nothing for any other line.
std::optional<QStringView> systemMarkedBy(QStringView line) {
    constexpr QStringView begin = u"<!-- only on ";
    constexpr QStringView end = u" -->";
    const QStringView text = line.trimmed();
    if (text == u"<!-- everywhere -->") {
        return QStringView();
    }
    return text.size() > begin.size() + end.size() && text.startsWith(begin) && text.endsWith(end)
               ? std::optional(text.sliced(begin.size()).chopped(end.size()))
               : std::nullopt;
}

} // namespace

QString textForSystem(const QString& markdown, const QString& system) {
    QStringList shown;
    bool isShown = true;
    const QStringList lines = markdown.split(u'\n');
    for (const QString& line : lines) {
        if (const auto marked = systemMarkedBy(line)) {
            isShown = marked->isEmpty() || *marked == system;
        } else if (isShown) {
            shown.append(line);
        }
    }
    return shown.join(u'\n');
}

QString runningSystem() {
    return QSysInfo::kernelType() == QStringLiteral("darwin") ? QStringLiteral("macOS")
                                                              : QStringLiteral("Linux");
}

} // namespace quorvantel::help
