// SPDX-License-Identifier: MIT
// A keychain that outlasts the coming and going of the desktop's own.
#pragma once

#include <optional>
#include <string>

#include "platform/keychain.h"

namespace glintboard {

// Keeps items in the preferred keychain, and in the fallback whatever the preferred one does not
// take, because it is absent, locked, hangs or fails. What the fallback holds is therefore the
// latest change, and moves to the preferred keychain with the next reading that reaches it: it is
// taken out of the fallback only once the preferred keychain has it. Where both hold an item, the
// later one by the rule wins.
//
// A removal that the preferred keychain does not take is kept in the fallback too, as the rule's
// data for a removed item, unless there is no preferred keychain and there never was: that it took
// an item is noted in the fallback, under the account with ".moved" behind it.
//
// The statuses are the keychains' own; `update` makes an item where the preferred keychain cannot
// say whether there is one. Nothing is remembered in memory but what was logged. For one
// thread.
class TwoPlaceKeychain : public Keychain {
 public:
  // Both keychains must outlive this.
  TwoPlaceKeychain(Keychain& preferred, Keychain& fallback, KeychainMergeRule rule)
      : preferred_(preferred), fallback_(fallback), rule_(std::move(rule)) {}

  KeychainStatus copyMatching(const KeychainQuery& query, std::string& data) override;
  KeychainStatus update(const KeychainQuery& query, const std::string& data) override;
  KeychainStatus add(const KeychainQuery& query, const std::string& data) override;
  KeychainStatus remove(const KeychainQuery& query) override;
  void watch(std::function<void()> readable) override { preferred_.watch(std::move(readable)); }

 private:
  using Write = KeychainStatus (Keychain::*)(const KeychainQuery&, const std::string&);
  KeychainStatus write(const KeychainQuery& query, const std::string& data, Write operation);
  // Logs when the preferred keychain begins or ceases to answer.
  void report(KeychainStatus preferredStatus);

  Keychain& preferred_;
  Keychain& fallback_;
  KeychainMergeRule rule_;
  std::optional<bool> reportedAnswer_;
};

}  // namespace glintboard
