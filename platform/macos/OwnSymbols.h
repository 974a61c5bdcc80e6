#pragma once

#include <QImage>
#include <QString>

namespace quorvantel::platform {

/// The launcher's own symbol of that name in a square of `pixels`, for a name under which this
/// version of the system has none; a null image when the launcher has none either.
QImage ownSymbol(const QString& name, int pixels);

} // namespace quorvantel::platform
