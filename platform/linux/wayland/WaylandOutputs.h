#pragma once

#include "platform/linux/wayland/WaylandConnection.h"

#include <QList>
#include <QRect>

#include <vector>

namespace quorvantel::platform {

/// Where the compositor's outputs are and how large, in points.
///
/// Mutter tells the sizes of its outputs in pixels instead (`zxdg_output_v1.logical_size`) unless
/// it scales by fractions, and Qt before 6.5 takes its word for it.
class WaylandOutputs {
public:
    /// `connection` must outlive the object.
    explicit WaylandOutputs(const WaylandConnection& connection) : m_connection(connection) {}

    /// In the plane of `QScreen::geometry`. Asks the compositor, once for all outputs whenever one
    /// of them has changed, where a screen is scaled.
    QRect geometryOf(const QScreen& screen) const;

private:
    bool isToldInPixels(const QScreen& screen) const;
    void ask() const;

    const WaylandConnection& m_connection;
    /// What the toolkit said of all screens when the compositor was asked.
    mutable QList<QRect> m_told;
    /// The modes that the outputs are in, as the compositor answered.
    mutable std::vector<QRect> m_modes;
};

} // namespace quorvantel::platform
