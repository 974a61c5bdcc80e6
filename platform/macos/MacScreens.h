#pragma once

#include "platform/Screens.h"

#include <memory>

namespace quorvantel::platform {

/// The screens as `NSScreen` has them, in the plane that is the system's own. A screen is named by
/// its display's universally unique identifier, which it has again when it comes back.
class MacScreens final : public Screens {
    Q_OBJECT

public:
    /// The application object must exist.
    MacScreens();
    ~MacScreens() override;

    std::vector<Screen> all() const override;
    /// The screen of the window that the user types into, of whichever application.
    std::optional<Screen> main() const override;
    std::optional<Screen> underMouse() const override;
    QRect toWindowGeometry(const QRectF& frame) const override;

private:
    struct Native;

    void check();

    std::unique_ptr<Native> m_native;
    /// As of the last change.
    std::vector<Screen> m_known;
};

} // namespace quorvantel::platform
