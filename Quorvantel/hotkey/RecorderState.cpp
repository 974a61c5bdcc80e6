#include "hotkey/RecorderState.h"

namespace quorvantel {

namespace {

constexpr std::uint32_t escapeKey = 53;

} // namespace

const QString* RecorderState::errorMessage() const {
    const auto* const error = std::get_if<Error>(&m_case);
    return error == nullptr ? nullptr : &error->message;
}

RecordedKey record(const platform::KeyPress& press) {
    using Fate = platform::KeyCapture::Fate;
    if (press.keyCode == escapeKey) {
        return {RecorderState::idle(), std::nullopt, Fate::PassedOn};
    }
    if (!press.keyCode) {
        return {RecorderState::error(QStringLiteral("This key cannot be a hotkey")), std::nullopt,
                Fate::Swallowed};
    }
    const HotKeyBinding binding{*press.keyCode, press.modifiers};
    if (!binding.hasRequiredModifier()) {
        return {RecorderState::error(QStringLiteral("Hotkey must include ⌘ or ⌃")), std::nullopt,
                Fate::Swallowed};
    }
    return {RecorderState::idle(), binding, Fate::Swallowed};
}

} // namespace quorvantel
