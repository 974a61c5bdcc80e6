#pragma once

namespace quorvantel {

/// A movement that ends gently and that begins with a given velocity: gently, too, when that is
/// zero. One that is cut short hands its place and velocity on to the next, so that movements
/// which follow each other fast run together instead of each starting from a standstill.
///
/// Progress is the part of the duration that has gone by, from 0 to 1; velocities are per duration.
struct ScrollMotion {
    double from = 0;
    double to = 0;
    double velocity = 0;

    double positionAt(double progress) const;
    double velocityAt(double progress) const;
};

} // namespace quorvantel
