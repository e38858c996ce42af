// A Wayland compositor that a test has for itself.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace glintboard::test {

// Runs sway without a screen, and names it in this process's environment.
class WaylandCompositor {
 public:
  WaylandCompositor() {
    folder_.write("config", "xwayland disable\n");
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::owner_all);
    for (const auto* folder : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"}) {
      ::setenv(folder, folder_.path().c_str(), 1);
    }
    ::setenv("SWAYSOCK", (folder_ / "control").c_str(), 1);
    ::setenv("WLR_BACKENDS", "headless", 1);
    ::setenv("WLR_LIBINPUT_NO_DEVICES", "1", 1);
    ::setenv("WLR_RENDERER", "pixman", 1);
    ::setenv("WAYLAND_DISPLAY", socket().c_str(), 1);
    ::unsetenv("DISPLAY");
    start();
  }
  ~WaylandCompositor() { ::unsetenv("WAYLAND_DISPLAY"); }

  std::string socket() const { return (folder_ / "wayland-1").string(); }
  ChildProcess& process() { return *sway_; }

  // Kills the compositor and starts another with the same name.
  void replace() {
    sway_->signal(SIGKILL);
    sway_.reset();
    std::filesystem::remove(folder_ / "control");
    start();
  }

 private:
  void start() {
    ::unsetenv("WAYLAND_DISPLAY");
    std::vector<std::string> command{"sway", "-c", (folder_ / "config").string()};
    if (::geteuid() == 0) {
      // It refuses to run as root.
      const std::vector<std::string> asUser{"unshare", "-U", "--map-user=1000", "--map-group=1000"};
      command.insert(command.begin(), asUser.begin(), asUser.end());
    }
    sway_.emplace(command);
    if (!eventually([] {
          return outputOf("swaymsg -t get_outputs 2>&1").find("HEADLESS") != std::string::npos;
        })) {
      throw std::runtime_error("sway does not start");
    }
    ::setenv("WAYLAND_DISPLAY", socket().c_str(), 1);
  }

  TemporaryFolder folder_;
  std::optional<ChildProcess> sway_;
};

}  // namespace glintboard::test
