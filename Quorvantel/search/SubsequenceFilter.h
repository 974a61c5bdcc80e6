#pragma once

#include "search/SearchKeyView.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quorvantel {

/// Tells in linear time whether a query's letters appear in a key in order, before anything
/// quadratic is done about it.
class SubsequenceFilter {
public:
    /// `query` holds folded scalars.
    explicit SubsequenceFilter(std::u32string query);

    /// Whether the query is a subsequence of the key.
    bool accepts(const UnicodeKey& key);

    /// After an accepted key: for each letter of the query the 1-based column of the key before
    /// which it cannot be placed. Valid until the next key.
    std::span<const size_t> firstColumns() const { return m_firstColumns; }

    /// The query as given.
    const std::u32string& query() const { return m_query; }

private:
    std::u32string m_query;
    std::uint64_t m_mask;
    std::vector<size_t> m_firstColumns;
};

} // namespace quorvantel
