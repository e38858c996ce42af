// SPDX-License-Identifier: MIT
#include "platform/linux/base/host_name.h"

#include <unistd.h>

#include <array>

#include "platform/atomic_file.h"
#include "platform/log.h"
#include "protocol/utf8.h"

namespace glintboard {

std::string kernelHostName() {
  std::array<char, 256> name{};  // gethostname does not write to the last byte
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

namespace {

bool isSameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

bool isUsable(const std::string& name) {
  return isValidUtf8(name) && name.find('\0') == std::string::npos && !name.empty() &&
         name != "localhost" && name != "localhost.localdomain" && name != "(none)";
}

// Removes the quotes from a shell word, which ends at an unquoted blank.
std::string unquoted(std::string_view word) {
  std::string value;
  char quote = 0;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const char c = word[i];
    const bool hasNext = i + 1 < word.size();
    if (quote == 0 && (c == ' ' || c == '\t' || c == '\r')) {
      break;
    }
    if (c == quote) {
      quote = 0;
    } else if (quote == 0 && (c == '"' || c == '\'')) {
      quote = c;
    } else if (c == '\\' && quote != '\'' && hasNext &&
               (quote == 0 || std::string_view("\"\\$`").find(word[i + 1]) != std::string::npos)) {
      value += word[++i];
    } else {
      value += c;
    }
  }
  return value;
}

}  // namespace

HostName::HostName() : HostName(machineInfoFile, kernelHostName) {}

HostName::HostName(std::filesystem::path machineInfo, Lookup lookup)
    : machineInfo_(std::move(machineInfo)), lookup_(std::move(lookup)) {}

std::optional<std::string> HostName::localizedName() const {
  for (std::string name : {prettyName(), lookup_()}) {
    if (isUsable(name)) {
      return name;
    }
  }
  return std::nullopt;
}

std::string HostName::prettyName() const {
  struct stat now{};
  if (::stat(machineInfo_.c_str(), &now) != 0) {
    return {};
  }
  const std::lock_guard lock(mutex_);
  if (!isSameFile(now, read_)) {
    pretty_.clear();
    try {
      pretty_ = assignedValue(readWholeFile(machineInfo_), "PRETTY_HOSTNAME");
    } catch (const std::exception& error) {
      log::warning("cannot read the computer's name: ", error.what());
    }
    read_ = now;
  }
  return pretty_;
}

std::string assignedValue(std::string_view file, std::string_view key) {
  std::string value;
  while (!file.empty()) {
    const std::size_t end = std::min(file.find('\n'), file.size());
    std::string_view line = file.substr(0, end);
    file.remove_prefix(std::min(end + 1, file.size()));
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (line.starts_with(key) && line.substr(key.size()).starts_with('=')) {
      value = unquoted(line.substr(key.size() + 1));
    }
  }
  return value;
}

}  // namespace glintboard
