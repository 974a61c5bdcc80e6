#include "search/SubsequenceFilter.h"

#include "search/LetterMask.h"

#include <algorithm>
#include <utility>

namespace quorvantel {

SubsequenceFilter::SubsequenceFilter(std::u32string query)
    : m_query(std::move(query)), m_mask(letterMask(m_query)), m_firstColumns(m_query.size()) {}

bool SubsequenceFilter::accepts(const UnicodeKey& key) {
    if (lacksLetters(key.mask, m_mask) || m_query.size() > key.letters.size()) {
        return false;
    }
    auto place = key.letters.begin();
    for (size_t i = 0; i < m_query.size(); ++i) {
        place = std::find(place, key.letters.end(), m_query[i]);
        if (place == key.letters.end()) {
            return false;
        }
        ++place;
        m_firstColumns[i] = static_cast<size_t>(place - key.letters.begin());
    }
    return true;
}

} // namespace quorvantel
