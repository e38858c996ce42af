// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

#include "agent/pairing/paired_device_storing.h"
#include "platform/keychain.h"

namespace glintboard {

class KeychainPairedDeviceStoreError : public std::runtime_error {
 public:
  enum class Code { saveFailed, deleteFailed };
  KeychainPairedDeviceStoreError(Code code, KeychainStatus status);

  bool operator==(const KeychainPairedDeviceStoreError& other) const {
    return code == other.code && status == other.status;
  }

  Code code;
  KeychainStatus status;
};

// Stores the list as one generic password: a JSON array of devices. Saving and deleting throw
// KeychainPairedDeviceStoreError.
class KeychainPairedDeviceStore : public PairedDeviceStoring {
 public:
  // `keychain` must outlive the store.
  explicit KeychainPairedDeviceStore(Keychain& keychain) : keychain_(keychain) {}

  std::vector<PairedDevice> load() override;
  bool isOutOfReach() const override { return isOutOfReach_; }
  void watch(std::function<void()> changed) override { keychain_.watch(std::move(changed)); }
  void save(const std::vector<PairedDevice>& devices) override;
  void deleteAll() override;

 private:
  Keychain& keychain_;
  bool isOutOfReach_ = false;
};

// Of two stored lists, the one with the later pairing wins; an empty list counts as removed.
KeychainMergeRule pairedDevicesMergeRule();

}  // namespace glintboard
