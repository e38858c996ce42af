// SPDX-License-Identifier: MIT
// One connection to a display.
#pragma once

#include <boost/asio/posix/stream_descriptor.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_descriptor.h"
#include "platform/linux/applications/launch_token.h"
#include "platform/linux/base/change_signal.h"
#include "platform/linux/windows/open_windows.h"

namespace glintboard {

// What a window system implements: it follows the open windows by events alone and never blocks on
// the display, which may end the connection or hang at any time. Service loop only. The caller
// keeps the session alive until an awaited operation has resumed.
class DisplaySession {
 public:
  DisplaySession(const DisplaySession&) = delete;
  DisplaySession& operator=(const DisplaySession&) = delete;
  virtual ~DisplaySession() = default;

  // Reports the windows to `OpenWindows` until the connection ends, then clears them. Never throws.
  // Await it once.
  Awaitable<> run();
  // Ends the connection without waiting for it.
  void stop();

  // Brings the windows of an application to the front, restores the first and gives it the focus.
  // True when the desktop has done so, false after a second at the latest. Never throws.
  virtual Awaitable<bool> activate(std::vector<OpenWindows::Handle> windows) = 0;
  // A token for a program that is about to be launched; empty if the display gives none within a
  // second. Never throws.
  virtual Awaitable<LaunchToken> launchToken() = 0;

 protected:
  using Clock = std::chrono::steady_clock;
  // How long an operation may wait for a display that hangs.
  static constexpr std::chrono::seconds tapTimeout{1};

  DisplaySession(const asio::any_io_executor& service, std::shared_ptr<OpenWindows> windows)
      : service_(service), windows_(std::move(windows)), readable_(service) {}

  // The connection's socket, which the library owns.
  virtual int socket() const = 0;
  // Sends the requests that the session starts with.
  virtual void begin() = 0;
  // Sends what is buffered and handles everything that has arrived. False when the connection has
  // ended.
  virtual bool receive() = 0;
  // Sends a request that the display answers after all earlier ones.
  virtual void sendPing() = 0;

  const asio::any_io_executor& service() const { return service_; }
  OpenWindows& windows() { return *windows_; }
  bool ended() const { return ended_; }
  // Records that the connection has ended; `receive` returns false from then on.
  void setEnded() { ended_ = true; }
  // Sends a ping that `isAnswering` does not wait for.
  void ping();
  // Counts the answer to a ping.
  void pingAnswered();
  bool hasAnswered() const { return answers_ > 0; }
  // False when the connection has ended or the last ping was not answered in time: then nothing
  // more may be sent, because the display does not read.
  bool isUsable() const { return !ended_ && !hangs_; }
  // Pings the display. True when it answers before the deadline.
  Awaitable<bool> isAnswering(Clock::time_point deadline);
  // Resumes when `condition` holds after an event. False at the deadline and when the connection
  // ends.
  Awaitable<bool> waitUntil(std::function<bool()> condition, Clock::time_point deadline);
  // Wakes the waiting operations. `receive` ends with it.
  void notify() { events_.notify(); }

 private:
  const asio::any_io_executor service_;
  const std::shared_ptr<OpenWindows> windows_;
  // A duplicate of `socket`.
  asio::posix::stream_descriptor readable_;
  ChangeSignal events_;
  unsigned pings_ = 0;
  unsigned answers_ = 0;
  bool hangs_ = false;
  bool ended_ = false;
};

// Connects to the Unix socket at `path`, in the abstract namespace if `abstract`. None when nothing
// listens there or no more connections are accepted. Does not block; the socket is non-blocking.
FileDescriptor connectToSocket(const std::string& path, bool abstract = false);

}  // namespace glintboard
