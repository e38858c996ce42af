// SPDX-License-Identifier: MIT
// Advertising through the Avahi daemon.
#pragma once

#include <mutex>
#include <optional>

#include "platform/bonjour.h"
#include "platform/file_descriptor.h"
#include "platform/linux/network/avahi_handles.h"

namespace glintboard {

// Avahi's own thread makes all calls that may wait for the daemon; publish and withdraw only queue
// a request. The daemon and the system bus may end and start again; a failed attempt is repeated
// after a few seconds. If the name is taken on the network, the next free one ("NAME #2") is
// advertised.
//
// The destructor waits for a running call to the daemon.
class AvahiAdvertiser : public BonjourAdvertiser {
 public:
  AvahiAdvertiser();
  ~AvahiAdvertiser() override;

  void publish(const BonjourService& service) override { want(service); }
  void withdraw() override { want(std::nullopt); }

 private:
  // Queues what to advertise; none to advertise nothing.
  void want(std::optional<BonjourService> service);
  // Makes Avahi's thread call `update`. Any thread.
  void wake();

  // The following run on Avahi's thread.
  // Brings the client and the entry group into the wanted state.
  void update();
  // Calls `update` again after a pause.
  void tryLater();
  void takeWanted();
  void createClient();
  // Adds the service under the first name that is free on this computer.
  void registerService();
  void takeNextName();
  void logRefusal(int error);
  static void clientChanged(AvahiClient* client, AvahiClientState state, void* self);
  static void groupChanged(AvahiEntryGroup* group, AvahiEntryGroupState state, void* self);

  std::mutex mutex_;
  std::optional<BonjourService> wanted_;
  bool wantedChanged_ = false;

  FileDescriptor wakeUp_;  // an eventfd that Avahi's thread watches
  AvahiHandle<AvahiThreadedPoll> poll_;
  AvahiTimeout* nextTry_ = nullptr;  // of the poll, which releases it

  // Accessed only on Avahi's thread once it runs. Avahi's callbacks only set these fields and wake
  // update(), which may release the objects that the callbacks come from.
  std::optional<BonjourService> service_;
  std::string name_;  // the advertised one
  AvahiHandle<AvahiClient> client_;
  AvahiHandle<AvahiEntryGroup> group_;
  AvahiClientState clientState_ = AVAHI_CLIENT_CONNECTING;
  bool collided_ = false;
  bool failed_ = false;
  bool complained_ = false;
  int refusal_ = 0;     // Avahi's last error about the service, as the log has it
  unsigned pause_ = 0;  // before the next try, in milliseconds
};

}  // namespace glintboard
