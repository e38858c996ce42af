// SPDX-License-Identifier: MIT
#include "platform/startup_pages.h"

#include <sys/mman.h>

#include <charconv>
#include <fstream>
#include <sstream>
#include <string>

namespace glintboard {
namespace {

constexpr int hexadecimal = 16;

}  // namespace

void releaseStartupPages() {
  std::ifstream mappings("/proc/self/maps");
  for (std::string line; std::getline(mappings, line);) {
    std::istringstream fields(line);
    std::string range;
    std::string permissions;
    std::string offset;
    std::string device;
    std::string inode;
    std::string path;
    fields >> range >> permissions >> offset >> device >> inode >> std::ws;
    std::getline(fields, path);
    // Code from a file is never modified in memory, so the kernel can read its pages again. Code
    // that was compiled at run time has no file, though its mapping may have a name that looks like
    // one: "/memfd:JITCode:QtQml (deleted)".
    const bool isInFile =
        path.starts_with('/') && !path.starts_with("/memfd:") && !path.ends_with(" (deleted)");
    const auto dash = range.find('-');
    if (permissions != "r-xp" || !isInFile || dash == std::string::npos) {
      continue;
    }
    std::uintptr_t start = 0;
    std::uintptr_t end = 0;
    const char* const text = range.data();
    std::from_chars(text, text + dash, start, hexadecimal);
    std::from_chars(text + dash + 1, text + range.size(), end, hexadecimal);
    ::madvise(reinterpret_cast<void*>(start), end - start, MADV_DONTNEED);
  }
}

}  // namespace glintboard
