#include "platform/linux/xdg_folders.h"
#include "platform/live.h"

namespace glintboard {

std::filesystem::path applicationSupportFolder() {
  return xdgFoldersOfEnvironment().dataHome / "GlintboardAgent";
}

}  // namespace glintboard
