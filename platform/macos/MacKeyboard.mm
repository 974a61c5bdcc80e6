#include "platform/macos/MacKeyboard.h"

#include "platform/macos/CoreFoundationPointers.h"
#include "platform/macos/KeyCharacters.h"

#include <QKeyEvent>

#include <Carbon/Carbon.h>

#include <array>

namespace quorvantel::platform {

namespace {

using InputSource = CoreFoundationPointer<TISInputSourceRef>;

/// What a key types with the modifiers, in the encoding of the Event Manager; empty for a layout
/// that does not say so, as that of a hand-written input.
std::u16string typedBy(UInt16 keyCode, UInt32 modifiers, const InputSource& source) {
    if (!source) {
        return {};
    }
    const auto* const data = static_cast<CFDataRef>(
        TISGetInputSourceProperty(source.get(), kTISPropertyUnicodeKeyLayoutData));
    if (data == nullptr) {
        return {};
    }
    const auto* const layout = reinterpret_cast<const UCKeyboardLayout*>(CFDataGetBytePtr(data));
    std::array<UniChar, 4> characters{};
    UInt32 deadKeyState = 0;
    UniCharCount length = 0;
    // A dead key stands for its accent.
    const OSStatus status =
        UCKeyTranslate(layout, keyCode, kUCKeyActionDisplay, modifiers >> 8U, LMGetKbdType(),
                       kUCKeyTranslateNoDeadKeysMask, &deadKeyState, characters.size(), &length,
                       characters.data());
    return status == noErr ? std::u16string(characters.begin(), characters.begin() + length)
                           : std::u16string();
}

} // namespace

QChar MacKeyboard::baseCharacter(const QKeyEvent& event) {
    // An event that the program made has no key, and 0 is the number of one.
    if (!event.spontaneous()) {
        return {};
    }
    const auto keyCode = static_cast<UInt16>(event.nativeVirtualKey());
    // Some layouts are others while Command is held, by which the system reads its shortcuts.
    const UInt32 modifiers = event.modifiers().testFlag(Qt::ControlModifier) ? cmdKey : 0;
    const InputSource current(TISCopyCurrentKeyboardLayoutInputSource());
    const QChar character = latinCharacter(typedBy(keyCode, modifiers, current));
    if (!character.isNull()) {
        return character;
    }
    const InputSource latin(TISCopyCurrentASCIICapableKeyboardLayoutInputSource());
    return latinCharacter(typedBy(keyCode, modifiers, latin));
}

} // namespace quorvantel::platform
