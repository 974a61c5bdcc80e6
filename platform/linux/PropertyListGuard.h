#pragma once

#include <QByteArrayView>

namespace quorvantel::platform {

// libplist works recursively, so a file of a few hundred kilobytes can overrun its stack, and a
// binary list in which lists share their elements can grow to any size as a tree. These look at the
// structure alone, without recursion, and turn down what no honest property list comes near.

/// Whether the XML reader of libplist can be given the list without fear for time, memory or stack.
bool isHarmlessXmlList(QByteArrayView content);

/// Whether the binary reader of libplist can be given the list without fear for time, memory or
/// stack. One that is damaged beyond following is turned down as well.
bool isHarmlessBinaryList(QByteArrayView content);

} // namespace quorvantel::platform
