#include "platform/linux/wayland/LayerPanelSurface.h"

#include "shapes/ContinuousCorners.h"
#include "wlr-layer-shell-unstable-v1-client-protocol.h"

#include <QDebug>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <wayland-client-protocol.h>

#include <utility>

namespace quorvantel::platform {

namespace {

wl_output* outputOf(const ScreenId& id) {
    for (QScreen* const screen : QGuiApplication::screens()) {
        if (screen->name() == id.name) {
            return WaylandConnection::outputOf(*screen);
        }
    }
    return nullptr;
}

} // namespace

LayerPanelSurface::LayerPanelSurface(const PanelContent& content,
                                     const WaylandConnection& connection,
                                     const WaylandKeyboard& keyboard,
                                     WaylandPointer<zwlr_layer_shell_v1> shell)
    : WaylandPanelSurface(content, connection, keyboard),
      m_size(content.largestSize.grownBy(PanelShadow::margins())),
      m_cornerRadius(content.cornerRadius),
      m_connection(connection),
      m_shell(std::move(shell)),
      m_toplevels(connection.globals()),
      m_desktopClicks(connection, *m_shell),
      m_blur(connection),
      m_popups(*this, connection, [this](wl_surface& popup) { return makeRole(popup); }) {
    // Compositors of sway's kind are known by it.
    mouse().setFixedWhilePressed(m_toplevels.isAvailable());
    connect(&m_toplevels, &ForeignToplevels::activated, this, [this] { loseKeyboard(); });
    connect(&m_desktopClicks, &DesktopClicks::clicked, this, [this] { loseKeyboard(); });
    // After the panel, which is not to wait for what it takes.
    connect(this, &PanelSurface::firstFrameDrawn, this, &LayerPanelSurface::watchDesktop,
            Qt::QueuedConnection);
    connect(&m_popups, &PanelPopups::changed, this, [this] {
        if (isVisible() && m_role) {
            fitLayer();
            commit();
        }
    });
    connect(this, &PanelSurface::screenChosen, this,
            [this](const ScreenId& screen) { m_screen = screen; });
    // Drawn once unseen, the panel has at hand what its first frame takes.
    if (takeRole()) {
        park();
    }
}

LayerPanelSurface::~LayerPanelSurface() {
    dropRole();
}

void LayerPanelSurface::setPlace(const PanelPlace& place) {
    const bool isResized = place.frame.size() != m_place.frame.size();
    m_place = place;
    if (!isVisible() || !m_role) {
        return;
    }
    const bool isMovedOver = isOnAnotherScreen();
    if (isMovedOver && !takeRole()) {
        Q_EMIT closeRequested();
        return;
    }
    fit();
    if (isResized || isMovedOver || awaitsFirstFrame()) {
        // Committed together with what is drawn for it.
        Q_EMIT geometryChanged();
    } else {
        commit();
    }
    mouse().moved(shownPosition());
}

void LayerPanelSurface::show() {
    const bool isScreenOpen = !m_place.screen && QGuiApplication::screens().size() > 1;
    if ((!m_role || isScreenOpen || isOnAnotherScreen()) && !takeRole()) {
        qWarning("Quorvantel: the compositor does not show the panel");
        return;
    }
    begin();
    fit();
    mouse().moved(shownPosition());
    Q_EMIT geometryChanged();
}

void LayerPanelSurface::hide() {
    forgetKeyboard();
    // Before what is sent at once, so that the next click reaches the desktop itself.
    m_desktopClicks.end();
    if (m_role && isParkable()) {
        park();
    } else {
        dropRole();
    }
    end();
}

void LayerPanelSurface::releaseKeyboard() {
    forgetKeyboard();
    if (m_role && isParkable()) {
        m_role->setTakesKeyboard(false);
        commit();
    } else {
        dropRole();
    }
}

void LayerPanelSurface::watchDesktop() {
    if (isVisible()) {
        m_desktopClicks.begin();
    }
}

bool LayerPanelSurface::takeRole() {
    dropRole();
    content().show();
    // A window that is not shown yet does not keep its size.
    content().resize(m_size);
    m_screen = m_place.screen;
    m_role = makeRole(surface());
    // Queued, for it ends the sender.
    connect(
        m_role.get(), &LayerSurface::closed, m_role.get(), [this] { loseRole(); },
        Qt::QueuedConnection);
    m_role->setSize(m_size);
    if (!m_role->awaitConfigure(m_connection.display())) {
        dropRole();
    }
    return m_role != nullptr;
}

std::unique_ptr<LayerSurface> LayerPanelSurface::makeRole(wl_surface& surface) const {
    return std::make_unique<LayerSurface>(*m_shell, surface,
                                          m_screen ? outputOf(*m_screen) : nullptr);
}

void LayerPanelSurface::dropRole() {
    m_role.reset();
    // With it Qt gives up the surface, which knows of the outputs that it was on.
    content().hide();
    m_connection.flush();
}

void LayerPanelSurface::loseRole() {
    dropRole();
    if (isVisible()) {
        Q_EMIT closeRequested();
    }
}

void LayerPanelSurface::park() {
    m_role->setLayer(LayerSurface::Layer::Background);
    m_role->setTakesKeyboard(false);
    m_role->setPosition(hiddenPosition());
    wl_surface_set_input_region(&surface(), m_connection.makeRegion({}).get());
    commit();
}

bool LayerPanelSurface::isParkable() const {
    // Of other applications' windows only compositors of wlroots' kind tell.
    return m_toplevels.isAvailable() && QGuiApplication::screens().size() == 1;
}

bool LayerPanelSurface::isOnAnotherScreen() const {
    return m_place.screen && m_place.screen != m_screen;
}

void LayerPanelSurface::fit() {
    fitLayer();
    m_role->setTakesKeyboard(true);
    m_role->setPosition(shownPosition());
    m_popups.setOrigin(shownPosition());
    wl_surface_set_input_region(&surface(), m_connection.makeRegion(panelRect()).get());
    fitBlur();
}

void LayerPanelSurface::fitLayer() {
    // Which one of two surfaces of a layer is above the other one is up to the compositor.
    m_role->setLayer(m_popups.isAnyOpen() ? LayerSurface::Layer::Top
                                          : LayerSurface::Layer::Overlay);
}

void LayerPanelSurface::fitBlur() {
    m_blur.setRegion(surface(), m_isBlurred ? continuousRoundedRegion(panelRect(), m_cornerRadius)
                                            : QRegion());
}

void LayerPanelSurface::commit() {
    wl_surface_commit(&surface());
    m_connection.flush();
}

QPoint LayerPanelSurface::shownPosition() const {
    return m_place.frame.topLeft() - contentOrigin();
}

QPoint LayerPanelSurface::hiddenPosition() const {
    return {-m_size.width(), -m_size.height()};
}

QRect LayerPanelSurface::panelRect() const {
    return {contentOrigin(), m_place.frame.size()};
}

QPoint LayerPanelSurface::contentOrigin() const {
    const QMargins margins = PanelShadow::margins();
    return {margins.left(), margins.top()};
}

void LayerPanelSurface::setBlurBehind(bool isBlurred) {
    m_isBlurred = isBlurred;
    if (m_role) {
        // The content is drawn anew for it, and committed with it.
        fitBlur();
    }
}

} // namespace quorvantel::platform
