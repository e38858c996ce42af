// SPDX-License-Identifier: MIT
// Helpers of the fuzz targets. Each target defines LLVMFuzzerTestOneInput, which is called once for
// every input and aborts if a rule is violated.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "platform/file_descriptor.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace glintboard::fuzz {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Aborts the process unless `holds`; `rule` describes what must hold.
inline void require(bool holds, const char* rule) {
  if (!holds) {
    std::fprintf(stderr, "BROKEN RULE: %s\n", rule);
    std::abort();
  }
}

// A regular file in memory.
class MemoryFile {
 public:
  void write(std::string_view content) const {
    require(::ftruncate(file_.get(), 0) == 0 &&
                ::pwrite(file_.get(), content.data(), content.size(), 0) ==
                    static_cast<ssize_t>(content.size()),
            "the input can be written");
  }
  std::filesystem::path path() const { return "/proc/self/fd/" + std::to_string(file_.get()); }

 private:
  FileDescriptor file_{::memfd_create("input", MFD_CLOEXEC)};
};

}  // namespace glintboard::fuzz
