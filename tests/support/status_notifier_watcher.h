// SPDX-License-Identifier: MIT
// A StatusNotifier tray without a window.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace glintboard::test {

class StatusNotifierWatcher {
 public:
  // With `late` it answers items only after `answer`.
  explicit StatusNotifierWatcher(bool late = false)
      : process_({"sh", "-c",
                  "exec /usr/bin/python3 " GLINTBOARD_TEST_SUPPORT "/status_notifier_watcher.py " +
                      std::string(late ? "late" : "") + " >" + items_.string()}) {}

  // The name of the item that has registered, or empty.
  std::string item() const {
    std::string name;
    std::getline(std::ifstream(items_), name);
    return name;
  }
  void answer() const { process_.signal(SIGUSR1); }

  // The item's reply to a call.
  std::string call(const std::string& method) const {
    return outputOf("gdbus call --session --timeout 5 --dest " + item() +
                    " --object-path /StatusNotifierItem --method " + method + " 2>&1");
  }
  std::string property(const std::string& name) const {
    return call("org.freedesktop.DBus.Properties.Get org.kde.StatusNotifierItem " + name);
  }

 private:
  TemporaryFolder folder_;
  std::filesystem::path items_ = folder_ / "items";
  ChildProcess process_;
};

}  // namespace glintboard::test
