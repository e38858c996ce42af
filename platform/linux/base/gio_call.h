// SPDX-License-Identifier: MIT
// GIO's asynchronous calls, awaited on a thread that may block.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "platform/linux/base/glib_pointers.h"

namespace glintboard {

// Makes asynchronous GIO calls on the calling thread and a main context of its own, until a
// deadline common to all of them. For one thread, which must not run another GLib loop meanwhile.
class GioCalls {
 public:
  // What a call is started with, in GIO's order of arguments.
  using Start =
      std::function<void(GCancellable* cancellable, GAsyncReadyCallback callback, void* data)>;

  explicit GioCalls(std::chrono::milliseconds deadline);
  ~GioCalls();
  GioCalls(const GioCalls&) = delete;
  GioCalls& operator=(const GioCalls&) = delete;

  // Starts a call and blocks until its result is there, for the call's `_finish` function. The
  // deadline cancels the call; null when even that does not end it.
  GObjectPointer<GAsyncResult> run(const Start& start);

 private:
  GLibPointer<GMainContext> context_;
  GObjectPointer<GCancellable> cancellable_;
  GLibPointer<GSource> deadline_;
  GLibPointer<GSource> giveUp_;
  bool gaveUp_ = false;
};

// Where the session bus listens, or empty. Starts none, as GIO might do when it is asked.
std::string sessionBusAddress();
// Where the system bus listens.
std::string systemBusAddress();
// What a connection to a bus at an address needs.
GDBusConnectionFlags messageBusFlags();

// The session bus, or null with the reason in `error` when there is none or it does not answer.
// The bus may go away without ending this process, and come again. The connection is kept for the
// next caller.
GObjectPointer<GDBusConnection> connectToSessionBus(GioCalls& calls, GLibPointer<GError>& error);

}  // namespace glintboard
