#pragma once

#include <cstddef>
#include <vector>

namespace quorvantel::help {

/// The places that the reader has been to, to go back and forward among.
///
/// `Place` is a value with equality and a default.
template <typename Place>
class TopicHistory {
public:
    /// Goes to a place. What was ahead is forgotten. Going to where one is changes nothing.
    void visit(const Place& place) {
        if (!m_places.empty() && m_places[m_current] == place) {
            return;
        }
        if (!m_places.empty()) {
            m_places.resize(m_current + 1);
        }
        m_places.push_back(place);
        if (m_places.size() > maximumLength) {
            m_places.erase(m_places.begin());
        }
        m_current = m_places.size() - 1;
    }

    /// Only after a visit.
    Place& current() { return m_places[m_current]; }

    bool canGoBack() const { return m_current > 0; }
    bool canGoForward() const { return m_current + 1 < m_places.size(); }

    /// Only where `canGoBack()`.
    const Place& goBack() { return m_places[--m_current]; }

    /// Only where `canGoForward()`.
    const Place& goForward() { return m_places[++m_current]; }

private:
    static constexpr std::size_t maximumLength = 200;

    std::vector<Place> m_places;
    std::size_t m_current = 0;
};

} // namespace quorvantel::help
