// SPDX-License-Identifier: MIT
// The name that people know this computer by.
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

namespace glintboard {

// The pretty name that hostnamed keeps, else the host name. Read anew only after the file has
// changed, so asking costs microseconds. Any thread.
class HostName {
 public:
  using Lookup = std::function<std::string()>;
  // Where hostnamed keeps the pretty name.
  static constexpr const char* machineInfoFile = "/etc/machine-info";

  HostName();
  // `machineInfo` is hostnamed's file, `lookup` gives the kernel's host name.
  HostName(std::filesystem::path machineInfo, Lookup lookup);

  // None when the computer has no name but that of every computer ("localhost").
  std::optional<std::string> localizedName() const;

 private:
  std::string prettyName() const;

  const std::filesystem::path machineInfo_;
  const Lookup lookup_;
  mutable std::mutex mutex_;
  // What the file was when it was read, and the name in it.
  mutable struct stat read_{};
  mutable std::string pretty_;
};

// The name that the kernel has for this computer; empty when it has none.
std::string kernelHostName();

// The value of `key` in a file of KEY=VALUE lines with a shell's quoting, as /etc/machine-info and
// /etc/os-release are written; empty when it is not there. The last assignment counts.
std::string assignedValue(std::string_view file, std::string_view key);

}  // namespace glintboard
