// SPDX-License-Identifier: MIT
#include "platform/linux/network/firewalls.h"

#include <gtest/gtest.h>

namespace glintboard {
namespace {

TEST(Firewalls, ReportsChainsThatMayBlockThePort) {
  struct Case {
    const char* policy;
    const char* rules;
    bool admits;
  };
  const Case cases[] = {
      {"accept", "", true},
      {"drop", "", false},
      {"drop", "iif \"lo\" accept\nct state established,related accept", false},
      {"drop", "ct state invalid drop\ntcp dport 9847 accept", true},
      {"drop", "ct state vmap { established : accept, related : accept, invalid : drop }", false},
      {"drop", "tcp dport { 22, 9000-9900 } counter packets 0 bytes 0 accept", true},
      {"drop", "tcp dport { 22, 80 } accept", false},
      {"drop", "udp dport 9847 accept", false},
      {"drop", "ip saddr 10.0.0.0/8 tcp dport 9847 accept", false},
      {"drop", "tcp dport 9847 ct state new accept comment \"phones\"", true},
      {"drop", "counter packets 7 bytes 300 accept", true},
      {"drop", "tcp dport @open accept", false},
      {"accept", "reject with icmpx type admin-prohibited", false},
      {"accept", "tcp dport 9847 accept\nreject", true},
      {"accept", "reject\ntcp dport 9847 accept", false},
      {"accept", "tcp dport 22 drop\nudp dport 5353 drop", true},
      {"accept", "tcp dport != 22 drop", false},
      {"accept", "iifname != \"lo\" drop", false},
      {"accept", "jump of_somebody", false},
  };
  for (const auto& [policy, rules, admits] : cases) {
    const std::string chain = std::string(
                                  "\tchain incoming {\n\t\ttype filter hook input priority "
                                  "filter; policy ") +
                              policy + ";\n" + rules + "\n\t}\n";
    const std::string ruleset =
        "table ip nat {\n\tchain other {\n\t\ttype filter hook forward priority filter; policy "
        "drop;\n\t}\n}\ntable inet wall {\n\tset open {\n\t\telements = { 22 }\n\t}\n" +
        chain + "}\n";
    EXPECT_EQ(chainInTheWay(ruleset, {"tcp", 9847}),
              admits ? std::nullopt : std::optional<std::string>("inet wall incoming"))
        << policy << ": " << rules;
  }
}

}  // namespace
}  // namespace glintboard
