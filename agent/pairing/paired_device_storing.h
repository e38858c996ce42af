// SPDX-License-Identifier: MIT
// The store of paired devices.
#pragma once

#include <functional>
#include <vector>

#include "protocol/paired_device.h"

namespace glintboard {

// Calls may block. The pairing service makes them on the keychain lane, one at a time.
class PairedDeviceStoring {
 public:
  virtual ~PairedDeviceStoring() = default;
  // The stored list; empty when there is none or it cannot be read. Never throws.
  virtual std::vector<PairedDevice> load() = 0;
  // Whether the last `load` failed to access the store, so that a later one may succeed.
  virtual bool isOutOfReach() const { return false; }
  // Calls `changed`, on any thread, whenever `load` may give another result. Replaces the previous
  // function; an empty one ends the watch.
  virtual void watch(std::function<void()> /*changed*/) {}
  // Replaces the stored list. Throws; the previous list is then intact.
  virtual void save(const std::vector<PairedDevice>& devices) = 0;
  // Removes the stored list, if there is one. Throws.
  virtual void deleteAll() = 0;
};

}  // namespace glintboard
