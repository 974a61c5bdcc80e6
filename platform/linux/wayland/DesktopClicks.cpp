#include "platform/linux/wayland/DesktopClicks.h"

#include "platform/linux/shortcuts/DesktopSession.h"
#include "platform/linux/start/FileDescriptor.h"
#include "platform/linux/wayland/LayerSurface.h"
#include "platform/linux/wayland/WaylandConnection.h"
#include "viewporter-client-protocol.h"

#include <QEvent>
#include <QGuiApplication>
#include <QProcessEnvironment>
#include <QScreen>
#include <QWindow>

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client-protocol.h>

namespace quorvantel::platform {

namespace {

/// Whether the desktop is a window, which a click activates, and has icons that would be covered.
bool hasDesktopWindow() {
    return desktopNames(QProcessEnvironment::systemEnvironment()).contains(QStringLiteral("KDE"));
}

WaylandPointer<wl_buffer> transparentPixel(const WaylandGlobals& globals) {
    constexpr std::int32_t size = 4;
    const WaylandPointer<wl_shm> memory(globals.bind<wl_shm>(wl_shm_interface, {1, 1}));
    const FileDescriptor file(::memfd_create("pixel", MFD_CLOEXEC));
    if (!memory || !file.isOpen() || ::ftruncate(file.get(), size) != 0) {
        return nullptr;
    }
    const WaylandPointer<wl_shm_pool> pool(wl_shm_create_pool(memory.get(), file.get(), size));
    return WaylandPointer<wl_buffer>(
        wl_shm_pool_create_buffer(pool.get(), 0, 1, 1, size, WL_SHM_FORMAT_ARGB8888));
}

} // namespace

/// The surface on one output: that of a window which the toolkit never draws, but tells of clicks.
class DesktopClicks::Area : public QObject {
public:
    Area(DesktopClicks& owner, QScreen& screen) : m_owner(owner) {
        m_window.setFlag(Qt::BypassWindowManagerHint);
        m_window.create();
        m_window.installEventFilter(this);
        wl_surface& surface = *WaylandConnection::surfaceOf(m_window);
        const QSize size = screen.size();
        m_viewport.reset(wp_viewporter_get_viewport(m_owner.m_viewporter.get(), &surface));
        wp_viewport_set_destination(m_viewport.get(), size.width(), size.height());
        m_role = std::make_unique<LayerSurface>(m_owner.m_shell, surface,
                                                WaylandConnection::outputOf(screen));
        m_role->setLayer(LayerSurface::Layer::Background);
        m_role->setSize(size);
        connect(
            m_role.get(), &LayerSurface::configured, this, [this, &surface] { draw(surface); },
            Qt::SingleShotConnection);
        wl_surface_commit(&surface);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress) {
            Q_EMIT m_owner.clicked();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void draw(wl_surface& surface) {
        // The toolkit goes by the scale of the output.
        wl_surface_set_buffer_scale(&surface, 1);
        wl_surface_attach(&surface, m_owner.m_pixel.get(), 0, 0);
        wl_surface_commit(&surface);
    }

    DesktopClicks& m_owner;
    QWindow m_window;
    WaylandPointer<wp_viewport> m_viewport;
    std::unique_ptr<LayerSurface> m_role;
};

DesktopClicks::DesktopClicks(const WaylandConnection& connection, zwlr_layer_shell_v1& shell)
    : m_connection(connection), m_shell(shell) {
    if (!hasDesktopWindow()) {
        const WaylandGlobals& globals = connection.globals();
        m_viewporter.reset(globals.bind<wp_viewporter>(wp_viewporter_interface, {1, 1}));
        m_pixel = transparentPixel(globals);
    }
}

DesktopClicks::~DesktopClicks() = default;

void DesktopClicks::begin() {
    m_areas.clear();
    if (!m_viewporter || !m_pixel) {
        return;
    }
    for (QScreen* const screen : QGuiApplication::screens()) {
        if (WaylandConnection::outputOf(*screen) != nullptr) {
            m_areas.push_back(std::make_unique<Area>(*this, *screen));
        }
    }
    m_connection.flush();
}

void DesktopClicks::end() {
    m_areas.clear();
}

} // namespace quorvantel::platform
