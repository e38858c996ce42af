// SPDX-License-Identifier: MIT
#include "tools/phone/doctor.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace glintboard::phone {
namespace {

TEST(Doctor, SuggestsTheCommandForEachFirewall) {
  using Kind = Firewall::Kind;
  const auto tcp = connectionPortRule();
  const auto udp = discoveryPortRule();
  const std::string ufw = "sudo ufw allow ";
  const std::string nft = "sudo nft insert rule ";
  const auto firewalld = [](const char* what) {
    return std::string("sudo firewall-cmd --permanent --add-") + what +
           " && sudo firewall-cmd --reload";
  };
  const std::tuple<Firewall, PortRule, std::string> cases[] = {
      {{Kind::ufw, true, {}}, tcp, ufw + "glintboard-agent"},
      {{Kind::ufw, true, {}}, udp, ufw + "glintboard-agent"},
      {{Kind::ufw, false, {}}, tcp, ufw + "9847/tcp"},
      {{Kind::ufw, false, {}}, udp, ufw + "5353/udp"},
      {{Kind::firewalld, true, {}}, udp, firewalld("service=glintboard-agent")},
      {{Kind::firewalld, false, {}}, tcp, firewalld("port=9847/tcp")},
      {{Kind::firewalld, false, {}}, udp, firewalld("port=5353/udp")},
      {{Kind::nftables, false, {}}, tcp, nft + "inet filter input tcp dport 9847 accept"},
      {{Kind::nftables, false, "ip f in"}, udp, nft + "ip f in udp dport 5353 accept"},
  };
  for (const auto& [firewall, gate, command] : cases) {
    EXPECT_EQ(openingCommand(firewall, gate), command);
    EXPECT_EQ(openingCaveat(firewall).empty(),
              firewall.kind != Kind::nftables || !firewall.chain.empty());
  }
}

TEST(Doctor, ReportsADamagedPairing) {
  const test::TemporaryFolder folder;
  folder.write("phone.json", R"({"token": "secret"})");
  const LocalAddress anywhere{"lo", "127.0.0.1", true};
  const auto finding =
      examinePairing(PhoneStateFile(folder.path()), anywhere, std::chrono::milliseconds(1));
  EXPECT_EQ(finding.code, "state");
  EXPECT_EQ(finding.exit, ExitCode::local);
}

}  // namespace
}  // namespace glintboard::phone
