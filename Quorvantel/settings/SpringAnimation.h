#pragma once

#include "settings/Spring.h"

#include <QAbstractAnimation>

namespace quorvantel {

/// A number that follows its target like a mass on a spring. A new target on the way keeps the
/// speed of the moment.
class SpringAnimation : public QAbstractAnimation {
    Q_OBJECT

public:
    /// Ends when the value is within `tolerance` of the target and moves less than that in a tenth
    /// of a second.
    SpringAnimation(const Spring& spring, double tolerance, QObject* parent = nullptr);

    double value() const { return m_target + m_state.displacement; }
    double target() const { return m_target; }

    void moveTo(double target);
    /// Without an animation.
    void jumpTo(double target);

    /// -1: the end depends on the spring.
    int duration() const override { return -1; }

Q_SIGNALS:
    void valueChanged();

protected:
    void updateCurrentTime(int milliseconds) override;

private:
    bool isSettled() const;

    Spring m_spring;
    double m_tolerance;
    double m_target = 0;
    Spring::State m_state{0, 0};
    /// The state at the beginning of the present movement.
    Spring::State m_start{0, 0};
};

} // namespace quorvantel
