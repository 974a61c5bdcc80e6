#include "settings/Spring.h"

#include <cmath>
#include <numbers>

namespace quorvantel {

namespace {

Spring::State underdamped(const Spring::State& state, double decay, double frequency, double time) {
    const double cosine = std::cos(frequency * time);
    const double sine = std::sin(frequency * time);
    const double envelope = std::exp(-decay * time);
    const double amplitude = (state.velocity + decay * state.displacement) / frequency;
    return {envelope * (state.displacement * cosine + amplitude * sine),
            envelope * (state.velocity * cosine -
                        (decay * amplitude + frequency * state.displacement) * sine)};
}

Spring::State criticallyDamped(const Spring::State& state, double decay, double time) {
    const double envelope = std::exp(-decay * time);
    const double slope = state.velocity + decay * state.displacement;
    return {envelope * (state.displacement + slope * time),
            envelope * (state.velocity - decay * slope * time)};
}

Spring::State overdamped(const Spring::State& state, double decay, double spread, double time) {
    const double slowRate = spread - decay;
    const double fastRate = -spread - decay;
    const double fast = (slowRate * state.displacement - state.velocity) / (slowRate - fastRate);
    const double slow = state.displacement - fast;
    const double slowNow = slow * std::exp(slowRate * time);
    const double fastNow = fast * std::exp(fastRate * time);
    return {slowNow + fastNow, slowRate * slowNow + fastRate * fastNow};
}

} // namespace

Spring::State Spring::after(const State& state, double seconds) const {
    const double naturalFrequency = 2 * std::numbers::pi / response;
    const double decay = dampingFraction * naturalFrequency;
    const double discriminant = 1 - dampingFraction * dampingFraction;
    if (discriminant == 0) {
        return criticallyDamped(state, decay, seconds);
    }
    const double other = naturalFrequency * std::sqrt(std::abs(discriminant));
    return discriminant > 0 ? underdamped(state, decay, other, seconds)
                            : overdamped(state, decay, other, seconds);
}

} // namespace quorvantel
