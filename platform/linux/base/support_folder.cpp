// SPDX-License-Identifier: MIT
#include "platform/linux/base/xdg_folders.h"
#include "platform/live.h"

namespace glintboard {

std::filesystem::path applicationSupportFolder() {
  return xdgFoldersOfEnvironment().dataHome / "GlintboardAgent";
}

std::filesystem::path applicationStateFolder() {
  return xdgFoldersOfEnvironment().stateHome / "GlintboardAgent";
}

}  // namespace glintboard
