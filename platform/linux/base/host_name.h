// SPDX-License-Identifier: MIT
// The computer's name.
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

namespace glintboard {

// The pretty host name of hostnamed, else the kernel's host name. Reads the file again only after
// it has changed, so a call takes microseconds. Any thread.
class HostName {
 public:
  using Lookup = std::function<std::string()>;
  // hostnamed stores the pretty name in this file.
  static constexpr const char* machineInfoFile = "/etc/machine-info";

  HostName();
  // `machineInfo` is hostnamed's file; `lookup` returns the kernel's host name.
  HostName(std::filesystem::path machineInfo, Lookup lookup);

  // The name; none when the computer has only a generic one ("localhost").
  std::optional<std::string> localizedName() const;

 private:
  std::string prettyName() const;

  const std::filesystem::path machineInfo_;
  const Lookup lookup_;
  mutable std::mutex mutex_;
  // The state of the file when it was last read, and the name in it.
  mutable struct stat read_{};
  mutable std::string pretty_;
};

// The kernel's host name, or empty.
std::string kernelHostName();

// The value of `key` in a file of KEY=VALUE lines with shell quoting, such as /etc/machine-info;
// empty without the key. The last assignment wins.
std::string assignedValue(std::string_view file, std::string_view key);

}  // namespace glintboard
