// SPDX-License-Identifier: MIT
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <wayland-client.h>
#include <xcb/xcb.h>

#include <cerrno>
#include <cstdlib>
#include <sstream>
#include <string_view>

#include "platform/display.h"

namespace glintboard {
namespace {

constexpr unsigned displayTimeout = 2;  // seconds

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// Whether `question` returns true within the timeout. The libraries never return if a server hangs,
// so a child process asks, which SIGALRM ends.
template <class Question>
bool answersInTime(Question question) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::signal(SIGALRM, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    ::alarm(displayTimeout);
    std::_Exit(question() ? EXIT_SUCCESS : EXIT_FAILURE);
  }
  int status = 0;
  while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return child > 0 && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

bool xServerAnswers() {
  const auto display = variable("DISPLAY");
  return !display.empty() && answersInTime([&] {
    return xcb_connection_has_error(xcb_connect(display.c_str(), nullptr)) == 0;
  });
}

bool compositorAnswers() {
  const auto display = variable("WAYLAND_DISPLAY");
  return !display.empty() && answersInTime([&] {
    // An inherited socket can be used only once, by Qt.
    ::unsetenv("WAYLAND_SOCKET");
    wl_display* connection = wl_display_connect(display.c_str());
    return connection != nullptr && wl_display_roundtrip(connection) >= 0;
  });
}

}  // namespace

std::vector<std::string> reachableDisplays() {
  std::string wanted = variable("QT_QPA_PLATFORM");
  if (wanted.empty()) {
    wanted = "wayland;xcb";
  }
  std::vector<std::string> reachable;
  std::istringstream names(wanted);
  for (std::string name; std::getline(names, name, ';');) {
    const std::string_view kind = std::string_view(name).substr(0, name.find(':'));
    const bool showsNothing = kind.empty() || kind == "offscreen" || kind.starts_with("minimal");
    if (showsNothing || (kind == "xcb" && !xServerAnswers()) ||
        (kind.starts_with("wayland") && !compositorAnswers())) {
      continue;
    }
    reachable.push_back(name);
  }
  return reachable;
}

}  // namespace glintboard
