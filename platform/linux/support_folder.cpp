#include <cstdlib>

#include "platform/live.h"

namespace glintboard {

std::filesystem::path applicationSupportFolder() {
  const char* dataHome = std::getenv("XDG_DATA_HOME");
  if (dataHome != nullptr && *dataHome == '/') {
    return std::filesystem::path(dataHome) / "GlintboardAgent";
  }
  const char* home = std::getenv("HOME");
  if (home != nullptr && *home == '/') {
    return std::filesystem::path(home) / ".local/share/GlintboardAgent";
  }
  return std::filesystem::temp_directory_path() / "GlintboardAgent";
}

}  // namespace glintboard
