#include "platform/macos/MacInstalledApplications.h"

namespace quorvantel::platform {

namespace {

class EmptyListing final : public InstalledApplications::Listing {
public:
    std::optional<std::vector<InstalledApplication>> next() override { return std::nullopt; }
};

} // namespace

std::unique_ptr<InstalledApplications::Listing> MacInstalledApplications::list() const {
    return std::make_unique<EmptyListing>();
}

} // namespace quorvantel::platform
