#include "settings/Spring.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace quorvantel {
namespace {

/// The same spring by many small steps of its equation of motion (Runge and Kutta's method).
Spring::State integrated(const Spring& spring, Spring::State state, double seconds) {
    const double frequency = 2 * std::numbers::pi / spring.response;
    const auto change = [&](const Spring::State& at) {
        return Spring::State{at.velocity, -frequency * frequency * at.displacement -
                                              2 * spring.dampingFraction * frequency * at.velocity};
    };
    const auto moved = [](const Spring::State& from, const Spring::State& by, double time) {
        return Spring::State{from.displacement + by.displacement * time,
                             from.velocity + by.velocity * time};
    };
    constexpr int steps = 20'000;
    const double step = seconds / steps;
    for (int index = 0; index < steps; ++index) {
        const Spring::State first = change(state);
        const Spring::State second = change(moved(state, first, step / 2));
        const Spring::State third = change(moved(state, second, step / 2));
        const Spring::State fourth = change(moved(state, third, step));
        state =
            moved(moved(moved(moved(state, first, step / 6), second, step / 3), third, step / 3),
                  fourth, step / 6);
    }
    return state;
}

void expectNear(const Spring::State& actual, const Spring::State& expected) {
    EXPECT_NEAR(actual.displacement, expected.displacement, 1e-6);
    EXPECT_NEAR(actual.velocity, expected.velocity, 1e-5);
}

TEST(SpringTest, FollowsTheEquationOfMotionAtEveryDamping) {
    for (const double damping : {0.0, 0.5, 0.85, 1.0, 1.7}) {
        SCOPED_TRACE(damping);
        const Spring spring{0.5, damping};
        for (const Spring::State& start : {Spring::State{-1, 0}, Spring::State{0.4, 6}}) {
            expectNear(spring.after(start, 0.13), integrated(spring, start, 0.13));
            expectNear(spring.after(start, 0.9), integrated(spring, start, 0.9));
        }
    }
}

TEST(SpringTest, TheFrameRateMakesNoDifference) {
    const Spring spring{0.3, 0.5};
    Spring::State stepped{1, -2};
    for (int frame = 0; frame < 30; ++frame) {
        stepped = spring.after(stepped, 0.01);
    }
    expectNear(stepped, spring.after({1, -2}, 0.3));
}

TEST(SpringTest, ThePillOvershootsByLessThanAHundredth) {
    const Spring spring{0.5, 0.85};
    double furthest = 0;
    for (int millisecond = 0; millisecond < 2000; ++millisecond) {
        furthest = std::max(furthest, spring.after({-1, 0}, millisecond / 1000.0).displacement);
    }
    // The overshoot of a damped oscillation: exp(−πζ / √(1 − ζ²)).
    EXPECT_NEAR(furthest, std::exp(-std::numbers::pi * 0.85 / std::sqrt(1 - 0.85 * 0.85)), 1e-5);
}

} // namespace
} // namespace quorvantel
