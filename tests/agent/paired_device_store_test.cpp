#include <gtest/gtest.h>

#include "agent/pairing/in_memory_paired_device_store.h"
#include "agent/pairing/keychain_paired_device_store.h"
#include "tests/support/fakes.h"

namespace glintboard {
namespace {

using test::FakeKeychain;

const std::string itemKey = "org.glintboard.Agent.paired-devices/paired-devices";

PairedDevice device(const char* name) {
  return {randomUuid(), name, {"TOKEN"}, {800000000.5}};
}

template <class Store>
void expectKeepsAList(Store&& store) {
  const std::vector<PairedDevice> first = {device("first")};
  const std::vector<PairedDevice> second = {device("second")};
  EXPECT_TRUE(store.load().empty());
  store.save(first);
  store.save(second);
  EXPECT_EQ(store.load(), second);
  store.save({});
  EXPECT_TRUE(store.load().empty());
  store.deleteAll();
  store.deleteAll();
  EXPECT_TRUE(store.load().empty());
}

TEST(PairedDeviceStore, KeepsTheListLastSaved) {
  FakeKeychain keychain;
  expectKeepsAList(KeychainPairedDeviceStore(keychain));
  expectKeepsAList(InMemoryPairedDeviceStore());
}

TEST(PairedDeviceStore, DamagedDataIsAnEmptyList) {
  FakeKeychain keychain;
  KeychainPairedDeviceStore store(keychain);
  store.save({device("a")});
  const std::string good = keychain.items.at(itemKey);
  for (const std::string& bad : {good.substr(1), std::string("[{}]"), std::string("{}"),
                                 std::string("\xff"), std::string()}) {
    keychain.items[itemKey] = bad;
    EXPECT_TRUE(store.load().empty()) << bad;
  }
}

TEST(PairedDeviceStore, ReportsTheKeychainsStatusAndKeepsTheItem) {
  FakeKeychain keychain;
  KeychainPairedDeviceStore store(keychain);
  store.save({device("a")});
  const auto before = keychain.items;
  keychain.failure = -25308;
  using Error = KeychainPairedDeviceStoreError;
  const auto thrownBy = [](auto operation) {
    try {
      operation();
    } catch (const Error& error) {
      return error;
    }
    return Error(Error::Code::saveFailed, 0);
  };
  EXPECT_EQ(thrownBy([&] { store.save({}); }), Error(Error::Code::saveFailed, -25308));
  EXPECT_EQ(thrownBy([&] { store.deleteAll(); }), Error(Error::Code::deleteFailed, -25308));
  EXPECT_TRUE(store.load().empty());
  EXPECT_TRUE(store.isOutOfReach());
  EXPECT_EQ(keychain.items, before);
  keychain.failure = keychainSuccess;
  EXPECT_FALSE(store.load().empty());
  EXPECT_FALSE(store.isOutOfReach());
}

TEST(PairedDeviceStore, OfTwoListsTheOneWithTheLaterPairingIsLater) {
  const auto list = [](double pairedAt) {
    FakeKeychain keychain;
    KeychainPairedDeviceStore(keychain).save({{randomUuid(), "a", {"TOKEN"}, {pairedAt}}});
    return keychain.items.at(itemKey);
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
