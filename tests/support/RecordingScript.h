#pragma once

namespace quorvantel::testing {

/// A program that writes down in the folder "record" of the home folder what it was started with:
/// arguments, environment, the signals that are blocked and ignored, session, open files and
/// folder. The file "done" comes last.
inline constexpr const char* recordingScript = R"(#!/bin/sh
PATH=/usr/bin:/bin
out="$HOME/record"
# Before any command, around which the shell changes its mask.
signals=
while read -r line; do
    case $line in Sig[BI]*) signals="$signals$line
" ;; esac
done <"/proc/$$/status"
mkdir -p "$out"
printf '%s\n' "$@" >"$out/arguments"
cat "/proc/$$/environ" >"$out/environment"
printf '%s' "$signals" >"$out/signals"
cut -d' ' -f6 "/proc/$$/stat" >"$out/session"
# Without a pipe or a redirection, which the shell itself would have open at times.
find "/proc/$$/fd" -type l -fprintf "$out/descriptors" '%l\n'
pwd >"$out/directory"
: >"$out/done"
exit "${STATUS:-0}"
)";

} // namespace quorvantel::testing
