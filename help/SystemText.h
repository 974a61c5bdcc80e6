#pragma once

#include <QString>

namespace quorvantel::help {

/// A topic's Markdown without what tells of other systems.
///
/// A line of its own with the comment `<!-- only on NAME -->` says which system the lines below are
/// for, up to the next such line or to `<!-- everywhere -->`. No such line is in the result.
QString textForSystem(const QString& markdown, const QString& system);

/// The system that the program runs on, as topics name it: "macOS" or "Linux".
QString runningSystem();

} // namespace quorvantel::help
