#include "tools/phone/doctor.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace glintboard::phone {
namespace {

TEST(Doctor, OpensEachFirewallForWhatIsMissing) {
  using Kind = Firewall::Kind;
  const std::tuple<Firewall, Gate, const char*> cases[] = {
      {{Kind::ufw, true, {}}, connectionGate(), "sudo ufw allow glintboard-agent"},
      {{Kind::ufw, true, {}}, discoveryGate(), "sudo ufw allow glintboard-agent"},
      {{Kind::ufw, false, {}}, connectionGate(), "sudo ufw allow 9847/tcp"},
      {{Kind::ufw, false, {}}, discoveryGate(), "sudo ufw allow 5353/udp"},
      {{Kind::firewalld, true, {}},
       discoveryGate(),
       "sudo firewall-cmd --permanent --add-service=glintboard-agent && sudo firewall-cmd "
       "--reload"},
      {{Kind::firewalld, false, {}},
       connectionGate(),
       "sudo firewall-cmd --permanent --add-port=9847/tcp && sudo firewall-cmd --reload"},
      {{Kind::firewalld, false, {}},
       discoveryGate(),
       "sudo firewall-cmd --permanent --add-port=5353/udp && sudo firewall-cmd --reload"},
      {{Kind::nftables, false, {}},
       connectionGate(),
       "sudo nft insert rule inet filter input tcp dport 9847 accept"},
      {{Kind::nftables, false, "ip filter INPUT"},
       discoveryGate(),
       "sudo nft insert rule ip filter INPUT udp dport 5353 accept"},
  };
  for (const auto& [firewall, gate, command] : cases) {
    EXPECT_EQ(openingCommand(firewall, gate), command);
    EXPECT_EQ(openingCaveat(firewall).empty(),
              firewall.kind != Kind::nftables || !firewall.chain.empty());
  }
}

TEST(Doctor, ADamagedPairingIsAFindingLikeOthers) {
  const test::TemporaryFolder folder;
  folder.write("phone.json", "{");
  const LocalAddress anywhere{"lo", "127.0.0.1", true};
  const auto finding =
      examinePairing(PhoneStateFile(folder.path()), anywhere, std::chrono::milliseconds(1));
  EXPECT_EQ(finding.code, "state");
  EXPECT_EQ(finding.exit, ExitCode::local);
}

}  // namespace
}  // namespace glintboard::phone
