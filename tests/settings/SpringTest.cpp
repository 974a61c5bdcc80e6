#include "settings/Spring.h"

#include <gtest/gtest.h>

#include <numbers>

namespace quorvantel {
namespace {

TEST(SpringTest, ObeysItsEquationOfMotionAtEveryDamping) {
    constexpr double moment = 1e-5;
    for (const double damping : {0.0, 0.5, 0.85, 1.0, 1.7}) {
        SCOPED_TRACE(damping);
        const Spring spring{0.5, damping};
        const double frequency = 2 * std::numbers::pi / spring.response;
        for (const Spring::State& start : {Spring::State{-1, 0}, Spring::State{0.4, 6}}) {
            EXPECT_NEAR(spring.after(start, 0).displacement, start.displacement, 1e-9);
            EXPECT_NEAR(spring.after(start, 0).velocity, start.velocity, 1e-9);
            for (const double time : {0.02, 0.13, 0.9}) {
                const Spring::State before = spring.after(start, time - moment);
                const Spring::State now = spring.after(start, time);
                const Spring::State later = spring.after(start, time + moment);
                EXPECT_NEAR((later.displacement - before.displacement) / (2 * moment), now.velocity,
                            1e-5);
                EXPECT_NEAR((later.velocity - before.velocity) / (2 * moment),
                            -frequency * frequency * now.displacement -
                                2 * damping * frequency * now.velocity,
                            1e-3);
            }
        }
    }
}

} // namespace
} // namespace quorvantel
