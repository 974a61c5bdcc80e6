#pragma once

#include "support/ChildProcess.h"
#include "support/SessionBus.h"
#include "support/Unprivileged.h"

#include <QImage>
#include <QSize>

#include <optional>

namespace quorvantel::testing {

/// A Wayland compositor of the test's own, without a screen to show its outputs on, and the session
/// bus that it serves. It runs as nobody when the test runs as root.
class WaylandCompositor {
public:
    struct Options {
        QString program = QStringLiteral("sway"); ///< Or "kwin_wayland", or "gnome-shell".
        QSize pixels = {1280, 800};               ///< Of each output.
        double scale = 1;                         ///< A whole number with GNOME.
        int outputs = 1;                          ///< Side by side.
        /// In whose windows sway shows its outputs, if not nowhere.
        const WaylandCompositor* host = nullptr;
    };

    /// Returns once the compositor accepts clients. Throws std::runtime_error when it does not.
    explicit WaylandCompositor(const Options& options);

    /// How the programs of the session are to be started.
    QProcessEnvironment environment() const;

    /// What clients take as WAYLAND_DISPLAY.
    QString display() const { return m_folder.filePath(QStringLiteral("wayland-1")); }
    QString busAddress() const { return m_bus.address(); }

    /// Makes it the session of this process, and of what it starts from now on. To be called before
    /// there is an application object.
    void enter() const;

    const Options& options() const { return m_options; }
    /// Of all outputs together, in points.
    QSize size() const;

    /// A copy of a program that the compositor's user can start. Throws std::runtime_error when it
    /// cannot be made.
    QString copyOf(const QString& program) const;

    void signal(int number) { m_process->signal(number); }

    /// Ends the compositor and starts another one on the same bus, as a session does when it died.
    void restart();

    /// Has sway carry out a command, such as "output HEADLESS-1 scale 2". Throws
    /// std::runtime_error when it does not.
    void command(const QString& command) const;

    /// What all outputs together show, in pixels. Throws std::runtime_error when it cannot be read.
    QImage screenshot() const;

private:
    bool isGnome() const { return m_options.program == QStringLiteral("gnome-shell"); }
    ChildProcess::Launch launch() const;
    void prepareGnome();
    bool leaveOverview() const;
    void start();

    Options m_options;
    UnprivilegedFolder m_folder;
    SessionBus m_bus;
    /// What GNOME asks for the session at the start.
    std::optional<ChildProcess> m_loginManager;
    /// Always there but within `restart`.
    std::optional<ChildProcess> m_process;
};

} // namespace quorvantel::testing
