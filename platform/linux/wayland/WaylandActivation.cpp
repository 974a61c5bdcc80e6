#include "platform/linux/wayland/WaylandActivation.h"

#include "xdg-activation-v1-client-protocol.h"

#include <QEvent>
#include <QGuiApplication>
#include <QTimer>

#include <chrono>
#include <utility>

namespace quorvantel::platform {

namespace {

/// A compositor that takes longer for a token is not worth waiting for.
constexpr std::chrono::milliseconds patience{500};

/// Runs something once, as soon as the window has been drawn on the screen.
class WhenShown : public QObject {
public:
    WhenShown(QWindow& window, std::function<void()> task)
        : QObject(&window), m_task(std::move(task)) {
        window.installEventFilter(this);
        schedule(window);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Expose) {
            schedule(*static_cast<QWindow*>(watched));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void schedule(const QWindow& window) {
        if (window.isExposed() && m_task) {
            // The window draws itself while it handles the event.
            QTimer::singleShot(0, parent(), std::exchange(m_task, nullptr));
            deleteLater();
        }
    }

    std::function<void()> m_task;
};

} // namespace

/// A token that the compositor has been asked for.
class WaylandActivation::Request {
public:
    explicit Request(xdg_activation_token_v1* token) : m_token(token) {
        xdg_activation_token_v1_add_listener(token, &listener, this);
        m_timeout.setSingleShot(true);
        m_timeout.callOnTimeout([this] { answer({}); });
    }

    /// To be called before the answer can come.
    void announceTo(Announced announced) {
        m_announced = std::move(announced);
        m_timeout.start(patience);
    }

    bool isAnswered() const { return !m_announced; }

private:
    static const xdg_activation_token_v1_listener listener;

    void answer(const QByteArray& token) {
        if (const Announced announced = std::exchange(m_announced, nullptr)) {
            m_timeout.stop();
            announced(token);
        }
    }

    WaylandPointer<xdg_activation_token_v1> m_token;
    Announced m_announced;
    QTimer m_timeout;
};

const xdg_activation_token_v1_listener WaylandActivation::Request::listener{
    .done = [](void* self, xdg_activation_token_v1* /*request*/,
               const char* token) { static_cast<Request*>(self)->answer(token); },
};

WaylandActivation::WaylandActivation(const WaylandConnection& connection,
                                     const WaylandUserSerial& serial)
    : m_connection(connection),
      m_serial(serial),
      m_activation(
          connection.globals().bind<xdg_activation_v1>(xdg_activation_v1_interface, {1, 1})) {}

WaylandActivation::~WaylandActivation() = default;

void WaylandActivation::begin(const QByteArray& /*applicationName*/,
                              const QByteArray& desktopFileId, const QByteArray& /*iconName*/,
                              Announced announced) {
    if (!m_activation) {
        announced({});
        return;
    }
    m_requests.remove_if([](const Request& request) { return request.isAnswered(); });
    if (m_prepared.empty()) {
        constexpr const char* suffix = ".desktop";
        ask(m_prepared, desktopFileId.endsWith(suffix)
                            ? desktopFileId.chopped(static_cast<qsizetype>(qstrlen(suffix)))
                            : desktopFileId);
    }
    m_requests.splice(m_requests.end(), m_prepared);
    m_requests.back().announceTo(std::move(announced));
}

void WaylandActivation::prepare() {
    if (!m_activation) {
        return;
    }
    m_prepared.clear();
    ask(m_prepared, {});
    // Those who want it ask for it before the event loop is reached, and with it the answer.
    QMetaObject::invokeMethod(
        this, [this] { m_prepared.clear(); }, Qt::QueuedConnection);
}

void WaylandActivation::ask(std::list<Request>& requests, const QByteArray& application) const {
    xdg_activation_token_v1* const token =
        xdg_activation_v1_get_activation_token(m_activation.get());
    if (m_serial.seat() != nullptr && m_serial.last() != 0) {
        xdg_activation_token_v1_set_serial(token, m_serial.last(), m_serial.seat());
    }
    if (QWindow* const window = QGuiApplication::focusWindow()) {
        if (wl_surface* const surface = WaylandConnection::surfaceOf(*window)) {
            xdg_activation_token_v1_set_surface(token, surface);
        }
    }
    if (!application.isEmpty()) {
        xdg_activation_token_v1_set_app_id(token, application.constData());
    }
    requests.emplace_back(token);
    xdg_activation_token_v1_commit(token);
    m_connection.flush();
}

void WaylandActivation::during(const CallerToken& token, const std::function<void()>& task) {
    m_callerToken = token.activationToken;
    task();
    m_callerToken.clear();
}

void WaylandActivation::activate(QWindow& window) {
    const QByteArray token = std::exchange(m_callerToken, {});
    if (!token.isEmpty()) {
        use(token, window);
        return;
    }
    begin({}, QGuiApplication::desktopFileName().toUtf8(), {},
          [this, target = QPointer(&window)](const QByteArray& own) {
              if (target && !own.isEmpty()) {
                  use(own, *target);
              }
          });
}

void WaylandActivation::use(const QByteArray& token, QWindow& window) {
    if (!m_activation) {
        return;
    }
    new WhenShown(window, [this, guard = QPointer(this), token, &window] {
        wl_surface* const surface = WaylandConnection::surfaceOf(window);
        if (guard && surface != nullptr) {
            xdg_activation_v1_activate(m_activation.get(), token.constData(), surface);
            m_connection.flush();
        }
    });
}

} // namespace quorvantel::platform
