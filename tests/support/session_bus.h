// SPDX-License-Identifier: MIT
// A private session bus.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "tests/support/child_process.h"
#include "tests/support/eventually.h"
#include "tests/support/temporary_folder.h"

namespace glintboard::test {

// Runs dbus-daemon and sets its address in the environment: create it before starting threads.
class SessionBus {
 public:
  SessionBus() : daemon_({desktopPart("bus"), "session", socket().string()}) {
    if (!eventually([this] { return std::filesystem::exists(socket()); })) {
      throw std::runtime_error("dbus-daemon does not start");
    }
    ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + socket().string()).c_str(), 1);
  }
  ~SessionBus() { ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1); }

  const TemporaryFolder& folder() const { return folder_; }

  // Registers an application that the bus can start, and that appends the calls it receives to
  // `log`. Returns its command.
  std::string install(const std::string& name, const std::filesystem::path& log) const {
    const auto command = "/usr/bin/python3 -E " GLINTBOARD_TEST_SUPPORT "/bus_application.py " +
                         name + " " + log.string();
    folder_.write("services/" + name + ".service",
                  "[D-BUS Service]\nName=" + name + "\nExec=" + command + "\n");
    return command;
  }

 private:
  std::filesystem::path socket() const { return folder_ / "bus"; }

  TemporaryFolder folder_;
  ChildProcess daemon_;
};

}  // namespace glintboard::test
