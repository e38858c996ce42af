// SPDX-License-Identifier: MIT
// Where the trusted phones are remembered.
#pragma once

#include <functional>
#include <vector>

#include "protocol/paired_device.h"

namespace glintboard {

// The calls may block: the pairing service makes them on the keychain lane, one at a time.
class PairedDeviceStoring {
 public:
  virtual ~PairedDeviceStoring() = default;
  // The stored list; empty when there is none or it cannot be read. Never throws.
  virtual std::vector<PairedDevice> load() = 0;
  // Whether the last `load` could not ask what is stored, so that a later one may tell more.
  virtual bool isOutOfReach() const { return false; }
  // From now on calls `told`, on any thread, whenever `load` may tell more than it last did;
  // without a function ends that.
  virtual void watch(std::function<void()> /*told*/) {}
  // Replaces the stored list. Throws; the list stored before is then kept.
  virtual void save(const std::vector<PairedDevice>& devices) = 0;
  // Removes the stored list; there being none is a success. Throws.
  virtual void deleteAll() = 0;
};

}  // namespace glintboard
