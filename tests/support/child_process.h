// SPDX-License-Identifier: MIT
// Programs started by a test.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <stdio.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/eventually.h"

namespace glintboard::test {

// A program found through PATH, with the test's environment; its output is discarded. It ends with
// this object, and if the test crashes.
class ChildProcess {
 public:
  explicit ChildProcess(std::vector<std::string> command) {
    std::vector<char*> argv;
    argv.reserve(command.size() + 1);
    for (std::string& word : command) {
      argv.push_back(word.data());
    }
    argv.push_back(nullptr);
    id_ = ::fork();
    if (id_ == 0) {
      ::prctl(PR_SET_PDEATHSIG, SIGKILL);
      const int null = ::open("/dev/null", O_RDWR);
      for (const int stream : {0, 1, 2}) {
        // GLINTBOARD_TEST_VERBOSE=1 shows the output.
        const bool silent = stream == 0 || ::getenv("GLINTBOARD_TEST_VERBOSE") == nullptr;
        if (silent && (null < 0 || ::dup2(null, stream) < 0)) {
          ::_exit(126);
        }
      }
      ::execvp(argv[0], argv.data());
      ::_exit(127);
    }
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() { end(); }

  pid_t id() const { return id_; }
  void signal(int number) const { ::kill(id_, number); }

  // Whether the program has ended. Reaps it, so its exit status is lost.
  bool hasEnded() {
    if (id_ > 0 && ::waitpid(id_, nullptr, WNOHANG) == id_) {
      id_ = 0;
    }
    return id_ <= 0;
  }

  // Asks the program to end, and kills it after two seconds.
  void end() {
    if (hasEnded()) {
      return;
    }
    signal(SIGCONT);
    signal(SIGTERM);
    if (!eventually([this] { return hasEnded(); }, std::chrono::seconds(2))) {
      signal(SIGKILL);
      ::waitpid(id_, nullptr, 0);
      id_ = 0;
    }
  }

 private:
  pid_t id_ = 0;
};

// The path of a program in tests/desktop/parts.
inline std::string desktopPart(const std::string& name) {
  return GLINTBOARD_DESKTOP_PARTS + name;
}

// How many descriptors the test has open.
inline std::ptrdiff_t openDescriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

// What a shell command prints on standard output.
inline std::string outputOf(const std::string& command) {
  std::string output;
  FILE* stream = ::popen(command.c_str(), "r");
  if (stream == nullptr) {
    return output;
  }
  for (int c = ::fgetc(stream); c != EOF; c = ::fgetc(stream)) {
    output += static_cast<char>(c);
  }
  ::pclose(stream);
  return output;
}

}  // namespace glintboard::test
