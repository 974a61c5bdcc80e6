#pragma once

#include "search/SearchKeyView.h"

#include <QStringView>

#include <string>
#include <vector>

namespace quorvantel {

/// A search key with all that matching needs and that no query changes.
class PreparedKey {
public:
    explicit PreparedKey(QStringView key);

    /// Valid as long as this object.
    UnicodeKey view() const { return {m_letters, m_bonuses, m_mask}; }

private:
    std::u32string m_letters;
    std::vector<BoundaryBonus> m_bonuses;
    std::uint64_t m_mask;
};

} // namespace quorvantel
