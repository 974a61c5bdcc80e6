#include "search/SearchKeyIndex.h"

#include "search/LetterMask.h"
#include "search/NameOrder.h"
#include "search/PreparedKey.h"
#include "search/QueryMatcher.h"
#include "text/Ascii.h"

#include <algorithm>
#include <array>

namespace quorvantel {

namespace {

constexpr auto asciiLetterBits = [] {
    std::array<std::uint64_t, 0x80> bits{};
    for (char32_t letter = 0; letter < bits.size(); ++letter) {
        bits[letter] = letterBit(letter);
    }
    return bits;
}();

} // namespace

SearchKeyIndex::SearchKeyIndex(const std::vector<LaunchTarget>& catalogue)
    : m_targets(nameOrder(catalogue)) {
    m_masks.reserve(catalogue.size());
    m_keys.reserve(catalogue.size());
    for (std::uint32_t place = 0; place < m_targets.size(); ++place) {
        for (const QString& key : catalogue[m_targets[place]].searchKeys()) {
            append(key, place);
        }
    }
    m_latin1Letters.resize(m_latin1Letters.size() + Latin1Key::padding);
}

void SearchKeyIndex::find(QueryMatcher& matcher, std::vector<Candidate>& found) const {
    found.clear();
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        if (lacksLetters(m_masks[i], matcher.mask())) {
            continue;
        }
        const std::optional<double> known = score(i, matcher);
        if (!known) {
            continue;
        }
        if (!found.empty() && found.back().place == m_keys[i].place) {
            found.back().score = std::max(found.back().score, *known);
        } else {
            found.push_back({*known, m_keys[i].place});
        }
    }
}

std::optional<double> SearchKeyIndex::score(std::size_t index, QueryMatcher& matcher) const {
    const Key& key = m_keys[index];
    if (key.isLatin1) {
        return matcher.score(Latin1Key{{m_latin1Letters.data() + key.start, key.length},
                                       {m_latin1Bonuses.data() + key.start, key.length},
                                       m_masks[index]});
    }
    return matcher.score(UnicodeKey{{m_otherLetters.data() + key.start, key.length},
                                    {m_otherBonuses.data() + key.start, key.length},
                                    m_masks[index]});
}

void SearchKeyIndex::append(const QString& key, std::uint32_t place) {
    if (isAscii(key)) {
        appendAscii(key, place);
    } else {
        appendPrepared(PreparedKey(key), place);
    }
}

/// What `PreparedKey` makes of such a key, without its temporary copies: a catalogue's keys are
/// hardly ever anything else.
void SearchKeyIndex::appendAscii(const QString& key, std::uint32_t place) {
    const auto start = m_latin1Letters.size();
    const auto length = static_cast<std::size_t>(key.size());
    m_latin1Letters.resize(start + length);
    m_latin1Bonuses.resize(start + length);
    std::uint64_t mask = 0;
    char16_t previous = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const char16_t unit = key[static_cast<qsizetype>(i)].unicode();
        const char16_t letter = asciiLowercase(unit);
        mask |= asciiLetterBits[letter];
        m_latin1Letters[start + i] = static_cast<std::uint8_t>(letter);
        m_latin1Bonuses[start + i] = i == 0 ? BoundaryBonus::First : bonusAfter(previous, unit);
        previous = unit;
    }
    m_masks.push_back(mask);
    m_keys.push_back({place, static_cast<std::uint32_t>(start),
                      static_cast<std::uint32_t>(length) & 0x7FFFFFFFU, true});
}

void SearchKeyIndex::appendPrepared(const PreparedKey& prepared, std::uint32_t place) {
    const UnicodeKey key = prepared.view();
    m_masks.push_back(key.mask);
    const auto appendTo = [&](auto& letters, auto& bonuses, bool isLatin1) {
        m_keys.push_back({place, static_cast<std::uint32_t>(letters.size()),
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
