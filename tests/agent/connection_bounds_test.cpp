// SPDX-License-Identifier: MIT
#include "agent/connection/connection_bounds.h"

#include <gtest/gtest.h>

namespace glintboard {
namespace {

using enum ConnectionKind;

struct Opened {
  const char* peer;
  ConnectionKind kind = unpaired;
};

TEST(ConnectionBoundsTest, ClosesTheLongestSilentConnectionOfTheBusiestPeer) {
  struct Case {
    const char* what;
    std::vector<Opened> opened;  // of each kind two are allowed
    std::vector<std::size_t> ended;
    bool firstIsHeardOf = false;
  };
  const char* a = "10.0.0.1";
  const char* b = "10.0.0.2";
  for (const auto& [what, opened, ended, firstIsHeardOf] : std::vector<Case>{
           {"as many as allowed", {{a}, {a}}, {}},
           {"the oldest", {{a}, {a}, {a}, {a}}, {0, 1}},
           {"the oldest idle", {{a}, {a}, {a}, {a}}, {1, 2}, true},
           {"every peer has one", {{a}, {b}, {"10.0.0.3"}}, {0}},
           {"of the greedy peer", {{a}, {b}, {b}}, {1}},
           {"the same address in IPv6", {{a}, {"::ffff:10.0.0.2"}, {b}}, {1}},
           {"a network of one peer", {{a}, {"2001:db8::1"}, {"2001:db8::2"}}, {1}},
           {"a network of all", {{"fe80::1"}, {"fe80::2"}, {"fe80::2"}}, {1}},
           {"waiting for the upgrade", {{a, waiting}, {b, waiting}, {a, waiting}}, {0}},
           {"each kind by itself", {{a, waiting}, {a}, {a, paired}, {a, waiting}}, {}},
           {"never a paired one", {{a, paired}, {a}, {a}, {a, paired}, {a}, {a}}, {1, 2}},
           {"but for paired ones", {{a, paired}, {a, paired}, {a, paired}}, {0}}}) {
    const auto bounds = std::make_shared<ConnectionBounds>(
        ConnectionLimits{.waiting = 2, .unpaired = 2, .paired = 2, .total = 100});
    std::vector<std::unique_ptr<ConnectionBounds::Ticket>> tickets;
    std::vector<std::size_t> gone;
    for (std::size_t i = 0; i < opened.size(); ++i) {
      tickets.push_back(bounds->enter(asio::ip::make_address(opened[i].peer)));
      tickets[i]->whenOut([&gone, i] { gone.push_back(i); });
      tickets[i]->become(opened[i].kind);
      if (firstIsHeardOf) {
        tickets[0]->touch();
      }
    }
    EXPECT_EQ(gone, ended) << what;
  }
}

TEST(ConnectionBoundsTest, MakesRoomByClosingStrangersOnly) {
  const auto bounds = std::make_shared<ConnectionBounds>(ConnectionLimits{.total = 3});
  const auto enter = [&] { return bounds->enter(asio::ip::make_address("10.0.0.1")); };
  std::vector<std::unique_ptr<ConnectionBounds::Ticket>> tickets;
  std::vector<ConnectionKind> gone;
  for (const auto kind : {paired, unpaired, waiting}) {
    tickets.push_back(enter());
    tickets.back()->whenOut([&gone, kind] { gone.push_back(kind); });
    tickets.back()->become(kind);
  }
  for (int i = 0; i < 3; ++i) {
    bounds->makeRoom();
  }
  EXPECT_EQ(gone, (std::vector{waiting, unpaired}));
  EXPECT_EQ(enter(), nullptr) << "closed, but not released";
  tickets.pop_back();
  EXPECT_NE(enter(), nullptr);
}

TEST(ConnectionBoundsTest, ScalesLimitsToTheAvailableDescriptors) {
  for (const std::size_t descriptors : {0, 20, 64, 256, 1024, 4096, 1 << 20}) {
    const auto limits = ConnectionLimits::forDescriptors(descriptors);
    EXPECT_LE(limits.waiting + limits.unpaired + limits.paired,
              std::max<std::size_t>(limits.total, 2))
        << descriptors;
    EXPECT_LE(limits.total, descriptors / 2 + (descriptors > 512 ? descriptors / 2 - 256 : 0))
        << descriptors;
    EXPECT_GE(limits.waiting, 1U) << descriptors;
    EXPECT_EQ(limits.paired >= 1000, descriptors >= 4096) << descriptors;
  }
}

}  // namespace
}  // namespace glintboard
