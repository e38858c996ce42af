// SPDX-License-Identifier: MIT
#include "agent/pairing/in_memory_paired_device_store.h"

namespace glintboard {

std::vector<PairedDevice> InMemoryPairedDeviceStore::load() {
  const std::lock_guard guard(lock_);
  return devices_;
}

void InMemoryPairedDeviceStore::save(const std::vector<PairedDevice>& devices) {
  const std::lock_guard guard(lock_);
  devices_ = devices;
}

void InMemoryPairedDeviceStore::deleteAll() {
  const std::lock_guard guard(lock_);
  devices_.clear();
}

}  // namespace glintboard
