// SPDX-License-Identifier: MIT
// Blocking calls of GIO's asynchronous functions, with a deadline.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "platform/linux/base/glib_pointers.h"

namespace glintboard {

// Makes asynchronous GIO calls in a main context of its own, with one deadline for all of them. For
// one thread, which must not run another GLib loop during the lifetime of this object.
class GioCalls {
 public:
  // Starts a call with these arguments, which are in GIO's order.
  using Start =
      std::function<void(GCancellable* cancellable, GAsyncReadyCallback callback, void* data)>;

  explicit GioCalls(std::chrono::milliseconds deadline);
  ~GioCalls();
  GioCalls(const GioCalls&) = delete;
  GioCalls& operator=(const GioCalls&) = delete;

  // Starts a call and blocks until it has a result for the call's `_finish` function. The deadline
  // cancels the call; null if the call does not end within 50 ms after that.
  GObjectPointer<GAsyncResult> run(const Start& start);

 private:
  GLibPointer<GMainContext> context_;
  GObjectPointer<GCancellable> cancellable_;
  GLibPointer<GSource> deadline_;
  GLibPointer<GSource> giveUp_;
  bool gaveUp_ = false;
};

// The address of the running session bus, or empty. Unlike GIO's function, it starts no bus.
std::string sessionBusAddress();
// The address of the system bus.
std::string systemBusAddress();
// The flags for connecting to the address of a message bus.
GDBusConnectionFlags messageBusFlags();

// The session bus; null with `error` set when there is none or it does not answer. The end of the
// bus does not end this process. The connection is shared with later callers. Any thread.
GObjectPointer<GDBusConnection> connectToSessionBus(GioCalls& calls, GLibPointer<GError>& error);

}  // namespace glintboard
