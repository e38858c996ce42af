// SPDX-License-Identifier: MIT
#include "platform/linux/process/spawned_process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <QtGlobal>
#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/descriptor_limit.h"
#include "platform/linux/process/pidfd.h"
#include "platform/process_running.h"
#include "platform/sound_settings.h"
#include "platform/user_error.h"

namespace glintboard {
namespace {

// Throws unless `code`, a result of the posix_spawn family or an errno, is 0.
void check(int code, const std::string& executable) {
  if (code != 0) {
    throw UserError(QT_TRANSLATE_NOOP("UserError", "Could not start %1: %2"),
                    {executable, std::generic_category().message(code)});
  }
}

struct Pipe {
  FileDescriptor readingEnd;
  FileDescriptor writingEnd;
};

Pipe makePipe(const std::string& executable) {
  int ends[2];
  check(::pipe2(ends, O_CLOEXEC) == 0 ? 0 : errno, executable);
  Pipe pipe{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
  // Only the reading end: programs expect their output to block.
  check(::fcntl(ends[0], F_SETFL, O_NONBLOCK) == 0 ? 0 : errno, executable);
  return pipe;
}

class SpawnAttributes {
 public:
  explicit SpawnAttributes(const std::string& executable) {
    check(::posix_spawnattr_init(&attributes_), executable);
    sigset_t signals;
    ::sigfillset(&signals);
    ::posix_spawnattr_setsigdefault(&attributes_, &signals);
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&attributes_, &signals);
    ::posix_spawnattr_setpgroup(&attributes_, 0);
    ::posix_spawnattr_setflags(
        &attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;
  ~SpawnAttributes() { ::posix_spawnattr_destroy(&attributes_); }
  const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_;
};

class SpawnFileActions {
 public:
  SpawnFileActions(int output, int error, const std::string& executable) {
    check(::posix_spawn_file_actions_init(&actions_), executable);
    int code = ::posix_spawn_file_actions_addopen(&actions_, 0, "/dev/null", O_RDONLY, 0);
    code = code != 0 ? code : ::posix_spawn_file_actions_adddup2(&actions_, output, 1);
    code = code != 0 ? code : ::posix_spawn_file_actions_adddup2(&actions_, error, 2);
    code = code != 0 ? code : ::posix_spawn_file_actions_addclosefrom_np(&actions_, 3);
    if (code != 0) {
      ::posix_spawn_file_actions_destroy(&actions_);
      check(code, executable);
    }
  }
  SpawnFileActions(const SpawnFileActions&) = delete;
  SpawnFileActions& operator=(const SpawnFileActions&) = delete;
  ~SpawnFileActions() { ::posix_spawn_file_actions_destroy(&actions_); }
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

// This process's environment with the user's sound settings.
class ProgramEnvironment {
 public:
  ProgramEnvironment() {
    const std::string settings = std::string(soundSettingsVariable).append("=");
    for (char** variable = environ; *variable != nullptr; ++variable) {
      if (!std::string_view(*variable).starts_with(settings)) {
        variables_.push_back(*variable);
      }
    }
    if (const auto value = soundSettingsForPrograms()) {
      soundSettings_ = settings + *value;
      variables_.push_back(soundSettings_.data());
    }
    variables_.push_back(nullptr);
  }
  ProgramEnvironment(const ProgramEnvironment&) = delete;
  ProgramEnvironment& operator=(const ProgramEnvironment&) = delete;
  char* const* get() const { return variables_.data(); }

 private:
  std::string soundSettings_;
  std::vector<char*> variables_;
};

}  // namespace

SpawnedProcess spawnProcess(const std::string& executable,
                            const std::vector<std::string>& arguments) {
  check(canBeArgument(executable) && std::ranges::all_of(arguments, canBeArgument) ? 0 : EINVAL,
        executable);
  Pipe output = makePipe(executable);
  Pipe error = makePipe(executable);
  const SpawnAttributes attributes(executable);
  const SpawnFileActions actions(output.writingEnd.get(), error.writingEnd.get(), executable);
  std::vector<char*> argv{const_cast<char*>(executable.c_str())};
  for (const std::string& argument : arguments) {
    argv.push_back(const_cast<char*>(argument.c_str()));
  }
  argv.push_back(nullptr);
  const ProgramEnvironment environment;

  SpawnedProcess process;
  check(::posix_spawn(&process.id, executable.c_str(), actions.get(), attributes.get(), argv.data(),
                      environment.get()),
        executable);
  restoreDescriptorLimit(process.id);
  process.descriptor = FileDescriptor(::pidfd_open(process.id, 0));
  if (!process.descriptor) {
    const int code = errno;
    killProcess(process.id);
    check(code, executable);
  }
  process.outputPipe = std::move(output.readingEnd);
  process.errorPipe = std::move(error.readingEnd);
  return process;
}

void killProcess(pid_t id) {
  ::kill(-id, SIGKILL);
  ::waitpid(id, nullptr, 0);
}

std::optional<std::int32_t> reapProcess(pid_t id) {
  siginfo_t status{};
  if (::waitid(P_PID, static_cast<id_t>(id), &status, WEXITED | WNOHANG) != 0) {
    throw std::system_error(errno, std::generic_category(), "The end of a program is not known");
  }
  if (status.si_pid != id) {
    return std::nullopt;
  }
  return status.si_code == CLD_EXITED ? status.si_status : 128 + status.si_status;
}

}  // namespace glintboard
