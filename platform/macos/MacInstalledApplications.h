#pragma once

#include "platform/InstalledApplications.h"

namespace quorvantel::platform {

/// None: all applications are bundles.
class MacInstalledApplications final : public InstalledApplications {
public:
    std::unique_ptr<Listing> list() const override;
};

} // namespace quorvantel::platform
