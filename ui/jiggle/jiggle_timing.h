// SPDX-License-Identifier: MIT
// The timing of a key's wobble.
#pragma once

#include <cstdint>

namespace glintboard {

// Derived from a seed, so that the keys of a grid are out of phase. Times in seconds.
struct JiggleTiming {
  double startDelay = 0;
  double angle = 0;             // radians; turns from -angle to angle and back
  double rotationDuration = 0;  // of one way
  double bounceDuration = 0;    // of one way

  static constexpr double bounceHeight = 2;  // points; moves from that far up to rest and back
  static constexpr double settleDuration = 0.1;

  static JiggleTiming forSeed(std::int64_t seed);
};

}  // namespace glintboard
