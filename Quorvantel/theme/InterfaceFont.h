#pragma once

#include <QFont>

namespace quorvantel {

/// The desktop's interface font at a size in device-independent pixels.
QFont interfaceFont(int size, QFont::Weight weight = QFont::Normal);

} // namespace quorvantel
