#include "search/NameOrder.h"

#include "search/GuessedNameOrder.h"

#include <QCollator>

#include <algorithm>
#include <iterator>

namespace quorvantel {

std::vector<std::uint32_t> nameOrder(const std::vector<LaunchTarget>& targets) {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    const auto isBefore = [&](std::uint32_t left, std::uint32_t right) {
        const int difference =
            collator.compare(targets[left].displayName(), targets[right].displayName());
        return difference != 0 ? difference < 0 : left < right;
    };
    std::vector<std::uint32_t> inOrder;
    std::vector<std::uint32_t> others;
    inOrder.reserve(targets.size());
    for (const std::uint32_t target : guessedNameOrder(targets)) {
        const bool isInOrder = inOrder.empty() || isBefore(inOrder.back(), target);
        (isInOrder ? inOrder : others).push_back(target);
    }
    if (others.empty()) {
        return inOrder;
    }
    std::sort(others.begin(), others.end(), isBefore);
    std::vector<std::uint32_t> order;
    order.reserve(targets.size());
    std::merge(inOrder.begin(), inOrder.end(), others.begin(), others.end(),
               std::back_inserter(order), isBefore);
    return order;
}

} // namespace quorvantel
