// SPDX-License-Identifier: MIT
// A private GNOME keyring.
#pragma once

#include <optional>

#include "tests/support/session_bus.h"

namespace glintboard::test {

// A session with its own bus and home folder, in which the test starts the keyring.
class KeyringSession {
 public:
  KeyringSession() {
    for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"}) {
      const auto folder = bus_.folder() / name;
      std::filesystem::create_directory(folder);
      std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
      ::setenv(name, folder.c_str(), 1);
    }
  }

  const TemporaryFolder& folder() const { return bus_.folder(); }

  // `state` is "unlocked", with an open default collection that is created if missing, or "locked",
  // with the collections on disk.
  void start(const std::string& state) {
    daemon_.emplace(std::vector<std::string>{desktopPart("keyring"), state});
    waitForOwner(true);
  }
  void restart(const std::string& state) {
    kill();
    start(state);
  }
  void kill() {
    daemon_->signal(SIGKILL);
    waitForOwner(false);
    daemon_.reset();
  }
  void signal(int number) const { daemon_->signal(number); }
  void lock() const {
    outputOf(
        "gdbus call --session --dest org.freedesktop.secrets"
        " --object-path /org/freedesktop/secrets --method org.freedesktop.Secret.Service.Lock"
        " \"['/org/freedesktop/secrets/aliases/default']\"");
  }
  // Acts as a user who enters the password.
  void unlock() const {
    if (outputOf("/usr/bin/python3 -E " GLINTBOARD_TEST_SUPPORT "/unlock_keyring.py") != "done\n") {
      throw std::runtime_error("the keyring cannot be unlocked");
    }
  }

 private:
  void waitForOwner(bool wanted) {
    const std::string answer = wanted ? "(true,)\n" : "(false,)\n";
    const char* question =
        "gdbus call --session --dest org.freedesktop.DBus --object-path / "
        "--method org.freedesktop.DBus.NameHasOwner org.freedesktop.secrets";
    if (!eventually([&] { return outputOf(question) == answer; })) {
      throw std::runtime_error("the keyring does not start or end");
    }
  }

  SessionBus bus_;
  std::optional<ChildProcess> daemon_;
};

}  // namespace glintboard::test
