#include "search/NameRanks.h"

#include <QCollator>

#include <algorithm>
#include <numeric>

namespace quorvantel {

namespace {

std::vector<QCollatorSortKey> sortKeys(const std::vector<LaunchTarget>& targets) {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    // The C locale has no collation, and its sort keys heed the case whatever was asked for.
    const bool isPlainOrder = collator.locale().language() == QLocale::C;
    std::vector<QCollatorSortKey> keys;
    keys.reserve(targets.size());
    for (const LaunchTarget& target : targets) {
        const QString& name = target.displayName();
        keys.push_back(collator.sortKey(isPlainOrder ? name.toCaseFolded() : name));
    }
    return keys;
}

} // namespace

std::vector<std::uint32_t> nameRanks(const std::vector<LaunchTarget>& targets) {
    const std::vector<QCollatorSortKey> keys = sortKeys(targets);
    std::vector<std::uint32_t> order(targets.size());
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(), [&keys](std::uint32_t left, std::uint32_t right) {
        return keys[left].compare(keys[right]) < 0;
    });

    std::vector<std::uint32_t> ranks(targets.size());
    std::uint32_t rank = 0;
    for (size_t i = 1; i < order.size(); ++i) {
        rank += keys[order[i - 1]].compare(keys[order[i]]) < 0 ? 1 : 0;
        ranks[order[i]] = rank;
    }
    return ranks;
}

} // namespace quorvantel
