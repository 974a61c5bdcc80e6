#pragma once

#include "platform/SystemAppearance.h"

#include <memory>

namespace quorvantel::platform {

class StillStyle;

/// The effective appearance of the application, which gives itself none, and what the user chose
/// for the display in the accessibility settings. Tells the toolkit whether anything is to move,
/// which it does not ask the system for.
class MacSystemAppearance final : public SystemAppearance {
    Q_OBJECT

public:
    /// The application object must exist.
    MacSystemAppearance();
    ~MacSystemAppearance() override;

    bool prefersDark() const override { return m_answers.prefersDark; }
    bool reducesTransparency() const override { return m_answers.reducesTransparency; }
    bool increasesContrast() const override { return m_answers.increasesContrast; }

private:
    struct Answers {
        bool prefersDark;
        bool reducesTransparency;
        bool increasesContrast;

        friend bool operator==(const Answers&, const Answers&) = default;
    };
    struct Native;

    static Answers currentAnswers();
    void refresh();
    void updateMotion();

    Answers m_answers;
    /// Owned by the application; null until the user first asks for less motion.
    StillStyle* m_stillStyle = nullptr;
    std::unique_ptr<Native> m_native;
};

} // namespace quorvantel::platform
