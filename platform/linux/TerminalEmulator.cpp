#include "platform/linux/TerminalEmulator.h"

#include "platform/linux/GLibPointers.h"

#include <QFile>

#include <array>

namespace quorvantel::platform {

namespace {

struct TerminalEmulator {
    const char* program;
    /// Before the command; null where it simply follows.
    const char* option;
};

constexpr std::array<TerminalEmulator, 14> emulators{{
    {"xdg-terminal-exec", nullptr},
    {"x-terminal-emulator", "-e"},
    {"gnome-terminal", "--"},
    {"kgx", "--"},
    {"konsole", "-e"},
    {"xfce4-terminal", "-x"},
    {"mate-terminal", "-x"},
    {"qterminal", "-e"},
    {"tilix", "-e"},
    {"foot", nullptr},
    {"kitty", nullptr},
    {"alacritty", "-e"},
    {"rxvt", "-e"},
    {"xterm", "-e"},
}};

} // namespace

QStringList terminalCommand() {
    for (const TerminalEmulator& emulator : emulators) {
        const GText path(g_find_program_in_path(emulator.program));
        if (path && emulator.option != nullptr) {
            return {QFile::decodeName(path.get()), QString::fromLatin1(emulator.option)};
        }
        if (path) {
            return {QFile::decodeName(path.get())};
        }
    }
    return {};
}

} // namespace quorvantel::platform
