#include "tests/tools/phone/scripted_agent.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

extern char** environ;

namespace glintboard::test {

ScriptedAgent::ScriptedAgent() {
  std::array<int, 2> input{};
  std::array<int, 2> output{};
  if (::pipe2(input.data(), O_CLOEXEC) != 0 || ::pipe2(output.data(), O_CLOEXEC) != 0) {
    throw std::runtime_error("no pipe for the scripted agent");
  }
  input_ = FileDescriptor(input[1]);
  const FileDescriptor childInput(input[0]);
  const FileDescriptor childOutput(output[1]);
  const FileDescriptor report(output[0]);

  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, childInput.get(), STDIN_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, childOutput.get(), STDOUT_FILENO);
  std::string program = "/usr/bin/python3";
  std::string script = SCRIPTED_AGENT;
  std::array<char*, 3> words{program.data(), script.data(), nullptr};
  const int failure =
      ::posix_spawn(&process_, program.c_str(), &actions, nullptr, words.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  if (failure != 0) {
    throw std::runtime_error("the scripted agent cannot be started");
  }

  // The line may come in pieces.
  std::string port;
  pollfd readable{report.get(), POLLIN, 0};
  for (char next = 0; next != '\n'; port += next) {
    if (::poll(&readable, 1, 20'000) != 1 || ::read(report.get(), &next, 1) != 1) {
      throw std::runtime_error("the scripted agent does not come up");
    }
  }
  port.pop_back();
  host_ = "127.0.0.1:" + port;
}

ScriptedAgent::~ScriptedAgent() {
  input_.close();
  ::waitpid(process_, nullptr, 0);
}

}  // namespace glintboard::test
