// SPDX-License-Identifier: MIT
#include "tools/shortcuts/run_shortcut.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <iostream>
#include <system_error>

#include "platform/file_descriptor.h"
#include "platform/linux/applications/application_launcher.h"
#include "platform/linux/process/pidfd.h"
#include "tools/shortcuts/command_errors.h"

namespace glintboard::shortcuts {

namespace {

// Ignores interrupts from the keyboard while the command runs, as shells do.
class WaitForCommand {
 public:
  WaitForCommand() {
    for (const int signal : {SIGINT, SIGQUIT}) {
      ::signal(signal, SIG_IGN);
    }
  }
  WaitForCommand(const WaitForCommand&) = delete;
  WaitForCommand& operator=(const WaitForCommand&) = delete;
  ~WaitForCommand() { restore(); }

  static void restore() {
    for (const int signal : {SIGINT, SIGQUIT}) {
      ::signal(signal, SIG_DFL);
    }
  }
};

struct Pipe {
  FileDescriptor out;
  FileDescriptor in;
};

// A pipe for the command's standard error; none if it is a terminal, where it stays unchanged.
std::optional<Pipe> pipeForErrors() {
  std::array<int, 2> ends{};
  if (::isatty(STDERR_FILENO) != 0 || ::pipe2(ends.data(), O_CLOEXEC) != 0) {
    return std::nullopt;
  }
  return Pipe{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

// Runs in the child process.
[[noreturn]] void becomeCommand(const char* command, const char* home, pid_t parent, int errors) {
  WaitForCommand::restore();
  // If this tool alone is killed, the command ends too.
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (::getppid() != parent) {
    ::_exit(signalExitCode + SIGTERM);
  }
  const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (nothing < 0 || ::dup2(nothing, STDIN_FILENO) < 0 || ::dup2(errors, STDERR_FILENO) < 0 ||
      (::chdir(home) != 0 && ::chdir("/") != 0)) {
    ::_exit(notPermittedExitCode);
  }
  ::execl("/bin/sh", "sh", "-c", command, nullptr);
  ::_exit(notPermittedExitCode);
}

// Waits for a process and returns its exit code.
int exitCodeOf(pid_t process) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) {
      throw std::system_error(errno, std::generic_category(), "The end of the command is unknown");
    }
  }
  return WIFSIGNALED(status) ? signalExitCode + WTERMSIG(status) : WEXITSTATUS(status);
}

// Copies the pipe until its writers have closed it or `process` has ended. Returns whether a writer
// is left.
bool passErrors(const FileDescriptor& pipe, const FileDescriptor& process, CommandErrors& errors) {
  std::array<char, 4096> text;
  std::array<pollfd, 2> awaited{{{pipe.get(), POLLIN, 0}, {process.get(), POLLIN, 0}}};
  for (;;) {
    if (::poll(awaited.data(), awaited.size(), -1) < 0) {
      if (errno != EINTR) {
        return true;
      }
    } else if (awaited[0].revents != 0) {
      const auto length = ::read(pipe.get(), text.data(), text.size());
      if (length <= 0) {
        return false;
      }
      errors.pass({text.data(), static_cast<std::size_t>(length)});
    } else if (awaited[1].revents != 0) {
      return true;
    }
  }
}

// Keeps the pipe open for programs that the command left running, which SIGPIPE would end.
void leaveErrorsTo(const FileDescriptor& pipe, CommandErrors& errors) {
  if (::fork() == 0) {
    ::close(STDIN_FILENO);
    ::close(STDOUT_FILENO);
    passErrors(pipe, {}, errors);
    errors.finish();
    ::_exit(0);
  }
}

int runCommand(const std::string& command, const std::filesystem::path& home,
               CommandErrors& errors) {
  const WaitForCommand waiting;
  auto pipe = pipeForErrors();
  const pid_t self = ::getpid();
  const pid_t process = ::fork();
  if (process < 0) {
    throw std::system_error(errno, std::generic_category(), "The command cannot be started");
  }
  if (process == 0) {
    becomeCommand(command.c_str(), home.c_str(), self, pipe ? pipe->in.get() : STDERR_FILENO);
  }
  if (pipe) {
    pipe->in = {};
    const bool more = passErrors(pipe->out, FileDescriptor(::pidfd_open(process, 0)), errors);
    errors.finish();
    if (more) {
      leaveErrorsTo(pipe->out, errors);
    }
  }
  return exitCodeOf(process);
}

// The agent classifies failures by these words.
void explain(int exitCode, const CommandErrors& errors) {
  const int signal = exitCode - signalExitCode;
  if (signal == SIGINT || signal == SIGTERM) {
    std::cerr << "The Shortcut was cancelled." << std::endl;
  } else if (exitCode == notPermittedExitCode) {
    std::cerr << "The Shortcut's command is not allowed to run: permission denied." << std::endl;
  } else if (exitCode == missingExitCode && !errors.toldOfMissingProgram()) {
    std::cerr << "The Shortcut's command names a program that is not installed." << std::endl;
  } else if (signal > 0 && signal < NSIG) {
    const char* name = ::sigabbrev_np(signal);  // null if the signal has no name
    std::cerr << "The Shortcut's command was ended by signal " << signal
              << (name == nullptr ? "" : std::string(" (") + name + ")") << "." << std::endl;
  }
}

}  // namespace

int runShortcut(const Shortcut& shortcut, const std::filesystem::path& home) {
  if (shortcut.action) {
    const auto entry = readDesktopEntry(shortcut.file, shortcut.action->desktopId);
    if (!entry) {
      throw std::runtime_error("The application's desktop entry cannot be read: " +
                               shortcut.file.string());
    }
    launchApplicationAction(*entry, shortcut.action->id);
    return 0;
  }
  CommandErrors errors;
  const int exitCode = runCommand(shortcut.command, home, errors);
  explain(exitCode, errors);
  return exitCode;
}

}  // namespace glintboard::shortcuts
