// A program that runs beside a test.
#pragma once

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace glintboard::test {

// Killed when destroyed.
class ChildProcess {
 public:
  explicit ChildProcess(std::vector<std::string> command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (auto& argument : command) {
      arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    if (::posix_spawnp(&id_, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0) {
      throw std::runtime_error("cannot start " + command[0]);
    }
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() {
    ::kill(id_, SIGKILL);
    ::waitpid(id_, nullptr, 0);
  }

  pid_t id() const { return id_; }

 private:
  pid_t id_ = 0;
};

}  // namespace glintboard::test
