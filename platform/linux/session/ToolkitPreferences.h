#pragma once

#include "platform/linux/DesktopPreferences.h"

#include <QFont>

namespace quorvantel::platform {

/// Gives the toolkit what it does not find out by itself on every desktop: the font of the
/// interface, the double-click time and how fast a text cursor blinks.
class ToolkitPreferences {
public:
    /// The application object must exist and not yet have been given another font.
    ToolkitPreferences();

    /// Applies what differs from the last time. What the preferences leave out is as the toolkit
    /// found it.
    void apply(const DesktopPreferences& preferences);

private:
    QFont m_ownFont;
    int m_ownDoubleClickTime;
    int m_ownCursorBlinkTime;
    DesktopPreferences m_applied;
};

} // namespace quorvantel::platform
