#include "platform/linux/TypedNames.h"

#include <algorithm>
#include <array>

namespace quorvantel::platform {

namespace {

/// Last parts of reverse domain names that many applications share.
constexpr std::array<QStringView, 6> idleParts{u"app",     u"application", u"client",
                                               u"desktop", u"main",        u"studio"};

/// Programs that run what their arguments name.
constexpr std::array<QStringView, 33> wrappers{u"bash",
                                               u"dash",
                                               u"dbus-launch",
                                               u"dbus-run-session",
                                               u"dbus-send",
                                               u"electron",
                                               u"exo-open",
                                               u"flatpak",
                                               u"gapplication",
                                               u"gdbus",
                                               u"gio",
                                               u"gjs",
                                               u"gnome-control-center",
                                               u"gnome-session-quit",
                                               u"gtk-launch",
                                               u"java",
                                               u"kcmshell5",
                                               u"kcmshell6",
                                               u"mono",
                                               u"node",
                                               u"perl",
                                               u"pkexec",
                                               u"python",
                                               u"ruby",
                                               u"sh",
                                               u"snap",
                                               u"steam",
                                               u"su-to-root",
                                               u"sudo",
                                               u"systemctl",
                                               u"systemsettings",
                                               u"wine",
                                               u"xdg-open"};

bool isLetter(QChar unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

/// Whether a text can be a part of a reverse domain name, in which no part begins with a digit.
bool isDomainPart(const QString& part) {
    return !part.isEmpty() && (isLetter(part.front()) || part.front() == u'_') &&
           std::ranges::all_of(part, [](QChar unit) {
               return isLetter(unit) || (unit >= u'0' && unit <= u'9') || unit == u'_' ||
                      unit == u'-';
           });
}

bool isReverseDomain(const QStringList& parts) {
    return parts.size() > 2 && std::ranges::all_of(parts.front(), isLetter) &&
           std::ranges::all_of(parts, isDomainPart);
}

bool isIdle(const QString& part) {
    return std::ranges::any_of(idleParts, [&part](QStringView idle) {
        return idle.compare(part, Qt::CaseInsensitive) == 0;
    });
}

/// Interpreters come with their version, as "python3.11" does.
bool isWrapper(const QString& program) {
    qsizetype length = program.size();
    while (length > 0 && (program[length - 1].isDigit() || program[length - 1] == u'.')) {
        --length;
    }
    return std::ranges::binary_search(wrappers, program) ||
           std::ranges::binary_search(wrappers, QStringView(program).first(length));
}

} // namespace

QString typedFileName(const QString& name) {
    const QStringList parts = name.split(u'.');
    if (!isReverseDomain(parts)) {
        return name;
    }
    qsizetype own = parts.size() - 1;
    while (own > 1 && isIdle(parts[own])) {
        --own;
    }
    return parts[own];
}

QString typedProgram(const QStringList& command) {
    const auto nameOf = [](const QString& path) { return path.mid(path.lastIndexOf(u'/') + 1); };
    auto program = command.begin();
    if (program != command.end() && nameOf(*program) == QStringLiteral("env")) {
        program = std::find_if_not(program + 1, command.end(),
                                   [](const QString& word) { return word.contains(u'='); });
    }
    if (program == command.end() || program->startsWith(u'-')) {
        return {};
    }
    const QString name = nameOf(*program);
    return isWrapper(name) ? QString() : name;
}

} // namespace quorvantel::platform
