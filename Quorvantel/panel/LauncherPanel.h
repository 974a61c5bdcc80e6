#pragma once

#include "panel/FirstMouseHostingView.h"
#include "panel/LauncherView.h"
#include "platform/PanelHost.h"

#include <QObject>

namespace quorvantel {

/// The borderless floating panel of the launcher. It is transparent; the view inside it draws the
/// rounded surface. The user drags it by any area that is not a control.
class LauncherPanel : public QObject {
    Q_OBJECT

public:
    /// Takes ownership of `view`, which fills the panel. `host` must outlive the panel.
    LauncherPanel(LauncherView* view, platform::PanelHost& host);

    platform::PanelSurface& surface() const { return m_hostingView.surface(); }

    /// Where the panel is, or will be once it is shown.
    const platform::PanelPlace& place() const { return m_place; }
    void setPlace(const platform::PanelPlace& place);

    /// Takes the panel away.
    void hide();

Q_SIGNALS:
    /// The user drags the panel by this step, which is up to the receiver to take.
    void dragged(QPoint step);

    /// The user clicked elsewhere, or turned there by other means.
    void left();

private:
    void followBackdrop();

    FirstMouseHostingView m_hostingView;
    platform::PanelPlace m_place;
};

} // namespace quorvantel
