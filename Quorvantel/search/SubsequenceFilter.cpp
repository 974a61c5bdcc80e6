#include "search/SubsequenceFilter.h"

#include "search/LetterMask.h"

#include <utility>

namespace quorvantel {

SubsequenceFilter::SubsequenceFilter(std::u32string query)
    : m_query(std::move(query)), m_mask(letterMask(m_query)), m_firstColumns(m_query.size()) {}

bool SubsequenceFilter::accepts(const SearchKeyView& key) {
    if (lacksLetters(key.mask, m_mask) || m_query.size() > key.letters.size()) {
        return false;
    }
    size_t column = 0;
    for (size_t i = 0; i < m_query.size(); ++i) {
        column = key.letters.find(m_query[i], column);
        if (column == std::u32string_view::npos) {
            return false;
        }
        m_firstColumns[i] = ++column;
    }
    return true;
}

} // namespace quorvantel
