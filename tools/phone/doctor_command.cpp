// SPDX-License-Identifier: MIT
#include <algorithm>

#include "protocol/glintboard_service.h"
#include "tools/phone/command_context.h"
#include "tools/phone/doctor.h"

namespace glintboard::phone {
namespace {

// The timeout of each step; all together take about ten seconds at most.
constexpr std::chrono::milliseconds longestStep{2000};

// Prints and counts the findings.
class Report {
 public:
  explicit Report(Output& output) : output_(output) {}

  void add(const Finding& finding) {
    const bool well = finding.wentWell();
    output_.line((output_.canMark() ? well ? "✓ " : "✗ "
                  : well            ? "ok      "
                                    : "FAILED  ") +
                 finding.text);
    if (!finding.command.empty()) {
      output_.line("        " + finding.command);
    }
    boost::json::object record{{"ok", well}, {"step", finding.step}, {"message", finding.text}};
    if (!well) {
      record["code"] = finding.code;
    }
    if (!finding.command.empty()) {
      record["command"] = finding.command;
    }
    output_.record(record);
    ++steps_;
    if (!well) {
      ++failures_;
      first_ = first_ ? first_ : finding;
    }
  }
  void add(const std::vector<Finding>& findings) {
    for (const auto& finding : findings) {
      add(finding);
    }
  }

  // Prints the summary, or throws PhoneFailure with the first failure's code. `firewall` may still
  // block phones, since connections from this computer itself pass it.
  void close(const std::optional<Firewall>& firewall) const {
    if (first_) {
      throw PhoneFailure(first_->exit, first_->code,
                         std::to_string(failures_) + " of " + std::to_string(steps_) +
                             " steps failed. Fix the first, then run the doctor again.");
    }
    boost::json::object record{{"ok", true}, {"steps", steps_}};
    std::string text = "All is well: phones can find this computer and connect.";
    if (firewall) {
      text =
          "Nothing is wrong on this computer itself. Whether its firewall lets phones in, only a "
          "phone can tell. If none connects" +
          openingCaveat(*firewall) + ":";
      record["command"] = openingCommand(*firewall, connectionPortRule());
    }
    output_.line(text);
    if (firewall) {
      output_.line("        " + openingCommand(*firewall, connectionPortRule()));
    }
    record["message"] = text;
    output_.record(record);
  }

 private:
  Output& output_;
  int steps_ = 0;
  int failures_ = 0;
  std::optional<Finding> first_;
};

}  // namespace

void doctorCommand(const CommandContext& context) {
  const auto timeout = std::min(context.arguments.timeout, longestStep);
  LocalNetwork& network = *context.network;
  const auto addresses = network.addresses();
  const auto holder = network.holder(GlintboardService::defaultPort);
  const auto visits = holder ? visitAll(addresses, timeout) : std::vector<Visit>();

  Report report(context.output);
  const Finding agent = examineAgent(holder, visits);
  report.add(agent);
  report.add(examineDiscovery(*context.browser, network, addresses, agent.wentWell(), timeout));
  const auto firewall = network.firewall(connectionPortRule());
  if (agent.wentWell()) {
    report.add(examineVisits(visits, firewall));
    const auto reached = std::ranges::find_if(visits, [](const Visit& v) { return !v.failure; });
    if (reached != visits.end()) {
      report.add(examinePairing(context.stateFile, reached->at, timeout));
    }
  }
  report.close(firewall);
}

}  // namespace glintboard::phone
