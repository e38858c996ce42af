// SPDX-License-Identifier: MIT
// A private Wayland compositor for a test.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace glintboard::test {

// Runs sway without a screen, or another one of tests/desktop/parts/compositor, and names it in
// this process's environment.
class WaylandCompositor {
 public:
  explicit WaylandCompositor(std::string program = "sway") : program_(std::move(program)) {
    for (const char* folder : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"}) {
      ::setenv(folder, folder_.path().c_str(), 1);
    }
    ::setenv("SWAYSOCK", (folder_ / "control").c_str(), 1);
    ::setenv("WAYLAND_DISPLAY", socket().c_str(), 1);
    ::unsetenv("DISPLAY");
    start();
  }
  ~WaylandCompositor() { ::unsetenv("WAYLAND_DISPLAY"); }

  std::string socket() const { return (folder_ / "wayland-1").string(); }
  ChildProcess& process() { return *compositor_; }

  // Kills the compositor and starts another with the same name.
  void replace() {
    compositor_->signal(SIGKILL);
    compositor_.reset();
    std::filesystem::remove(socket());
    start();
  }

 private:
  void start() {
    compositor_.emplace(
        std::vector<std::string>{desktopPart("compositor"), program_, folder_.path().string()});
    if (!eventually([this] { return isReady(); })) {
      throw std::runtime_error(program_ + " does not start");
    }
  }
  bool isReady() const {
    return program_ == "sway"
               ? outputOf("swaymsg -t get_outputs 2>&1").find("HEADLESS") != std::string::npos
               : std::filesystem::exists(socket());
  }

  const std::string program_;
  TemporaryFolder folder_;
  std::optional<ChildProcess> compositor_;
};

}  // namespace glintboard::test
