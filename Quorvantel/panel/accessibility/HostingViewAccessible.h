#pragma once

#include "panel/FirstMouseHostingView.h"
#include "panel/accessibility/PanelAccessible.h"

namespace quorvantel {

/// The panel as assistive technology meets it: a dialog, which is invisible and empty while the
/// panel is hidden. The view inside stays shown to Qt then, so it is left out rather than asked.
class HostingViewAccessible : public PanelAccessible {
public:
    explicit HostingViewAccessible(FirstMouseHostingView& hostingView);

    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    /// That of the panel itself, of which the window may be larger.
    QRect rect() const override;

private:
    const FirstMouseHostingView& hostingView() const;
    bool isOnScreen() const;
};

} // namespace quorvantel
