#pragma once

#include <QRect>
#include <QSize>

#include <vector>

namespace quorvantel::platform {

/// The room that a bar or dock reserves along one edge of the whole desktop (Extended Window
/// Manager Hints, `_NET_WM_STRUT_PARTIAL`), in pixels.
struct Strut {
    Qt::Edge edge;
    /// How far from the desktop's edge the reserved room reaches, across other screens if need be.
    int depth;
    /// The first and last pixel along the edge.
    int start;
    int end;

    friend bool operator==(const Strut&, const Strut&) = default;
};

/// The part of a screen that no bar or dock reserves. `desktop` is the size of all screens
/// together; `screen` lies within it. A strut counts for the screens whose inside it ends in: the
/// room that a bar between two screens reserves covers one of them whole, where the bar is not.
QRect unreservedPart(const QRect& screen, const QSize& desktop, const std::vector<Strut>& struts);

} // namespace quorvantel::platform
