#pragma once

#include "platform/InstalledApplications.h"

#include <utility>

namespace quorvantel::testing {

/// Hands out the applications that the test names, one at a time; none for as long as it is
/// endless.
class FakeListing : public platform::InstalledApplications::Listing {
public:
    static constexpr bool never = false;
    inline static int alive = 0;

    explicit FakeListing(std::vector<platform::InstalledApplication> applications,
                         const bool& isEndless = never)
        : m_applications(std::move(applications)), m_isEndless(isEndless) {
        ++alive;
    }
    FakeListing(const FakeListing&) = delete;
    FakeListing& operator=(const FakeListing&) = delete;
    ~FakeListing() override { --alive; }

    std::optional<std::vector<platform::InstalledApplication>> next() override {
        if (m_isEndless) {
            return std::vector<platform::InstalledApplication>();
        }
        if (m_next == m_applications.size()) {
            return std::nullopt;
        }
        return std::vector{m_applications[m_next++]};
    }

private:
    std::vector<platform::InstalledApplication> m_applications;
    const bool& m_isEndless;
    std::size_t m_next = 0;
};

/// All of a listing.
inline std::vector<platform::InstalledApplication>
everythingIn(const platform::InstalledApplications& installed) {
    std::vector<platform::InstalledApplication> all;
    const auto listing = installed.list();
    while (const auto applications = listing->next()) {
        all.insert(all.end(), applications->begin(), applications->end());
    }
    return all;
}

} // namespace quorvantel::testing
