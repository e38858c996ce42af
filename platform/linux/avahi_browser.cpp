#include "platform/linux/avahi_browser.h"

#include <avahi-common/address.h>
#include <net/if.h>

#include <algorithm>
#include <array>
#include <map>
#include <tuple>

#include "platform/linux/avahi_handles.h"
#include "platform/linux/utf8_text.h"

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

// One browse, on the thread that calls run().
class Search {
 public:
  void run(const std::string& type, std::chrono::milliseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    poll_.reset(::avahi_simple_poll_new());
    if (!poll_) {
      return;
    }
    client_.reset(::avahi_client_new(
        ::avahi_simple_poll_get(poll_.get()), AvahiClientFlags{},
        [](AvahiClient*, AvahiClientState state, void* self) {
          static_cast<Search*>(self)->failed_ |= state == AVAHI_CLIENT_FAILURE;
        },
        this, nullptr));
    if (!client_) {
      return;
    }
    browser_.reset(::avahi_service_browser_new(client_.get(), AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC,
                                               type.c_str(), nullptr, AvahiLookupFlags{}, browsed,
                                               this));
    failed_ |= !browser_;
    while (!failed_ && !(toldAll_ && pending_.empty())) {
      const auto left =
          std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
      if (left.count() <= 0 ||
          ::avahi_simple_poll_iterate(poll_.get(), static_cast<int>(left.count())) != 0) {
        return;
      }
      resolved_.clear();
    }
  }

  std::vector<BonjourInstance> instances;

 private:
  static void browsed(AvahiServiceBrowser*, AvahiIfIndex interface, AvahiProtocol protocol,
                      AvahiBrowserEvent event, const char* name, const char* type,
                      const char* domain, AvahiLookupResultFlags, void* self) {
    auto* search = static_cast<Search*>(self);
    if (event == AVAHI_BROWSER_NEW) {
      // A host's IPv6 records are known over IPv4 too, but not the other way round.
      AvahiHandle<AvahiServiceResolver> resolver(
          ::avahi_service_resolver_new(search->client_.get(), interface, protocol, name, type,
                                       domain, protocol, AvahiLookupFlags{}, resolved, self));
      if (resolver) {
        search->pending_.emplace(resolver.get(), std::move(resolver));
      }
    } else if (event == AVAHI_BROWSER_ALL_FOR_NOW) {
      search->toldAll_ = true;
    } else if (event == AVAHI_BROWSER_FAILURE) {
      search->failed_ = true;
    }
  }

  static void resolved(AvahiServiceResolver* resolver, AvahiIfIndex interface, AvahiProtocol,
                       AvahiResolverEvent event, const char* name, const char*, const char*,
                       const char*, const AvahiAddress* address, std::uint16_t port,
                       AvahiStringList*, AvahiLookupResultFlags, void* self) {
    auto* search = static_cast<Search*>(self);
    if (event == AVAHI_RESOLVER_FOUND) {
      search->instances.push_back({name, addressText(*address, interface), port});
    }
    // Released after the callbacks, since this is one of its own.
    if (const auto node = search->pending_.extract(resolver)) {
      search->resolved_.push_back(std::move(node.mapped()));
    }
  }

  AvahiHandle<AvahiSimplePoll> poll_;
  AvahiHandle<AvahiClient> client_;
  AvahiHandle<AvahiServiceBrowser> browser_;
  std::map<AvahiServiceResolver*, AvahiHandle<AvahiServiceResolver>> pending_;
  std::vector<AvahiHandle<AvahiServiceResolver>> resolved_;
  bool toldAll_ = false;
  bool failed_ = false;
};

auto order(const BonjourInstance& instance) {
  return std::tuple(instance.address.find(':') != std::string::npos, instance.name,
                    instance.address, instance.port);
}

}  // namespace

std::vector<BonjourInstance> AvahiBrowser::browse(const std::string& type,
                                                  std::chrono::milliseconds timeout) {
  if (!isUtf8(type)) {
    return {};
  }
  Search search;
  search.run(type, timeout);
  std::vector<BonjourInstance>& found = search.instances;
  std::sort(found.begin(), found.end(),
            [](const auto& a, const auto& b) { return order(a) < order(b); });
  found.erase(std::unique(found.begin(), found.end(),
                          [](const auto& a, const auto& b) { return order(a) == order(b); }),
              found.end());
  return std::move(found);
}

std::unique_ptr<BonjourBrowser> BonjourBrowser::live() {
  return std::make_unique<AvahiBrowser>();
}

}  // namespace glintboard
