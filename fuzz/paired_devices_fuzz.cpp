// SPDX-License-Identifier: MIT
// The stored list of paired devices, as in the keychain and in the file used without one.
#include "agent/pairing/keychain_paired_device_store.h"
#include "fuzz/fuzz.h"
#include "tests/support/fakes.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace glintboard;
  const std::string stored(fuzz::textOf(data, size));
  test::FakeKeychain keychain;
  keychain.items = {{"org.glintboard.Agent.paired-devices/paired-devices", stored}};
  KeychainPairedDeviceStore store(keychain);
  const auto devices = store.load();
  store.save(devices);
  fuzz::require(store.load() == devices, "a list that was saved loads as the same");

  const auto rule = pairedDevicesMergeRule();
  const auto& saved = keychain.items.begin()->second;
  fuzz::require(!rule.isLater(stored, saved) && !rule.isLater(saved, stored),
                "saving a list makes it no later");
  fuzz::require(!rule.isLater(rule.removed, stored), "a removed list is never the later one");
  return 0;
}
