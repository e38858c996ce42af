// SPDX-License-Identifier: MIT
#include "tools/phone/find_agent.h"

#include <gtest/gtest.h>

#include "protocol/glintboard_service.h"
#include "tools/phone/failure.h"

namespace glintboard::phone {
namespace {

class FixedBrowser : public BonjourBrowser {
 public:
  explicit FixedBrowser(std::vector<BonjourInstance> found) : found_(std::move(found)) {}
  std::optional<std::vector<BonjourInstance>> browse(const std::string& type,
                                                     std::chrono::milliseconds) override {
    return type == GlintboardService::bonjourType ? found_ : std::vector<BonjourInstance>{};
  }

 private:
  std::vector<BonjourInstance> found_;
};

TEST(FindAgent, PrefersTheNamedThenTheOnlyAgent) {
  constexpr std::chrono::milliseconds timeout{1};
  EXPECT_EQ(findAgent(nullptr, "Studio", timeout).addresses,
            (std::vector<AgentAddress>{{"127.0.0.1", GlintboardService::defaultPort}}));

  FixedBrowser one(
      {{"Studio", "fe80::1%eth0", 9847}, {"Studio", "10.0.0.2", 9847}, {"Attic", "", 0}});
  EXPECT_EQ(findAgent(&one, "Renamed since", timeout).addresses,
            (std::vector<AgentAddress>{{"fe80::1%eth0", 9847}, {"10.0.0.2", 9847}}));

  FixedBrowser two({{"Attic", "10.0.0.3", 9847}, {"Studio", "10.0.0.2", 9847}});
  EXPECT_EQ(findAgent(&two, "Studio", timeout).addresses.front().host, "10.0.0.2");
  EXPECT_THROW(findAgent(&two, std::nullopt, timeout), PhoneFailure);
}

}  // namespace
}  // namespace glintboard::phone
