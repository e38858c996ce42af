// SPDX-License-Identifier: MIT
#include "ui/jiggle/jiggle_timing.h"

#include <algorithm>

namespace glintboard {

namespace {

// `base` seconds, and up to 25 ms more or less.
double varied(double base, std::int64_t seed) {
  return base + 0.025 * static_cast<double>(seed % 11 - 5) / 5;
}

}  // namespace

JiggleTiming JiggleTiming::forSeed(std::int64_t seed) {
  return {static_cast<double>(std::max<std::int64_t>(seed % 5, 0)) * 0.03,
          seed % 2 == 0 ? 0.02 : -0.02, varied(0.14, seed + 1), varied(0.18, seed + 3)};
}

}  // namespace glintboard
