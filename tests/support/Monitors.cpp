#include "support/Monitors.h"

#include "support/ChildProcess.h"
#include "support/WaitUntil.h"
#include "support/XConnection.h"

#include <xcb/randr.h>

#include <stdexcept>

namespace quorvantel::testing {
namespace {

// The library's own call for this, xcb_randr_set_monitor, reads outside its argument in
// libxcb 1.15.
void runXrandr(const QByteArray& display, const QStringList& arguments) {
    ChildProcess process({
        .program = QStringLiteral("xrandr"),
        .arguments =
            QStringList{QStringLiteral("--display"), QString::fromLocal8Bit(display)} + arguments,
    });
    const std::optional<ChildProcess::Exit> exit = process.waitForExit(patience);
    if (!exit || exit->crashed || exit->status != 0) {
        throw std::runtime_error("xrandr failed");
    }
}

QString nameOf(std::size_t index) {
    return QStringLiteral("TEST-%1").arg(index);
}

// The geometry in xrandr's own form, at 96 dots an inch.
QString geometryText(const QRect& monitor) {
    const auto millimetres = [](int pixels) { return pixels * 127 / 480; };
    return QStringLiteral("%1/%2x%3/%4+%5+%6")
        .arg(monitor.width())
        .arg(millimetres(monitor.width()))
        .arg(monitor.height())
        .arg(millimetres(monitor.height()))
        .arg(monitor.x())
        .arg(monitor.y());
}

std::size_t countMonitors(const XConnection& connection) {
    const XReply<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(
        connection.get(), xcb_randr_get_monitors(connection.get(), connection.root(), 1), nullptr));
    return reply ? reply->nMonitors : 0;
}

void removeMonitor(const XConnection& connection, std::size_t index) {
    xcb_randr_delete_monitor(connection.get(), connection.root(),
                             connection.atom(nameOf(index).toLatin1()));
}

} // namespace

void setMonitors(const QByteArray& display, const std::vector<QRect>& monitors) {
    const XConnection connection(display);
    // The server does not replace a monitor by one of the same name.
    for (std::size_t index = countMonitors(connection); index > 0; --index) {
        removeMonitor(connection, index - 1);
    }
    connection.synchronize();
    for (std::size_t index = 0; index < monitors.size(); ++index) {
        // Taking the only output replaces the monitor that the server made of it.
        const QString output = index == 0 ? QStringLiteral("screen") : QStringLiteral("none");
        const QString name = (index == 0 ? QStringLiteral("*") : QString()) + nameOf(index);
        runXrandr(display,
                  {QStringLiteral("--setmonitor"), name, geometryText(monitors[index]), output});
    }
}

void removeLastMonitor(const QByteArray& display, std::size_t count) {
    const XConnection connection(display);
    removeMonitor(connection, count - 1);
    connection.synchronize();
}

} // namespace quorvantel::testing
