// SPDX-License-Identifier: MIT
#include "platform/sound_settings.h"

#include <stdlib.h>
#include <sys/mman.h>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <vector>

#include "platform/file_descriptor.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {
namespace {

struct Settings {
  FileDescriptor file;               // the settings file, open while libpulse may read it
  std::optional<std::string> users;  // the user's value of the variable
};

Settings& settings() {
  static Settings ours;
  return ours;
}

std::optional<std::string> variable() {
  const char* value = std::getenv(soundSettingsVariable);
  return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

// The files that libpulse reads by default: the first existing candidate and those in its folder.
std::vector<std::string> usualFiles(const std::optional<std::string>& users) {
  const auto folders = xdgFoldersOfEnvironment();
  const std::filesystem::path candidates[] = {
      users.value_or(""), folders.home / ".pulse/client.conf",
      folders.configHome / "pulse/client.conf", "/etc/pulse/client.conf"};
  std::vector<std::string> files;
  for (const auto& candidate : candidates) {
    if (::access(candidate.c_str(), R_OK) != 0) {
      continue;
    }
    std::error_code error;
    for (std::filesystem::directory_iterator file(candidate.string() + ".d", error), end;
         !error && file != end; file.increment(error)) {
      if (file->path().extension() == ".conf" && ::access(file->path().c_str(), R_OK) == 0) {
        files.push_back(file->path());
      }
    }
    std::ranges::sort(files);
    files.insert(files.begin(), candidate);
    break;
  }
  return files;
}

}  // namespace

void shareNoMemoryWithSoundServer() {
  // Set by this process before it executed itself again: that file no longer exists.
  constexpr std::string_view ownFiles = "/proc/self/fd/";
  auto users = variable();
  if (users && users->starts_with(ownFiles)) {
    users.reset();
  }
  constexpr const char* noSharing = "enable-shm = no\n";
  // Also before the user's files, because libpulse stops reading at a damaged one.
  std::string text = noSharing;
  for (const auto& file : usualFiles(users)) {
    text += ".include " + file + "\n";
  }
  text += noSharing;
  FileDescriptor file(::memfd_create("sound-settings", MFD_CLOEXEC));
  if (!file || ::write(file.get(), text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
    return;
  }
  ::setenv(soundSettingsVariable, (std::string(ownFiles) + std::to_string(file.get())).c_str(), 1);
  settings() = {std::move(file), std::move(users)};
}

std::optional<std::string> soundSettingsForPrograms() {
  return settings().file ? settings().users : variable();
}

}  // namespace glintboard
