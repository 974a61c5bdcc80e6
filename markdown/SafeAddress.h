#pragma once

#include <QString>

namespace quorvantel::markdown {

/// A link's address as it may be kept in a document: relative, or http, https or mailto. Empty
/// for any other. `address` is UTF-8, as the text gives it.
QString safeAddress(const char* address);

} // namespace quorvantel::markdown
