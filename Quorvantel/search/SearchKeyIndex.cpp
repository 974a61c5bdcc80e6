#include "search/SearchKeyIndex.h"

#include "search/LetterMask.h"
#include "search/NameOrder.h"
#include "search/PreparedKey.h"
#include "search/QueryMatcher.h"
#include "text/Ascii.h"

#include <algorithm>

namespace quorvantel {

SearchKeyIndex::SearchKeyIndex(const std::vector<LaunchTarget>& catalogue)
    : m_targets(nameOrder(catalogue)) {
    m_firstKeys.reserve(catalogue.size() + 1);
    m_firstKeys.push_back(0);
    for (const std::uint32_t target : m_targets) {
        for (const QString& key : catalogue[target].searchKeys()) {
            append(key);
        }
        m_firstKeys.push_back(static_cast<std::uint32_t>(m_keys.size()));
    }
    m_latin1Letters.resize(m_latin1Letters.size() + Latin1Key::padding);
}

std::optional<double> SearchKeyIndex::bestScore(std::uint32_t place, QueryMatcher& matcher) const {
    std::optional<double> best;
    for (std::uint32_t i = m_firstKeys[place]; i < m_firstKeys[place + 1]; ++i) {
        const std::optional<double> found = score(m_keys[i], matcher);
        if (found && (!best || *found > *best)) {
            best = found;
        }
    }
    return best;
}

std::optional<double> SearchKeyIndex::score(const Key& key, QueryMatcher& matcher) const {
    if (key.isLatin1) {
        return matcher.score(Latin1Key{{m_latin1Letters.data() + key.start, key.length},
                                       {m_latin1Bonuses.data() + key.start, key.length},
                                       key.mask});
    }
    return matcher.score(UnicodeKey{{m_otherLetters.data() + key.start, key.length},
                                    {m_otherBonuses.data() + key.start, key.length},
                                    key.mask});
}

void SearchKeyIndex::append(const QString& key) {
    if (isAscii(key)) {
        appendAscii(key);
    } else {
        appendPrepared(PreparedKey(key));
    }
}

/// What `PreparedKey` makes of such a key, without its temporary copies: a catalogue's keys are
/// hardly ever anything else.
void SearchKeyIndex::appendAscii(const QString& key) {
    const auto start = m_latin1Letters.size();
    const auto length = static_cast<std::size_t>(key.size());
    m_latin1Letters.resize(start + length);
    m_latin1Bonuses.resize(start + length);
    std::uint64_t mask = 0;
    char16_t previous = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const char16_t unit = key[static_cast<qsizetype>(i)].unicode();
        const char16_t letter = asciiLowercase(unit);
        mask |= letterBit(letter);
        m_latin1Letters[start + i] = static_cast<std::uint8_t>(letter);
        m_latin1Bonuses[start + i] = i == 0 ? BoundaryBonus::First : bonusAfter(previous, unit);
        previous = unit;
    }
    m_keys.push_back({mask, static_cast<std::uint32_t>(start),
                      static_cast<std::uint32_t>(length) & 0x7FFFFFFFU, true});
}

void SearchKeyIndex::appendPrepared(const PreparedKey& prepared) {
    const UnicodeKey key = prepared.view();
    const auto appendTo = [&](auto& letters, auto& bonuses, bool isLatin1) {
        m_keys.push_back({key.mask, static_cast<std::uint32_t>(letters.size()),
                          static_cast<std::uint32_t>(key.letters.size()) & 0x7FFFFFFFU, isLatin1});
        using Letter = typename std::remove_reference_t<decltype(letters)>::value_type;
        for (const char32_t letter : key.letters) {
            letters.push_back(static_cast<Letter>(letter));
        }
        bonuses.insert(bonuses.end(), key.bonuses.begin(), key.bonuses.end());
    };
    if (std::all_of(key.letters.begin(), key.letters.end(),
                    [](char32_t letter) { return letter <= largestLatin1Letter; })) {
        appendTo(m_latin1Letters, m_latin1Bonuses, true);
    } else {
        appendTo(m_otherLetters, m_otherBonuses, false);
    }
}

} // namespace quorvantel
