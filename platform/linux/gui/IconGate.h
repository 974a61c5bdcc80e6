#pragma once

#include <QImage>
#include <QString>

/// The one way for a picture from outside the program onto the panel.
///
/// Anyone who installs an application brings icons, and they are decoded on the main thread. So all
/// that comes in is bounded first: the size of the file, of what it unpacks to, the picture's
/// extent, a vector image's elements and the outlines to follow; and an icon is that one regular
/// file alone, which refers to no other.
namespace quorvantel::platform {

/// The picture in a file, as large as fits into a square of `pixels` for a vector image and in its
/// own size otherwise; null for what is no icon. Never waits for another process.
QImage readIcon(const QString& path, int pixels);

/// The same for the content of a file.
QImage decodeIcon(const QByteArray& content, int pixels);

} // namespace quorvantel::platform
