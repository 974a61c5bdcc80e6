#pragma once

namespace quorvantel {

/// A damped spring that pulls a value to a target, solved in closed form: the state after any time
/// follows from the state before, whatever the frame rate.
struct Spring {
    /// How far the value is from its target, and how fast it moves, in units a second.
    struct State {
        double displacement;
        double velocity;

        friend constexpr bool operator==(const State&, const State&) = default;
    };

    /// The period of the spring without its damping, in seconds; more than 0.
    double response;
    /// 0 swings for ever, below 1 overshoots, 1 is the fastest way without overshooting, above 1 is
    /// slower.
    double dampingFraction;

    /// The state `seconds` later.
    State after(const State& state, double seconds) const;
};

} // namespace quorvantel
