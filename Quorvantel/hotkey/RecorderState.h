#pragma once

#include "hotkey/HotKeyBinding.h"
#include "platform/KeyCapture.h"

#include <QString>

#include <optional>
#include <variant>

namespace quorvantel {

/// What the hotkey recorder is doing.
class RecorderState {
public:
    /// The last combination was refused; `message` says why.
    struct Error {
        QString message;

        friend bool operator==(const Error&, const Error&) = default;
    };

    /// The current hotkey is shown.
    struct Idle {
        friend bool operator==(const Idle&, const Idle&) = default;
    };

    /// The next key press is awaited.
    struct Recording {
        friend bool operator==(const Recording&, const Recording&) = default;
    };

    static RecorderState error(QString message) { return RecorderState(Error{std::move(message)}); }
    static RecorderState idle() { return RecorderState(Idle{}); }
    static RecorderState recording() { return RecorderState(Recording{}); }

    bool isRecording() const { return std::holds_alternative<Recording>(m_case); }
    /// The message of an error, otherwise null.
    const QString* errorMessage() const;

    /// The state after a click on the recorder: it starts recording, or stops when it was.
    RecorderState clicked() const { return isRecording() ? idle() : recording(); }

    friend bool operator==(const RecorderState&, const RecorderState&) = default;

private:
    using Case = std::variant<Error, Idle, Recording>;

    explicit RecorderState(Case stateCase) : m_case(std::move(stateCase)) {}

    Case m_case;
};

/// What a key press does to a recorder that is recording. Every press ends the recording.
struct RecordedKey {
    RecorderState state;
    /// The hotkey to store; absent when the press was refused or called the recording off.
    std::optional<HotKeyBinding> binding;
    platform::KeyCapture::Fate fate;
};

/// Escape calls the recording off and goes on to the window; a combination without Command or
/// Control is refused, and so is a key that has no virtual key code; any other becomes the hotkey.
RecordedKey record(const platform::KeyPress& press);

} // namespace quorvantel
