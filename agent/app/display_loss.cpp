// SPDX-License-Identifier: MIT
#include "agent/app/display_loss.h"

#include <dlfcn.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <linux/close_range.h>
#include <QtGlobal>
#include <array>
#include <atomic>
#include <cstdlib>
#include <string_view>

#include "platform/descriptor_limit.h"
#include "platform/log.h"

namespace {

// The hooks have no object. These variables are set while a DisplayLoss exists.
constinit std::atomic<char* const*> commandToRun = nullptr;
constinit std::atomic<pid_t> owner = 0;
constinit std::atomic_flag begun;

// Whether this thread must start the program again. Does not return on a later thread.
bool isToStartAgain() {
  // A child process that could not run its program ends in the same way.
  if (::getpid() != owner || commandToRun == nullptr) {
    return false;
  }
  while (begun.test_and_set()) {
    ::pause();
  }
  return true;
}

// Returns only where it fails. May be called by a signal handler.
void execute() {
  sigset_t none;
  sigemptyset(&none);
  ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
  ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
  glintboard::restoreDescriptorLimit();
  ::execv("/proc/self/exe", commandToRun);
}

// Does not return when there is something to start.
void startAgain() {
  if (isToStartAgain()) {
    glintboard::log::warning("the display is gone; the agent starts again without it");
    execute();
    glintboard::log::warning("the agent cannot be started again");
  }
}

constexpr std::array crashes = {SIGSEGV, SIGABRT};

// If this returns, the process crashes as it would have.
void startAgainAfterCrash(int) {
  constexpr std::string_view line = "the start crashed; the agent starts again without a display\n";
  if (isToStartAgain()) {
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
    execute();
  }
}

QtMessageHandler qtMessages = nullptr;

// Qt aborts after a fatal message.
void startAgainAfterFatal(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  qtMessages(type, context, text);
  if (type == QtFatalMsg) {
    startAgain();
  }
}

}  // namespace

// These two replace the C library's functions of the same name, in every library. Xlib, libICE and
// Qt's xcb plugin end the process with `exit`; GTK and Qt's Wayland plugin end it with `_exit`.
// `exit` runs handlers that destroy what other threads still use, so it is caught before them.
extern "C" void exit(int status) noexcept {
  startAgain();
  const auto exitOfLibrary = reinterpret_cast<void (*)(int)>(::dlsym(RTLD_NEXT, "exit"));
  exitOfLibrary(status);
  std::_Exit(status);
}

extern "C" void _exit(int status) {
  startAgain();
  std::_Exit(status);
}

namespace glintboard {

DisplayLoss::DisplayLoss(std::vector<std::string> command) : command_(std::move(command)) {
  for (std::string& word : command_) {
    arguments_.push_back(word.data());
  }
  arguments_.push_back(nullptr);
  owner = ::getpid();
  commandToRun = arguments_.data();
  qtMessages = qInstallMessageHandler(startAgainAfterFatal);
  struct sigaction handler = {};
  handler.sa_handler = startAgainAfterCrash;
  handler.sa_flags = SA_RESETHAND | SA_NODEFER;
  for (const int crash : crashes) {
    ::sigaction(crash, &handler, nullptr);
  }
}

void DisplayLoss::startIsOver() {
  for (const int crash : crashes) {
    ::signal(crash, SIG_DFL);
  }
}

DisplayLoss::~DisplayLoss() {
  startIsOver();
  commandToRun = nullptr;
  qInstallMessageHandler(qtMessages);
}

}  // namespace glintboard
