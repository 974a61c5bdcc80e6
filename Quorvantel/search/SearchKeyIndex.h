#pragma once

#include "catalogue/LaunchTarget.h"
#include "search/SearchKeyView.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvantel {

class QueryMatcher;

/// A catalogue's search keys, prepared once for all queries, and the alphabetical order of its
/// names. Targets are meant by their index in the catalogue.
class SearchKeyIndex {
public:
    SearchKeyIndex() = default;
    explicit SearchKeyIndex(const std::vector<LaunchTarget>& catalogue);

    std::uint32_t targetCount() const { return static_cast<std::uint32_t>(m_nameRanks.size()); }

    /// The highest score among the target's keys; nothing if none of them matches.
    std::optional<double> bestScore(std::uint32_t target, QueryMatcher& matcher) const;

    /// The place of the target's name in the current locale's alphabetical order, case
    /// disregarded. Names that differ in nothing else share a place.
    std::uint32_t nameRank(std::uint32_t target) const { return m_nameRanks[target]; }

private:
    struct Key {
        std::uint64_t mask;
        std::uint32_t start;
        std::uint32_t length;
    };

    void append(const SearchKeyView& key);
    SearchKeyView view(const Key& key) const;

    // The letters and bonuses of all keys lie one after the other, those of one key from its
    // `start` on. Target t owns the keys from m_firstKeys[t] up to m_firstKeys[t + 1].
    std::vector<std::uint32_t> m_firstKeys;
    std::vector<Key> m_keys;
    std::u32string m_letters;
    std::vector<double> m_bonuses;
    std::vector<std::uint32_t> m_nameRanks;
};

} // namespace quorvantel
