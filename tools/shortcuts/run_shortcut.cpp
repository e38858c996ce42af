#include "tools/shortcuts/run_shortcut.h"

#include <fcntl.h>
#include <signal.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <iostream>
#include <system_error>

#include "platform/linux/application_launcher.h"

namespace glintboard::shortcuts {

namespace {

// Leaves interrupts from the keyboard to the command, as shells do.
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

// In the new process.
[[noreturn]] void becomeCommand(const char* command, const char* home, pid_t parent) {
  WaitForCommand::restore();
  // The command does not outlast a tool that alone is killed.
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (::getppid() != parent) {
    ::_exit(signalExitCode + SIGTERM);
  }
  const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (nothing < 0 || ::dup2(nothing, STDIN_FILENO) < 0 ||
      (::chdir(home) != 0 && ::chdir("/") != 0)) {
    ::_exit(notPermittedExitCode);
  }
  ::execl("/bin/sh", "sh", "-c", command, nullptr);
  ::_exit(notPermittedExitCode);
}

// The exit code of a process that is waited for.
int exitCodeOf(pid_t process) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) {
      throw std::system_error(errno, std::generic_category(), "The end of the command is unknown");
    }
  }
  return WIFSIGNALED(status) ? signalExitCode + WTERMSIG(status) : WEXITSTATUS(status);
}

int runCommand(const std::string& command, const std::filesystem::path& home) {
  const WaitForCommand waiting;
  const pid_t self = ::getpid();
  const pid_t process = ::fork();
  if (process < 0) {
    throw std::system_error(errno, std::generic_category(), "The command cannot be started");
  }
  if (process == 0) {
    becomeCommand(command.c_str(), home.c_str(), self);
  }
  return exitCodeOf(process);
}

// The agent tells the kinds of failure apart by these words.
void explain(int exitCode) {
  const int signal = exitCode - signalExitCode;
  if (signal == SIGINT || signal == SIGTERM) {
    std::cerr << "The Shortcut was cancelled." << std::endl;
  } else if (exitCode == notPermittedExitCode) {
    std::cerr << "The Shortcut's command is not allowed to run: permission denied." << std::endl;
  } else if (signal > 0 && signal < NSIG) {
    std::cerr << "The Shortcut's command was ended by signal " << signal << " ("
              << ::sigabbrev_np(signal) << ")." << std::endl;
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
  const int exitCode = runCommand(shortcut.command, home);
  explain(exitCode);
  return exitCode;
}

}  // namespace glintboard::shortcuts
