// SPDX-License-Identifier: MIT
// Owners of Avahi's objects.
#pragma once

#include <avahi-client/client.h>
#include <avahi-client/lookup.h>
#include <avahi-client/publish.h>
#include <avahi-common/simple-watch.h>
#include <avahi-common/thread-watch.h>

#include <memory>

namespace glintboard {

// Releases an object with the function for its type.
struct AvahiRelease {
  void operator()(AvahiThreadedPoll* poll) const { ::avahi_threaded_poll_free(poll); }
  void operator()(AvahiSimplePoll* poll) const { ::avahi_simple_poll_free(poll); }
  void operator()(AvahiClient* client) const { ::avahi_client_free(client); }
  void operator()(AvahiEntryGroup* group) const { ::avahi_entry_group_free(group); }
  void operator()(AvahiServiceBrowser* browser) const { ::avahi_service_browser_free(browser); }
  void operator()(AvahiServiceResolver* resolver) const { ::avahi_service_resolver_free(resolver); }
};

// Release the objects of a client before the client, and the client before its poll.
template <class T>
using AvahiHandle = std::unique_ptr<T, AvahiRelease>;

}  // namespace glintboard
