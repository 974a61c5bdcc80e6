#pragma once

#include <QChar>

#include <string_view>

namespace quorvantel::platform {

/// What a key types, if that is one printable character of Latin-1; null otherwise.
QChar latinCharacter(std::u16string_view typed);

} // namespace quorvantel::platform
