// SPDX-License-Identifier: MIT
// A short-lived connection to the sound server.
#pragma once

#include <pulse/context.h>
#include <pulse/mainloop.h>
#include <pulse/operation.h>

#include <chrono>
#include <memory>

namespace glintboard {

// A connection with a main loop of its own, which runs on the calling thread while a call waits.
// Calls fail two seconds after the construction. For one thread. Every operation throws AudioError.
class PulseConnection {
 public:
  // Connects to the server of the user's session, which blocks. Starts no server.
  PulseConnection();

  // For starting an operation that is passed to `finish`.
  pa_context* context() { return context_.get(); }

  // Waits for the end of an operation. Null, which libpulse returns when an operation cannot start,
  // is an error. The operation's callback does not run after this call.
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
