// An X server and a window manager that a test has for itself.
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
    const auto file = (folder_ / "display").string();
    server_.emplace(std::vector<std::string>{
        "sh", "-c",
        "exec Xvfb -displayfd 9 -screen 0 800x600x24 -nolisten tcp -noreset 9>" + file});
    std::string number;
    if (!eventually([&] { return bool(std::getline(std::ifstream(file) >> std::ws, number)); })) {
      throw std::runtime_error("Xvfb does not start");
    }
    display_ = ":" + number;
    ::setenv("DISPLAY", display_.c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", folder_.path().c_str(), 1);
    ::setenv("XDG_CACHE_HOME", folder_.path().c_str(), 1);
    ::unsetenv("XAUTHORITY");
    startManager();
  }
  ~XServer() { ::unsetenv("DISPLAY"); }

  const std::string& display() const { return display_; }
  ChildProcess& process() { return *server_; }

  void startManager() {
    const auto ready = folder_ / "manager-ready";
    std::filesystem::remove(ready);
    // It tells of itself before it takes windows; what is shown meanwhile it may never manage.
    manager_.emplace(std::vector<std::string>{"openbox", "--startup", "touch " + ready.string()});
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
    server_.emplace(std::vector<std::string>{"Xvfb", display_, "-screen", "0", "800x600x24",
                                             "-nolisten", "tcp", "-noreset"});
    eventually([] { return outputOf("xprop -root 2>/dev/null") != ""; });
    startManager();
  }

 private:
  TemporaryFolder folder_;
  std::string display_;
  std::optional<ChildProcess> server_;
  std::optional<ChildProcess> manager_;
};

}  // namespace glintboard::test
