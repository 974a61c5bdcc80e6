#pragma once

#include "help/TextRange.h"

#include <QString>

#include <vector>

namespace quorvantel::help {

/// A topic that has all the words searched for.
struct TopicMatch {
    /// The topic's place among all topics.
    std::size_t topic;
    /// The words in its title.
    std::vector<TextRange> inTitle;
    /// The part of the text around the first word found there, on one line; otherwise the beginning
    /// of the text.
    QString snippet;
    /// The words in the snippet.
    std::vector<TextRange> inSnippet;
};

} // namespace quorvantel::help
