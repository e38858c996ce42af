// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "agent/pairing/in_memory_paired_device_store.h"
#include "agent/pairing/keychain_paired_device_store.h"
#include "tests/support/fakes.h"

namespace glintboard {
namespace {

TEST(PairedDeviceStore, LoadsTheListLastSaved) {
  test::FakeKeychain keychain;
  KeychainPairedDeviceStore kept(keychain);
  InMemoryPairedDeviceStore forgotten;
  for (PairedDeviceStoring* store :
       std::initializer_list<PairedDeviceStoring*>{&kept, &forgotten}) {
    const std::vector<PairedDevice> devices = {
        {randomUuid(), std::string("../sec\0nd\n\"", 10), {"TOKEN"}, {800000000.5}}};
    EXPECT_TRUE(store->load().empty());
    store->save({{randomUuid(), "first", {"TOKEN"}, {800000000}}});
    store->save(devices);
    EXPECT_EQ(store->load(), devices);
    store->deleteAll();
    store->deleteAll();
    EXPECT_TRUE(store->load().empty());
  }
}

TEST(PairedDeviceStore, LoadsDamagedDataAsAnEmptyList) {
  test::FakeKeychain keychain;
  KeychainPairedDeviceStore store(keychain);
  store.save({{randomUuid(), "a", {"TOKEN"}, {800000000}}});
  std::string& item = keychain.items.begin()->second;
  for (const std::string& bad : {item.substr(1), std::string("[{}]"), std::string("{}"),
                                 std::string("\xff"), std::string()}) {
    item = bad;
    EXPECT_TRUE(store.load().empty()) << bad;
  }
}

TEST(PairedDeviceStore, MergePrefersTheLaterPairing) {
  const auto list = [](double pairedAt) {
    test::FakeKeychain keychain;
    KeychainPairedDeviceStore(keychain).save({{randomUuid(), "a", {"TOKEN"}, {pairedAt}}});
    return keychain.items.begin()->second;
  };
  const auto rule = pairedDevicesMergeRule();
  EXPECT_TRUE(rule.isLater(list(800000000.5), list(800000000.25)));
  EXPECT_FALSE(rule.isLater(list(99), list(800000000)));
  EXPECT_FALSE(rule.isLater(list(5), list(5)));
  for (const std::string& nothing : {rule.removed, std::string("damaged")}) {
    EXPECT_TRUE(rule.isLater(list(-5), nothing));
    EXPECT_FALSE(rule.isLater(nothing, list(-5)));
  }
  EXPECT_EQ(rule.removed, "[]");
}

}  // namespace
}  // namespace glintboard
