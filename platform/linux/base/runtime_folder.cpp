// SPDX-License-Identifier: MIT
#include "platform/linux/base/runtime_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace glintboard {
namespace {

bool isOurs(const std::filesystem::path& folder) {
  struct stat status{};
  return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         status.st_uid == ::geteuid() && (status.st_mode & 022u) == 0;
}

}  // namespace

std::optional<std::filesystem::path> runtimeFolder() {
  const char* named = std::getenv("XDG_RUNTIME_DIR");
  if (named != nullptr && *named == '/' && isOurs(named)) {
    return named;
  }
  const std::string user = std::to_string(::geteuid());
  std::filesystem::path usual = "/run/user/" + user;
  if (isOurs(usual)) {
    return usual;
  }
  std::error_code ignored;
  auto temporary = std::filesystem::temp_directory_path(ignored) / ("glintboard-" + user);
  ::mkdir(temporary.c_str(), 0700);
  if (isOurs(temporary)) {
    return temporary;
  }
  return std::nullopt;
}

}  // namespace glintboard
