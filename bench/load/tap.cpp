// SPDX-License-Identifier: MIT
// Measures the time from a tap to the active window.
//   glintboard-tap PORT TOKEN TIMES APPLICATION APPLICATION
// Shows a window for each of the two applications, which must be installed, on $DISPLAY, which must
// have a window manager. Taps them alternately and prints the median in milliseconds.
#include <poll.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/load/connection.h"

namespace {

using Clock = std::chrono::steady_clock;

class Screen {
 public:
  Screen() : x_(::xcb_connect(nullptr, nullptr)) {
    if (::xcb_connection_has_error(x_) != 0) {
      throw std::runtime_error("no display");
    }
    screen_ = ::xcb_setup_roots_iterator(::xcb_get_setup(x_)).data;
    const char* name = "_NET_ACTIVE_WINDOW";
    const auto asking =
        ::xcb_intern_atom(x_, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    auto* reply = ::xcb_intern_atom_reply(x_, asking, nullptr);
    activeWindow_ = reply->atom;
    std::free(reply);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    ::xcb_change_window_attributes(x_, screen_->root, XCB_CW_EVENT_MASK, &events);
  }

  // Shows a window of the application and returns when it is active.
  xcb_window_t show(const std::string& application) {
    const xcb_window_t window = ::xcb_generate_id(x_);
    ::xcb_create_window(x_, XCB_COPY_FROM_PARENT, window, screen_->root, 0, 0, 200, 100, 0,
                        XCB_WINDOW_CLASS_INPUT_OUTPUT, screen_->root_visual, 0, nullptr);
    std::string both = application;
    both += '\0';
    both += application;
    both += '\0';
    ::xcb_change_property(x_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                          static_cast<std::uint32_t>(both.size()), both.data());
    ::xcb_map_window(x_, window);
    awaitActive(window);
    return window;
  }

  void awaitActive(xcb_window_t window) {
    ::xcb_flush(x_);
    while (active() != window) {
      pollfd waiting{::xcb_get_file_descriptor(x_), POLLIN, 0};
      xcb_generic_event_t* event = ::xcb_poll_for_event(x_);
      if (event == nullptr && ::poll(&waiting, 1, 5000) != 1) {
        throw std::runtime_error("the window does not become active");
      }
      std::free(event);
    }
  }

 private:
  xcb_window_t active() {
    const auto asking =
        ::xcb_get_property(x_, 0, screen_->root, activeWindow_, XCB_ATOM_WINDOW, 0, 1);
    auto* reply = ::xcb_get_property_reply(x_, asking, nullptr);
    xcb_window_t window = XCB_NONE;
    if (reply != nullptr && ::xcb_get_property_value_length(reply) == sizeof(window)) {
      std::memcpy(&window, ::xcb_get_property_value(reply), sizeof(window));
    }
    std::free(reply);
    return window;
  }

  xcb_connection_t* x_;
  xcb_screen_t* screen_;
  xcb_atom_t activeWindow_;
};

std::string tapOf(const std::string& application) {
  return glintboard::bench::clientFrame(
      R"({"type":"app.launch","id":"7A3C0E52-90C5-4B36-8E71-2F6A51D0C9B4","payload":{"bundleId":")" +
      application + "\"}}");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) {
    std::fputs("usage: glintboard-tap PORT TOKEN TIMES APPLICATION APPLICATION\n", stderr);
    return 2;
  }
  try {
    Screen screen;
    const std::string taps[] = {tapOf(argv[4]), tapOf(argv[5])};
    const xcb_window_t windows[] = {screen.show(argv[4]), screen.show(argv[5])};
    glintboard::bench::Connection phone(static_cast<std::uint16_t>(std::atoi(argv[1])),
                                        glintboard::bench::Framing::webSocket, argv[2]);
    std::vector<double> taken;
    for (int i = 0; i < std::atoi(argv[3]); ++i) {
      const auto start = Clock::now();
      phone.send(taps[i % 2]);
      screen.awaitActive(windows[i % 2]);
      taken.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
      while (phone.receive() == 0) {
      }
      if (phone.latest().find("app.ok") == std::string::npos) {
        throw std::runtime_error(phone.latest());
      }
    }
    std::ranges::sort(taken);
    std::printf("{\"p50\": %.3f, \"max\": %.3f}\n", taken[taken.size() / 2], taken.back());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "glintboard-tap: %s\n", error.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
