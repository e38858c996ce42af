// SPDX-License-Identifier: MIT
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "platform/linux/network/firewalls.h"
#include "platform/local_network.h"

namespace glintboard {
namespace {

namespace fs = std::filesystem;

std::string addressText(const sockaddr& address) {
  const socklen_t length =
      address.sa_family == AF_INET ? sizeof(sockaddr_in) : sizeof(sockaddr_in6);
  std::array<char, NI_MAXHOST> text{};
  const int failed =
      ::getnameinfo(&address, length, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST);
  return failed != 0 ? std::string() : text.data();
}

// The IPv6 addresses, as "INTERFACE 32-HEXADECIMAL-DIGITS", that are unusable: still being checked
// for duplicates, or found to be in use by another computer.
std::set<std::string> unusableIpv6() {
  std::set<std::string> unusable;
  std::ifstream file("/proc/net/if_inet6");
  std::string address;
  std::string index;
  std::string prefix;
  std::string scope;
  std::string flags;
  std::string interface;
  while (file >> address >> index >> prefix >> scope >> flags >> interface) {
    constexpr unsigned long duplicate = 0x08;
    constexpr unsigned long tentative = 0x40;
    if ((std::stoul(flags, nullptr, 16) & (duplicate | tentative)) != 0) {
      unusable.insert(interface.append(1, ' ').append(address));
    }
  }
  return unusable;
}

std::string hexadecimal(const in6_addr& address) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const unsigned char byte : address.s6_addr) {
    text.append(1, digits[byte >> 4U]).append(1, digits[byte & 0xFU]);
  }
  return text;
}

// The TCP sockets that listen on a port, as "socket:[INODE]".
std::set<std::string> listeners(std::uint16_t port) {
  std::set<std::string> inodes;
  for (const char* table : {"/proc/net/tcp", "/proc/net/tcp6"}) {
    std::ifstream file(table);
    std::string line;
    std::getline(file, line);  // the heading
    while (std::getline(file, line)) {
      std::istringstream fields(line);
      std::array<std::string, 10> field;
      for (auto& text : field) {
        fields >> text;
      }
      const std::string& local = field[1];  // ADDRESS:PORT
      const std::string& inode = field[9];
      constexpr std::string_view listening = "0A";
      unsigned long localPort = 0;
      const char* digits = local.data() + local.find(':') + 1;
      std::from_chars(digits, local.data() + local.size(), localPort, 16);
      if (fields && field[3] == listening && localPort == port) {
        inodes.insert("socket:[" + inode + "]");
      }
    }
  }
  return inodes;
}

bool holdsOneOf(const fs::path& process, const std::set<std::string>& sockets) {
  std::error_code error;
  for (fs::directory_iterator entry(process / "fd", error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code closedMeanwhile;
    if (sockets.contains(fs::read_symlink(*entry, closedMeanwhile).string())) {
      return true;
    }
  }
  return false;
}

// The folder below /proc of the first process that `wanted` accepts, or none.
template <class Predicate>
std::optional<fs::path> findProcess(Predicate wanted) {
  std::error_code error;
  for (fs::directory_iterator entry("/proc", error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename();
    if (std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; }) &&
        wanted(entry->path())) {
      return entry->path();
    }
  }
  return std::nullopt;
}

bool exists(const std::string& path) {
  return ::access(path.c_str(), F_OK) == 0;
}

// The first line; empty if the file cannot be read.
std::string firstLine(const fs::path& path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  return line;
}

// Reads the network's state from the kernel.
class LinuxLocalNetwork : public LocalNetwork {
 public:
  std::vector<LocalAddress> addresses() override;
  std::optional<PortHolder> holder(std::uint16_t port) override;
  std::optional<Firewall> firewall(const PortRule& wanted) override;
  bool hasProgram(const std::string& name) override;
};

std::vector<LocalAddress> LinuxLocalNetwork::addresses() {
  ifaddrs* list = nullptr;
  if (::getifaddrs(&list) != 0) {
    return {};
  }
  const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> owner(list, &::freeifaddrs);
  constexpr unsigned usable = IFF_UP | IFF_RUNNING;
  const auto unusable = unusableIpv6();
  std::vector<LocalAddress> addresses;
  for (const int family : {AF_INET, AF_INET6}) {
    for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
      if (entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != family ||
          (entry->ifa_flags & usable) != usable) {
        continue;
      }
      if (family == AF_INET6) {
        const auto& address = reinterpret_cast<const sockaddr_in6&>(*entry->ifa_addr).sin6_addr;
        if (unusable.contains(std::string(entry->ifa_name) + ' ' + hexadecimal(address))) {
          continue;
        }
      }
      addresses.push_back(
          {entry->ifa_name, addressText(*entry->ifa_addr), (entry->ifa_flags & IFF_LOOPBACK) != 0});
    }
  }
  return addresses;
}

std::optional<PortHolder> LinuxLocalNetwork::holder(std::uint16_t port) {
  const auto sockets = listeners(port);
  if (sockets.empty()) {
    return std::nullopt;
  }
  const auto process =
      findProcess([&](const fs::path& folder) { return holdsOneOf(folder, sockets); });
  if (!process) {
    return PortHolder{};
  }
  std::error_code error;
  std::string program = fs::read_symlink(*process / "exe", error).filename();
  // An update may have deleted the file of the running program.
  program = program.substr(0, program.find(" (deleted)"));
  return PortHolder{std::stoi(process->filename()),
                    program.empty() ? firstLine(*process / "comm") : program};
}

std::optional<Firewall> LinuxLocalNetwork::firewall(const PortRule& wanted) {
  using Kind = Firewall::Kind;
  if (ufwIsOn()) {
    return ufwAdmits(wanted)
               ? std::nullopt
               : std::optional(
                     Firewall{Kind::ufw, exists("/etc/ufw/applications.d/glintboard-agent"), {}});
  }
  const auto isFirewalld = [](const fs::path& folder) {
    return firstLine(folder / "comm") == "firewalld";
  };
  if (findProcess(isFirewalld)) {
    return firewalldAdmits(wanted)
               ? std::nullopt
               : std::optional(Firewall{Kind::firewalld,
                                        exists("/usr/lib/firewalld/services/glintboard-agent.xml"),
                                        {}});
  }
  return packetFilter(wanted);
}

bool LinuxLocalNetwork::hasProgram(const std::string& name) {
  return std::ranges::any_of(std::array{"/usr/sbin/", "/usr/bin/"},
                             [&](const char* folder) { return exists(folder + name); });
}

}  // namespace

std::unique_ptr<LocalNetwork> LocalNetwork::live() {
  return std::make_unique<LinuxLocalNetwork>();
}

}  // namespace glintboard
