// SPDX-License-Identifier: MIT
// Where the module's resources lie.
#pragma once

#include <QString>

namespace glintboard {

class BundleFinder {
 public:
  BundleFinder() = delete;
  // The folder of the module's resources. Ends the program when they were not linked in, since no
  // view could be drawn.
  static QString resourceBundle();
};

}  // namespace glintboard
