#pragma once

#include <QByteArrayView>

namespace quorvantel::platform {

/// Whether a property list, XML or binary, can be handed to libplist without fear for time, memory
/// or stack.
///
/// libplist works recursively, so a file of a few hundred kilobytes can overrun its stack, and a
/// binary list in which lists share their elements can grow to any size as a tree. This looks at
/// the structure alone, without recursion, and turns down what no honest property list comes near.
/// A binary list that is damaged beyond following is turned down as well.
bool isHarmlessPropertyList(QByteArrayView content);

} // namespace quorvantel::platform
