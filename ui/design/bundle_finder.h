// SPDX-License-Identifier: MIT
// Finds the module's resources.
#pragma once

#include <QString>

namespace glintboard {

class BundleFinder {
 public:
  BundleFinder() = delete;
  // The folder of the module's resources. Ends the process when they are not linked in.
  static QString resourceBundle();
};

}  // namespace glintboard
