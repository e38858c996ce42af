// SPDX-License-Identifier: MIT
#include "platform/linux/network/firewalls.h"

#include <sys/utsname.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <regex>
#include <sstream>

namespace glintboard {
namespace {

// Whether the file is readable and has a line with that beginning.
bool hasLine(const std::string& path, std::string_view beginning) {
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(beginning)) {
      return true;
    }
  }
  return false;
}

// The output of a command; none if it fails or does not exist.
std::optional<std::string> printed(const std::string& command) {
  const std::string line = "PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C timeout 2 " + command +
                           " </dev/null 2>/dev/null";
  std::FILE* const pipe = ::popen(line.c_str(), "re");
  if (pipe == nullptr) {
    return std::nullopt;
  }
  std::string text;
  std::array<char, 4096> part{};
  while (const auto length = std::fread(part.data(), 1, part.size(), pipe)) {
    text.append(part.data(), length);
  }
  return ::pclose(pipe) == 0 ? std::optional(text) : std::nullopt;
}

// Whether the kernel may have packet filter rules.
bool canFilter() {
  utsname kernel{};
  ::uname(&kernel);
  const std::string builtIn = "/lib/modules/" + std::string(kernel.release) + "/modules.builtin";
  return !std::ifstream("/proc/modules") || hasLine("/proc/modules", "nf_tables ") ||
         hasLine("/proc/modules", "ip_tables ") ||
         hasLine(builtIn, "kernel/net/netfilter/nf_tables.ko");
}

// Whether a set such as "22" or "{ 22, 80-90 }" contains the port. None for another syntax.
std::optional<bool> holds(const std::string& ports, std::uint16_t port) {
  static const std::regex plain(R"([{} ,\d-]+)");
  static const std::regex range(R"((\d+)(?:-(\d+))?)");
  if (!std::regex_match(ports, plain)) {
    return std::nullopt;
  }
  for (std::sregex_iterator found(ports.begin(), ports.end(), range), end; found != end; ++found) {
    const int first = std::stoi(found->str(1));
    const std::string last = found->str(2);
    if (first <= port && port <= (last.empty() ? first : std::stoi(last))) {
      return true;
    }
  }
  return false;
}

enum class Effect { none, accepts, blocks };

// The effect of a rule on the first of these packets from another computer.
Effect effectOf(const std::string& rule, const PortRule& wanted) {
  static const std::regex port(R"((?:^|\s)(tcp|udp|th) dport (\{[^}]*\}|\S+))");
  static const std::regex acceptance(
      R"((?:ct state new )?(?:\w+ dport (?:\{[^}]*\}|\S+) )?(?:ct state new )?(?:counter packets \d+ bytes \d+ )?)"
      R"(accept(?: comment .*)?)");
  static const std::regex blocking(R"(\b(drop|reject|queue|jump|goto|vmap)\b)");
  const bool isNegated = rule.find("!=") != rule.npos;
  const bool isForOthers = (rule.starts_with("ct state ") && rule.find("new") == rule.npos) ||
                           rule.starts_with("iif \"lo\"") || rule.starts_with("iifname \"lo\"");
  if (isForOthers && !isNegated) {
    return Effect::none;
  }
  std::optional<bool> matches = true;
  if (std::smatch found; std::regex_search(rule, found, port)) {
    const bool isProtocol = found[1] == wanted.protocol || found[1] == "th";
    matches = isProtocol ? holds(found[2], wanted.port) : false;
  }
  if (matches == false) {
    return Effect::none;
  }
  if (matches && std::regex_match(rule, acceptance)) {
    return Effect::accepts;
  }
  return std::regex_search(rule, blocking) ? Effect::blocks : Effect::none;
}

}  // namespace

bool ufwIsOn() {
  return hasLine("/etc/ufw/ufw.conf", "ENABLED=yes");
}

bool ufwAdmits(const PortRule& wanted) {
  // From any address and port to any address.
  const std::string target = std::to_string(wanted.port) + " 0.0.0.0/0 any 0.0.0.0/0 ";
  return hasLine("/etc/ufw/user.rules", "### tuple ### allow " + wanted.protocol + " " + target) ||
         hasLine("/etc/ufw/user.rules", "### tuple ### allow any " + target);
}

bool firewalldAdmits(const PortRule& wanted) {
  return printed("firewall-cmd --query-service=glintboard-agent") ||
         printed("firewall-cmd --query-port=" + std::to_string(wanted.port) + "/" +
                 wanted.protocol);
}

std::optional<Firewall> packetFilter(const PortRule& wanted) {
  const auto ruleset = printed("nft list ruleset");
  if (!ruleset) {
    return canFilter() ? std::optional(Firewall()) : std::nullopt;
  }
  auto chain = chainInTheWay(*ruleset, wanted);
  return chain ? std::optional(Firewall{Firewall::Kind::nftables, false, *chain}) : std::nullopt;
}

std::optional<std::string> chainInTheWay(const std::string& ruleset, const PortRule& wanted) {
  std::istringstream lines(ruleset);
  std::string table;
  std::string chain;
  bool isForIncoming = false;
  auto effect = Effect::none;
  auto policy = Effect::accepts;
  for (std::string line; std::getline(lines, line);) {
    line.erase(0, line.find_first_not_of(" \t"));
    std::istringstream words(line);
    std::string kind;
    std::string name;
    words >> kind >> name;
    if (kind == "table") {
      words >> table;
      table = name.append(1, ' ').append(table);
    } else if (kind == "chain" && name != "{") {
      chain = name;
      isForIncoming = false;
      effect = Effect::none;
    } else if (kind == "type") {
      isForIncoming = line.find(" hook input ") != line.npos;
      policy = line.find("policy drop") != line.npos ? Effect::blocks : Effect::accepts;
    } else if (line == "}") {
      effect = effect == Effect::none ? policy : effect;
      if (isForIncoming && effect == Effect::blocks) {
        return table.append(1, ' ').append(chain);
      }
      isForIncoming = false;
    } else if (isForIncoming && effect == Effect::none) {
      effect = effectOf(line, wanted);
    }
  }
  return std::nullopt;
}

}  // namespace glintboard
