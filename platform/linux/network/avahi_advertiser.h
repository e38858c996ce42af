// SPDX-License-Identifier: MIT
// Advertising through the Avahi daemon.
#pragma once

#include <mutex>
#include <optional>

#include "platform/bonjour.h"
#include "platform/file_descriptor.h"
#include "platform/linux/network/avahi_handles.h"

namespace glintboard {

// Everything that may wait for the daemon happens on Avahi's own thread; publish and withdraw leave
// word for it. The daemon and the system bus may come, go and come again; what fails is tried again
// a few seconds later. Where the name is taken on the network, the next free one ("NAME #2") is
// advertised.
//
// The destructor waits for a call to the daemon that is under way.
class AvahiAdvertiser : public BonjourAdvertiser {
 public:
  AvahiAdvertiser();
  ~AvahiAdvertiser() override;

  void publish(const BonjourService& service) override { want(service); }
  void withdraw() override { want(std::nullopt); }

 private:
  void want(std::optional<BonjourService> service);
  void wake();

  // On Avahi's thread:
  void update();
  void tryLater();
  void takeWanted();
  void createClient();
  void registerService();
  void takeNextName();
  void tellOfRefusal(int error);
  static void clientChanged(AvahiClient* client, AvahiClientState state, void* self);
  static void groupChanged(AvahiEntryGroup* group, AvahiEntryGroupState state, void* self);

  std::mutex mutex_;
  std::optional<BonjourService> wanted_;
  bool wantedChanged_ = false;

  FileDescriptor wakeUp_;  // an eventfd that Avahi's thread watches
  AvahiHandle<AvahiThreadedPoll> poll_;
  AvahiTimeout* nextTry_ = nullptr;  // of the poll, which releases it

  // Touched by Avahi's thread alone once it runs. Avahi's callbacks only take notes and wake
  // update(), which is free to release the objects they come from.
  std::optional<BonjourService> service_;
  std::string name_;  // as it is advertised
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
