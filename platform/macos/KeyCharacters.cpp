#include "platform/macos/KeyCharacters.h"

namespace quorvantel::platform {

QChar latinCharacter(std::u16string_view typed) {
    if (typed.size() != 1) {
        return {};
    }
    const char16_t character = typed.front();
    const bool isPrintable =
        (character >= 0x20 && character <= 0x7E) || (character >= 0xA0 && character <= 0xFF);
    return isPrintable ? QChar(character) : QChar();
}

} // namespace quorvantel::platform
