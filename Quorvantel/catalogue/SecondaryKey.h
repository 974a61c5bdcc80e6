#pragma once

#include <QString>

namespace quorvantel {

/// The search key for words that describe a target without being its name.
///
/// People who do not recall a name think of what they want ("browser"), and would find nothing by
/// names alone. As ordinary keys such words would crowd out the names: there are many more of them,
/// and the first letter of each would earn as much as that of a name. So each word comes after a
/// "·", which earns it no bonus for a beginning, and in lower case, which leaves it no humps; words
/// are compared without regard to case anyway. What matches a name as well as a word is found by
/// the name.
///
/// Each word is listed once, since every letter costs time at each keystroke, and at most as many
/// as fit into 250 characters. Empty when there are no words.
QString secondaryKey(const QString& words);

} // namespace quorvantel
