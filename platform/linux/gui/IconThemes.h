#pragma once

#include <QString>

#include <ctime>
#include <functional>
#include <vector>

namespace quorvantel::platform {

/// Has Qt look for icons in all folders for them (Icon Theme Specification), and see what changes
/// there while the program runs.
///
/// Qt by itself knows only the folders that are there at the start, and goes on with the list of
/// icons that it read from a theme's cache, whatever is installed later. One at a time, as Qt keeps
/// its themes for the whole program. Main thread only.
class IconThemes {
public:
    /// The name of the icon theme that the desktop wants used; empty when it does not tell.
    using DesktopTheme = std::function<QString()>;

    /// A desktop that names no icon theme, as with a bare window manager, has only the icons that
    /// applications bring themselves; a widespread theme that is installed stands in for the rest.
    /// `desktopTheme` is asked at each refresh, not at the start, which its answer would hold up;
    /// without one Qt's own view of the desktop decides about the theme.
    explicit IconThemes(DesktopTheme desktopTheme = {});

    /// Whether themes or icons changed since the last call or the start, which from now on count.
    /// Asks the disk for the age of a few folders, no more: whoever installs icons into a theme
    /// renews its folder. Only after a change the themes are read again.
    bool refresh();

private:
    /// When a theme's folder changed; 0 while there is none.
    struct Stamp {
        QString folder;
        std::time_t seconds = 0;
        long nanoseconds = 0;

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    void followDesktop();
    static void chooseFallback();
    static std::vector<Stamp> stamps();

    DesktopTheme m_desktopTheme;
    std::vector<Stamp> m_stamps;
};

} // namespace quorvantel::platform
