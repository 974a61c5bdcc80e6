#include "panel/LauncherPanel.h"

#include "panel/PanelPlacement.h"

namespace quorvantel {

LauncherPanel::LauncherPanel(LauncherView* view, platform::PanelHost& host)
    : m_hostingView(view, host) {
    connect(&m_hostingView, &FirstMouseHostingView::dragged, this, &LauncherPanel::dragged);
    connect(&m_hostingView, &FirstMouseHostingView::clickedElsewhere, this, &LauncherPanel::left);
    connect(&surface(), &platform::PanelSurface::keyboardLost, this, &LauncherPanel::left);
    connect(&surface(), &platform::PanelSurface::backdropChanged, this,
            &LauncherPanel::followBackdrop);
    connect(view, &LauncherView::translucencyChanged, this,
            [this, view] { surface().setBlurBehind(view->isTranslucent()); });
    setPlace({{},
              {0, 0, static_cast<int>(PanelPlacement::width),
               static_cast<int>(PanelPlacement::initialHeight)}});
    followBackdrop();
    // Drawn once unseen, the panel has its fonts and symbols at hand when it is first summoned.
    m_hostingView.grab();
}

void LauncherPanel::setPlace(const platform::PanelPlace& place) {
    m_place = place;
    surface().setPlace(place);
    m_hostingView.view().resize(place.frame.size());
}

void LauncherPanel::hide() {
    surface().hide();
    m_hostingView.endInteraction();
}

void LauncherPanel::followBackdrop() {
    LauncherView& view = m_hostingView.view();
    view.setComposited(surface().isComposited());
    // The view says so when that changes whether it is translucent.
    view.setBlurAvailable(surface().offersBlur());
}

} // namespace quorvantel
