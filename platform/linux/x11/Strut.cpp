#include "platform/linux/x11/Strut.h"

#include <algorithm>

namespace quorvantel::platform {

namespace {

bool isVerticalEdge(Qt::Edge edge) {
    return edge == Qt::LeftEdge || edge == Qt::RightEdge;
}

/// The room that a strut reserves, across all screens.
QRect reservedRoom(const Strut& strut, const QSize& desktop) {
    const int length = strut.end - strut.start + 1;
    switch (strut.edge) {
    case Qt::LeftEdge:
        return {0, strut.start, strut.depth, length};
    case Qt::RightEdge:
        return {desktop.width() - strut.depth, strut.start, strut.depth, length};
    case Qt::TopEdge:
        return {strut.start, 0, length, strut.depth};
    case Qt::BottomEdge:
        return {strut.start, desktop.height() - strut.depth, length, strut.depth};
    }
    Q_UNREACHABLE();
}

} // namespace

QRect unreservedPart(const QRect& screen, const QSize& desktop, const std::vector<Strut>& struts) {
    QRect part = screen;
    for (const Strut& strut : struts) {
        const QRect taken = reservedRoom(strut, desktop) & screen;
        const bool coversScreen = isVerticalEdge(strut.edge) ? taken.width() == screen.width()
                                                             : taken.height() == screen.height();
        if (taken.isEmpty() || coversScreen) {
            continue;
        }
        switch (strut.edge) {
        case Qt::LeftEdge:
            part.setLeft(std::max(part.left(), taken.right() + 1));
            break;
        case Qt::RightEdge:
            part.setRight(std::min(part.right(), taken.left() - 1));
            break;
        case Qt::TopEdge:
            part.setTop(std::max(part.top(), taken.bottom() + 1));
            break;
        case Qt::BottomEdge:
            part.setBottom(std::min(part.bottom(), taken.top() - 1));
            break;
        }
    }
    return part.isValid() ? part : screen;
}

} // namespace quorvantel::platform
