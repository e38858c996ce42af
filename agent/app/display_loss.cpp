// SPDX-License-Identifier: MIT
#include "agent/app/display_loss.h"

#include <dlfcn.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <linux/close_range.h>
#include <QtGlobal>
#include <atomic>
#include <cstdlib>

#include "platform/descriptor_limit.h"
#include "platform/log.h"

namespace {

// The hooks of the C library know no object. These are set while one exists.
constinit std::atomic<char* const*> commandToRun = nullptr;
constinit std::atomic<pid_t> owner = 0;
constinit std::atomic_flag begun;

// Does not return when there is something to start.
void startAgain() {
  // A child process that could not run its program ends in the same way.
  char* const* const command = ::getpid() == owner ? commandToRun.load() : nullptr;
  if (command == nullptr) {
    return;
  }
  // Several threads may notice the loss; one that is late must not end the process first.
  while (begun.test_and_set()) {
    ::pause();
  }
  glintboard::log::warning("the display is gone; the agent starts again without it");
  sigset_t none;
  sigemptyset(&none);
  ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
  ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
  glintboard::restoreDescriptorLimit();
  ::execv("/proc/self/exe", command);
  glintboard::log::warning("the agent cannot be started again");
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
}

DisplayLoss::~DisplayLoss() {
  commandToRun = nullptr;
  qInstallMessageHandler(qtMessages);
}

}  // namespace glintboard
