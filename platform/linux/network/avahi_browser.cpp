// SPDX-License-Identifier: MIT
#include <avahi-common/address.h>
#include <net/if.h>

#include <algorithm>
#include <array>
#include <future>
#include <map>
#include <thread>
#include <tuple>

#include "platform/bonjour.h"
#include "platform/linux/network/avahi_handles.h"
#include "protocol/utf8.h"

namespace glintboard {
namespace {

std::string addressText(const AvahiAddress& address, AvahiIfIndex interface) {
  std::array<char, AVAHI_ADDRESS_STR_MAX> text{};
  ::avahi_address_snprint(text.data(), text.size(), &address);
  std::string result = text.data();
  const auto& bytes = address.data.ipv6.address;
  if (address.proto == AVAHI_PROTO_INET6 && bytes[0] == 0xfe && (bytes[1] & 0xc0u) == 0x80u) {
    std::array<char, IF_NAMESIZE> name{};
    if (::if_indextoname(static_cast<unsigned>(interface), name.data()) != nullptr) {
      result.append("%").append(name.data());
    }
  }
  return result;
}

using Instances = std::vector<BonjourInstance>;

// One browse, on the thread that calls run().
class Search {
 public:
  // None without a daemon.
  std::optional<Instances> run(const std::string& type,
                               std::chrono::steady_clock::time_point deadline) {
    poll_.reset(::avahi_simple_poll_new());
    if (!poll_) {
      return std::nullopt;
    }
    client_.reset(::avahi_client_new(
        ::avahi_simple_poll_get(poll_.get()), AvahiClientFlags{},
        [](AvahiClient*, AvahiClientState state, void* self) {
          static_cast<Search*>(self)->failed_ |= state == AVAHI_CLIENT_FAILURE;
        },
        this, nullptr));
    if (!client_) {
      return std::nullopt;
    }
    browser_.reset(::avahi_service_browser_new(client_.get(), AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC,
                                               type.c_str(), nullptr, AvahiLookupFlags{}, browsed,
                                               this));
    failed_ |= !browser_;
    while (!failed_ && !(isComplete_ && pending_.empty())) {
      const auto left =
          std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
      if (left.count() <= 0 ||
          ::avahi_simple_poll_iterate(poll_.get(), static_cast<int>(left.count())) != 0) {
        break;
      }
      resolved_.clear();
    }
    for (const auto& [resolver, pending] : pending_) {
      instances_.push_back(pending.instance);
    }
    return failed_ ? std::nullopt : std::optional(std::move(instances_));
  }

 private:
  struct Pending {
    AvahiHandle<AvahiServiceResolver> resolver;
    BonjourInstance instance;  // without address and port
  };

  static void browsed(AvahiServiceBrowser*, AvahiIfIndex interface, AvahiProtocol protocol,
                      AvahiBrowserEvent event, const char* name, const char* type,
                      const char* domain, AvahiLookupResultFlags flags, void* self) {
    auto* search = static_cast<Search*>(self);
    if (event == AVAHI_BROWSER_NEW) {
      // A host's IPv6 records are known over IPv4 too, but not the other way round.
      AvahiHandle<AvahiServiceResolver> resolver(
          ::avahi_service_resolver_new(search->client_.get(), interface, protocol, name, type,
                                       domain, protocol, AvahiLookupFlags{}, resolved, self));
      if (resolver) {
        const bool isOwn = (flags & AVAHI_LOOKUP_RESULT_LOCAL) != 0;
        auto* const key = resolver.get();
        search->pending_.emplace(key, Pending{std::move(resolver), {name, {}, 0, isOwn}});
      }
    } else if (event == AVAHI_BROWSER_ALL_FOR_NOW) {
      search->isComplete_ = true;
    } else if (event == AVAHI_BROWSER_FAILURE) {
      search->failed_ = true;
    }
  }

  static void resolved(AvahiServiceResolver* resolver, AvahiIfIndex interface, AvahiProtocol,
                       AvahiResolverEvent event, const char*, const char*, const char*, const char*,
                       const AvahiAddress* address, std::uint16_t port, AvahiStringList*,
                       AvahiLookupResultFlags, void* self) {
    auto* search = static_cast<Search*>(self);
    auto node = search->pending_.extract(resolver);
    if (!node) {
      return;  // already resolved
    }
    auto [handle, instance] = std::move(node.mapped());
    if (event == AVAHI_RESOLVER_FOUND) {
      instance.address = addressText(*address, interface);
      instance.port = port;
    }
    search->instances_.push_back(std::move(instance));
    // The resolver must outlive its own callback.
    search->resolved_.push_back(std::move(handle));
  }

  AvahiHandle<AvahiSimplePoll> poll_;
  AvahiHandle<AvahiClient> client_;
  AvahiHandle<AvahiServiceBrowser> browser_;
  std::map<AvahiServiceResolver*, Pending> pending_;
  std::vector<AvahiHandle<AvahiServiceResolver>> resolved_;
  Instances instances_;
  bool isComplete_ = false;
  bool failed_ = false;
};

auto order(const BonjourInstance& instance) {
  return std::tuple(instance.address.empty(), instance.address.find(':') != std::string::npos,
                    instance.name, instance.address, instance.port);
}

// IPv4 addresses come first; a link-local IPv6 address has its interface as scope. A browse whose
// daemon hangs leaves a thread behind for up to 25 seconds.
class AvahiBrowser : public BonjourBrowser {
 public:
  std::optional<Instances> browse(const std::string& type,
                                  std::chrono::milliseconds timeout) override {
    if (!isValidUtf8(type)) {
      return Instances();
    }
    // A daemon that hangs blocks libdbus for 25 s, so a thread that may outlive this call is used.
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    std::promise<std::optional<Instances>> promise;
    auto searched = promise.get_future();
    std::thread([type, deadline, promise = std::move(promise)]() mutable {
      promise.set_value(Search().run(type, deadline));
    }).detach();
    constexpr auto grace = std::chrono::milliseconds(100);
    if (searched.wait_until(deadline + grace) != std::future_status::ready) {
      return std::nullopt;
    }
    auto found = searched.get();
    if (found) {
      std::ranges::sort(*found, {}, order);
      const auto repeated = std::ranges::unique(*found, {}, order);
      found->erase(repeated.begin(), repeated.end());
    }
    return found;
  }
};

}  // namespace

std::unique_ptr<BonjourBrowser> BonjourBrowser::live() {
  return std::make_unique<AvahiBrowser>();
}

}  // namespace glintboard
