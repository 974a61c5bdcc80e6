#include "platform/linux/gui/IconThemes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QStandardPaths>

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <utility>

namespace quorvantel::platform {

namespace {

constexpr std::array<QStringView, 3> widespreadThemes{u"Adwaita", u"breeze", u"Papirus"};

bool isInstalled(QStringView theme) {
    return std::ranges::any_of(QIcon::themeSearchPaths(), [theme](const QString& path) {
        return QFileInfo::exists(path + u'/' + theme + QStringLiteral("/index.theme"));
    });
}

/// The base directories of the Icon Theme Specification, whether or not they are there yet.
QStringList baseDirectories() {
    QStringList directories{QDir::homePath() + QStringLiteral("/.icons")};
    for (const QString& data :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        directories.append(data + QStringLiteral("/icons"));
    }
    return directories;
}

} // namespace

IconThemes::IconThemes(DesktopTheme desktopTheme) : m_desktopTheme(std::move(desktopTheme)) {
    QStringList paths = baseDirectories() + QIcon::themeSearchPaths();
    paths.removeDuplicates();
    QIcon::setThemeSearchPaths(paths);
    chooseFallback();
    m_stamps = stamps();
}

bool IconThemes::refresh() {
    followDesktop();
    chooseFallback();
    std::vector<Stamp> current = stamps();
    if (current == m_stamps) {
        return false;
    }
    m_stamps = std::move(current);
    // Has Qt forget what it read of the themes.
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths());
    return true;
}

void IconThemes::followDesktop() {
    const QString desktopTheme = m_desktopTheme ? m_desktopTheme() : QString();
    if (!desktopTheme.isEmpty() && desktopTheme != QIcon::themeName() &&
        isInstalled(desktopTheme)) {
        QIcon::setThemeName(desktopTheme);
    }
}

void IconThemes::chooseFallback() {
    const auto* const theme = std::ranges::find_if(widespreadThemes, isInstalled);
    if (theme != widespreadThemes.end()) {
        QIcon::setFallbackThemeName(theme->toString());
    }
}

std::vector<IconThemes::Stamp> IconThemes::stamps() {
    std::vector<Stamp> stamps;
    // Applications install their icons into "hicolor".
    for (const QString& theme :
         {QIcon::themeName(), QIcon::fallbackThemeName(), QStringLiteral("hicolor")}) {
        for (const QString& path : QIcon::themeSearchPaths()) {
            Stamp& stamp = stamps.emplace_back();
            stamp.folder = path + u'/' + theme;
            struct stat status {};
            if (::stat(QFile::encodeName(stamp.folder).constData(), &status) == 0) {
                stamp.seconds = status.st_mtim.tv_sec;
                stamp.nanoseconds = status.st_mtim.tv_nsec;
            }
        }
    }
    return stamps;
}

} // namespace quorvantel::platform
