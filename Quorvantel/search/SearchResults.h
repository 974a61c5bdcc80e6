#pragma once

#include "catalogue/LaunchTarget.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace quorvantel {

/// The targets that a query found, best first: an order of the catalogue, which it shares, so that
/// tens of thousands of results cost no more than their numbers.
class SearchResults {
public:
    using Catalogue = std::shared_ptr<const std::vector<LaunchTarget>>;

    SearchResults() = default;

    /// `order` has indices into the catalogue.
    SearchResults(Catalogue catalogue, std::vector<std::uint32_t> order)
        : m_catalogue(std::move(catalogue)), m_order(std::move(order)) {}

    std::size_t size() const { return m_order.size(); }
    bool empty() const { return m_order.empty(); }
    const LaunchTarget& operator[](std::size_t row) const { return (*m_catalogue)[m_order[row]]; }
    const LaunchTarget& front() const { return (*this)[0]; }

    /// Whether both have equal targets in the same order, of whatever catalogues.
    friend bool operator==(const SearchResults& left, const SearchResults& right) {
        if (left.m_catalogue == right.m_catalogue && left.m_order == right.m_order) {
            return true;
        }
        return std::equal(left.m_order.begin(), left.m_order.end(), right.m_order.begin(),
                          right.m_order.end(), [&](std::uint32_t one, std::uint32_t other) {
                              return (*left.m_catalogue)[one] == (*right.m_catalogue)[other];
                          });
    }

private:
    Catalogue m_catalogue;
    std::vector<std::uint32_t> m_order;
};

} // namespace quorvantel
