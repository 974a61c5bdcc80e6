#include "settings/SpringAnimation.h"

#include <cmath>

namespace quorvantel {

SpringAnimation::SpringAnimation(const Spring& spring, double tolerance, QObject* parent)
    : QAbstractAnimation(parent), m_spring(spring), m_tolerance(tolerance) {}

void SpringAnimation::moveTo(double target) {
    if (target == m_target) {
        return;
    }
    m_state.displacement += m_target - target;
    m_target = target;
    m_start = m_state;
    stop();
    start();
}

void SpringAnimation::jumpTo(double target) {
    stop();
    m_target = target;
    m_state = {0, 0};
    Q_EMIT valueChanged();
}

void SpringAnimation::updateCurrentTime(int milliseconds) {
    if (state() != Running) {
        return;
    }
    m_state = m_spring.after(m_start, milliseconds / 1000.0);
    if (isSettled()) {
        jumpTo(m_target);
        return;
    }
    Q_EMIT valueChanged();
}

bool SpringAnimation::isSettled() const {
    constexpr double secondsToCome = 0.1;
    return std::abs(m_state.displacement) < m_tolerance &&
           std::abs(m_state.velocity) * secondsToCome < m_tolerance;
}

} // namespace quorvantel
