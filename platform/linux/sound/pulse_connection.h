// SPDX-License-Identifier: MIT
// One short conversation with the sound server.
#pragma once

#include <pulse/context.h>
#include <pulse/mainloop.h>
#include <pulse/operation.h>

#include <chrono>
#include <memory>

namespace glintboard {

// A connection with a main loop of its own, driven by whoever waits for an answer. All waiting
// together ends two seconds after the creation. For one thread. Operations throw AudioError.
class PulseConnection {
 public:
  // Connects to the server that the user's session names; starts none.
  PulseConnection();

  // For starting an operation whose end is then awaited.
  pa_context* context() { return context_.get(); }

  // Waits for an operation just started; null, which is how libpulse reports a failure to start,
  // fails. Its callback does not run after this returned or threw.
  void finish(pa_operation* started);

  // Throws the error that the server or libpulse reported last.
  [[noreturn]] void fail();

 private:
  struct Release {
    void operator()(pa_mainloop* loop) const { ::pa_mainloop_free(loop); }
    void operator()(pa_context* context) const;
  };

  // Waits for one event and handles it.
  void iterate();

  std::chrono::steady_clock::time_point deadline_;
  std::unique_ptr<pa_mainloop, Release> loop_;
  std::unique_ptr<pa_context, Release> context_;
};

}  // namespace glintboard
