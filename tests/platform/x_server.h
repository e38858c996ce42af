// SPDX-License-Identifier: MIT
// A private X server and window manager for a test.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace glintboard::test {

// Runs Xvfb on a free display, which it names in this process's environment, and openbox.
class XServer {
 public:
  XServer() {
    start();
    display_.assign(1, ':');
    display_ += number();
    ::setenv("DISPLAY", display_.c_str(), 1);
    ::unsetenv("XAUTHORITY");
    startManager();
  }
  ~XServer() { ::unsetenv("DISPLAY"); }

  const std::string& display() const { return display_; }
  ChildProcess& process() { return *server_; }

  void startManager() {
    const auto ready = folder_ / "manager-ready";
    std::filesystem::remove(ready);
    manager_.emplace(
        std::vector<std::string>{desktopPart("window-manager"), folder_.path().string()});
    if (!eventually([&] { return std::filesystem::exists(ready); })) {
      throw std::runtime_error("openbox does not start");
    }
  }
  void stopManager() { manager_.reset(); }
  // Kills the server and starts another with the same name.
  void replace() {
    stopManager();
    server_->signal(SIGKILL);
    server_.reset();
    start(display_.substr(1));
    startManager();
  }

 private:
  void start(const std::string& wanted = "") {
    std::filesystem::remove(folder_ / "display");
    server_.emplace(
        std::vector<std::string>{desktopPart("x-server"), folder_.path().string(), wanted});
    if (!eventually([&] { return !number().empty(); })) {
      throw std::runtime_error("Xvfb does not start");
    }
  }
  // The number of the display; empty until it is ready.
  std::string number() const {
    std::string number;
    std::ifstream(folder_ / "display") >> number;
    return number;
  }

  TemporaryFolder folder_;
  std::string display_;
  std::optional<ChildProcess> server_;
  std::optional<ChildProcess> manager_;
};

}  // namespace glintboard::test
