// SPDX-License-Identifier: MIT
#include <algorithm>
#include <future>
#include <system_error>

#include "protocol/glintboard_service.h"
#include "protocol/message_factory.h"
#include "tools/phone/agent_session.h"
#include "tools/phone/doctor.h"
#include "tools/phone/output.h"

namespace glintboard::phone {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto port = GlintboardService::defaultPort;
const std::string portText = std::to_string(port);

AgentSession open(const LocalAddress& at, const std::optional<std::string>& token,
                  std::chrono::milliseconds timeout) {
  return {PhoneConnection({at.address, port}, token, Clock::now() + timeout), timeout};
}

Visit visit(const LocalAddress& at, std::chrono::milliseconds timeout) {
  const auto start = Clock::now();
  try {
    open(at, std::nullopt, timeout).sync();
  } catch (const PhoneFailure& failure) {
    if (failure.code != "unauthorized") {
      return {at, {}, failure};
    }
  }
  return {at, Clock::now() - start, std::nullopt};
}

bool failedWith(const Visit& visit, std::string_view code) {
  return visit.failure && visit.failure->code == code;
}

}  // namespace

std::vector<Visit> visitAll(const std::vector<LocalAddress>& addresses,
                            std::chrono::milliseconds timeout) {
  std::vector<std::future<Visit>> underWay;
  underWay.reserve(addresses.size());
  for (const auto& address : addresses) {
    underWay.push_back(std::async(std::launch::async, visit, address, timeout));
  }
  std::vector<Visit> visits;
  visits.reserve(underWay.size());
  for (auto& future : underWay) {
    visits.push_back(future.get());
  }
  return visits;
}

Finding examineAgent(const std::optional<PortHolder>& holder, const std::vector<Visit>& visits) {
  if (!holder) {
    return {"agent",
            "The agent is not running: nothing listens on port " + portText +
                ". Start it from the menu of applications, or:",
            "no_agent", "glintboard-agent", ExitCode::unreachable};
  }
  const bool isKnown = holder->process != 0;
  const std::string name =
      isKnown ? holder->program + " (process " + std::to_string(holder->process) + ")"
              : "another user's program";
  const bool answers = std::ranges::any_of(visits, [](const Visit& v) { return !v.failure; });
  const bool isCutOff =
      std::ranges::all_of(visits, [](const Visit& v) { return failedWith(v, "unreachable"); });
  if (answers || isCutOff) {
    return {"agent", "Port " + portText + " is served by " + name + ".", {}, {}};
  }
  if (holder->program == "glintboard-agent") {
    return {"agent", name + " is there, but does not answer. A new one takes its place:", "timeout",
            "glintboard-agent", ExitCode::timeout};
  }
  return {"agent",
          "Port " + portText + " is held by " + name + ", which is no agent. " +
              (isKnown ? "End it:" : "This tells which it is:"),
          "port_taken",
          isKnown ? "kill " + std::to_string(holder->process)
                  : "sudo ss -ltnp 'sport = :" + portText + "'",
          ExitCode::unreachable};
}

std::vector<Finding> examineVisits(const std::vector<Visit>& visits,
                                   const std::optional<Firewall>& firewall) {
  const Firewall obstacle = firewall.value_or(Firewall());
  std::vector<Finding> findings;
  for (const auto& visit : visits) {
    const std::string where = visit.at.address + " (" + visit.at.interface + ")";
    if (!visit.failure) {
      findings.push_back({"connect",
                          where + " connects and answers, in " + milliseconds(visit.time) + ".",
                          {},
                          {}});
    } else if (failedWith(visit, "unreachable")) {
      findings.push_back({"connect",
                          where + " cannot be connected to: a firewall is in the way" +
                              openingCaveat(obstacle) + ".",
                          "blocked", openingCommand(obstacle, connectionPortRule()),
                          ExitCode::unreachable});
    } else {
      findings.push_back({"connect",
                          where + " connects, but: " + visit.failure->what(),
                          visit.failure->code,
                          {},
                          visit.failure->exitCode});
    }
  }
  if (std::ranges::all_of(visits, [](const Visit& v) { return v.at.loopback; })) {
    findings.push_back({"connect",
                        "This computer is on no network. Connect it to the network of the phone.",
                        "no_network",
                        {},
                        ExitCode::unreachable});
  }
  return findings;
}

Finding examinePairing(const PhoneStateFile& file, const LocalAddress& address,
                       std::chrono::milliseconds timeout) try {
  const PhoneState state = file.load();
  if (!state.token) {
    return {"pairing", "This phone is not paired. To pair it:", {}, "glintboard-phone pair PIN"};
  }
  auto session = open(address, state.token, timeout);
  session.sync();
  const auto start = Clock::now();
  payloadOf<PongPayload>(session.ask(MessageFactory::ping(WireDate::now(), randomUuid())));
  return {"pairing",
          "The agent knows this phone; its ping came back in " +
              milliseconds(Clock::now() - start) + ".",
          {},
          {}};
} catch (const PhoneFailure& failure) {
  if (failure.code == "unauthorized") {
    return {"pairing",
            "The agent does not know this phone any more. Pair it again:", "unauthorized",
            "glintboard-phone pair PIN", ExitCode::refused};
  }
  return {"pairing", failure.what(), failure.code, {}, failure.exitCode};
} catch (const std::system_error& failure) {
  return {"pairing", failure.what(), "local", {}, ExitCode::local};
}

PortRule connectionPortRule() {
  return {"tcp", port};
}

PortRule discoveryPortRule() {
  return {"udp", 5353};
}

std::string openingCommand(const Firewall& firewall, const PortRule& wanted) {
  const std::string number = std::to_string(wanted.port);
  switch (firewall.kind) {
    case Firewall::Kind::ufw:
      return firewall.knowsAgent ? "sudo ufw allow glintboard-agent"
                                 : "sudo ufw allow " + number + "/" + wanted.protocol;
    case Firewall::Kind::firewalld:
      return "sudo firewall-cmd --permanent --add-" +
             (firewall.knowsAgent ? std::string("service=glintboard-agent")
                                  : "port=" + number + "/" + wanted.protocol) +
             " && sudo firewall-cmd --reload";
    case Firewall::Kind::nftables:
      break;
  }
  return "sudo nft insert rule " + (firewall.chain.empty() ? "inet filter input" : firewall.chain) +
         " " + wanted.protocol + " dport " + number + " accept";
}

std::string openingCaveat(const Firewall& firewall) {
  return firewall.kind == Firewall::Kind::nftables && firewall.chain.empty()
             ? " (\"inet filter input\" stands for its table and chain: sudo nft list ruleset)"
             : "";
}

}  // namespace glintboard::phone
