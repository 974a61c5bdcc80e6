#pragma once

#include "platform/linux/DesktopPreferences.h"

#include <QFont>

namespace quorvantel::platform {

class StillStyle;

/// Gives the toolkit what it does not find out by itself on every desktop: the font of the
/// interface, the double-click time, how fast a text cursor blinks, and whether anything is to move
/// (the style hint SH_Widget_Animation_Duration, which is then 0).
class ToolkitPreferences {
public:
    /// The application object must exist and not yet have been given another font.
    ToolkitPreferences();
    ToolkitPreferences(const ToolkitPreferences&) = delete;
    ToolkitPreferences& operator=(const ToolkitPreferences&) = delete;
    /// Leaves the toolkit as it was.
    ~ToolkitPreferences();

    /// Applies what differs from the last time. What the preferences leave out is as the toolkit
    /// found it.
    void apply(const DesktopPreferences& preferences);

private:
    void reduceMotion(bool isReduced);

    QFont m_ownFont;
    int m_ownDoubleClickTime;
    int m_ownCursorBlinkTime;
    DesktopPreferences m_applied;
    /// Owned by the application; null until the user first asks for less motion.
    StillStyle* m_stillStyle = nullptr;
};

} // namespace quorvantel::platform
