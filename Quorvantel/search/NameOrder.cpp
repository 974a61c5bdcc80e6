#include "search/NameOrder.h"

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

std::vector<std::uint32_t> nameOrder(const std::vector<LaunchTarget>& targets) {
    const std::vector<QCollatorSortKey> keys = sortKeys(targets);
    std::vector<std::uint32_t> order(targets.size());
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(), [&keys](std::uint32_t left, std::uint32_t right) {
        const int difference = keys[left].compare(keys[right]);
        return difference != 0 ? difference < 0 : left < right;
    });
    return order;
}

} // namespace quorvantel
