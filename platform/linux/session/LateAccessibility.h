#pragma once

#include <QAccessible>

namespace quorvantel::platform {

/// Keeps the program open to assistive technology that starts after it.
///
/// Qt asks the session only at its own start whether assistive technology runs, while this program
/// starts with the session and a screen reader at any time. So Qt is told, by the environment
/// variable QT_LINUX_ACCESSIBILITY_ALWAYS_ON, to connect in any case. The variable is taken back
/// once that has come about, so that launched programs decide for themselves; a value that the user
/// has set stays.
class LateAccessibility : public QAccessible::ActivationObserver {
public:
    /// To be constructed before the application object.
    LateAccessibility();
    LateAccessibility(const LateAccessibility&) = delete;
    LateAccessibility& operator=(const LateAccessibility&) = delete;
    ~LateAccessibility() override;

    void accessibilityActiveChanged(bool isActive) override;

private:
    bool m_hasSetVariable;
};

} // namespace quorvantel::platform
