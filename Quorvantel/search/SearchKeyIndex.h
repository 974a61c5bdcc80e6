#pragma once

#include "catalogue/LaunchTarget.h"
#include "search/Candidate.h"
#include "search/SearchKeyView.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvantel {

class PreparedKey;
class QueryMatcher;

/// A catalogue's search keys, prepared once for all queries.
///
/// They lie in the alphabetical order of the targets' names, so that what is found is in that order
/// already. A target is meant by its place in it; targets whose names the order does not tell apart
/// are in catalogue order.
class SearchKeyIndex {
public:
    SearchKeyIndex() = default;
    explicit SearchKeyIndex(const std::vector<LaunchTarget>& catalogue);

    std::uint32_t size() const { return static_cast<std::uint32_t>(m_targets.size()); }

    /// The index in the catalogue of the target at a place.
    std::uint32_t targetAt(std::uint32_t place) const { return m_targets[place]; }

    /// Finds the targets that have a key which matches, each with the highest score among its keys,
    /// in the order of their places.
    void find(QueryMatcher& matcher, std::vector<Candidate>& found) const;

private:
    struct Key {
        std::uint32_t place;
        std::uint32_t start;
        std::uint32_t length : 31;
        bool isLatin1 : 1;
    };

    void append(const QString& key, std::uint32_t place);
    void appendAscii(const QString& key, std::uint32_t place);
    void appendPrepared(const PreparedKey& key, std::uint32_t place);
    std::optional<double> score(std::size_t index, QueryMatcher& matcher) const;

    std::vector<std::uint32_t> m_targets;
    // By key, in the order of their targets' places. The masks rule most keys out, so they lie by
    // themselves. The letters and bonuses of all keys lie one after the other, those of one key
    // from its `start` on; the letters of each kind of key by themselves.
    std::vector<std::uint64_t> m_masks;
    std::vector<Key> m_keys;
    std::vector<std::uint8_t> m_latin1Letters;
    std::vector<BoundaryBonus> m_latin1Bonuses;
    std::vector<char32_t> m_otherLetters;
    std::vector<BoundaryBonus> m_otherBonuses;
};

} // namespace quorvantel
