// A session bus that a test has for itself.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "tests/support/child_process.h"
#include "tests/support/eventually.h"
#include "tests/support/temporary_folder.h"

namespace glintboard::test {

// Runs dbus-daemon and names it in this process's environment: make it before other threads run.
// It starts the services that have a file in `folder() / "services"`.
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

 private:
  std::filesystem::path socket() const { return folder_ / "bus"; }

  TemporaryFolder folder_;
  ChildProcess daemon_;
};

}  // namespace glintboard::test
