// SPDX-License-Identifier: MIT
// A message bus, for what listens to it all the time.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/base/gio_call.h"
#include "platform/linux/base/glib_pointers.h"

namespace glintboard {

// Keeps a connection to the session bus, or to another, on a thread of its own, and makes a new one
// when the bus comes back.
class DesktopBus {
 public:
  // What uses the connection. Called on the bus's thread, where GIO's callbacks run too.
  class Client {
   public:
    virtual ~Client() = default;
    virtual void connected(GDBusConnection* bus) = 0;
    // There is no bus, it has gone or does not answer. Nothing of an old connection may be used any
    // more.
    virtual void disconnected() = 0;
  };

  // `address` returns where the bus listens now, if anywhere.
  explicit DesktopBus(std::function<std::string()> address = sessionBusAddress);
  // Ends the connection, and the clients on the bus's thread.
  ~DesktopBus();
  DesktopBus(const DesktopBus&) = delete;
  DesktopBus& operator=(const DesktopBus&) = delete;

  // Any thread.
  void add(std::shared_ptr<Client> client);
  // Runs `work` on the bus's thread. Any thread.
  void post(std::function<void()> work);

 private:
  void run();
  void connect();
  void connected(GAsyncResult* result);
  void closed();
  void failed();
  void tryLater();

  const std::function<std::string()> address_;
  GLibPointer<GMainContext> context_;
  GLibPointer<GMainLoop> loop_;

  // On the bus's thread.
  std::vector<std::shared_ptr<Client>> clients_;
  GObjectPointer<GCancellable> cancellable_;
  GLibPointer<GSource> deadline_;
  GLibPointer<GSource> nextTry_;
  GObjectPointer<GDBusConnection> bus_;
  bool failed_ = false;
  bool stopped_ = false;
  std::chrono::seconds pause_{1};

  std::thread thread_;
};

}  // namespace glintboard
