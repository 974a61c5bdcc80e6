#pragma once

#include <QWidget>

namespace quorvantel {

/// Whether a widget shows changes as movements. Otherwise, as users ask for whom movements are
/// unpleasant, it is to jump to their end.
bool isAnimated(const QWidget& widget);

} // namespace quorvantel
