// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>

#include "agent/pairing/paired_device_storing.h"

namespace glintboard {

// Keeps the list in memory. Any thread.
class InMemoryPairedDeviceStore : public PairedDeviceStoring {
 public:
  explicit InMemoryPairedDeviceStore(std::vector<PairedDevice> devices = {})
      : devices_(std::move(devices)) {}

  std::vector<PairedDevice> load() override;
  void save(const std::vector<PairedDevice>& devices) override;
  void deleteAll() override;

 private:
  std::mutex lock_;
  std::vector<PairedDevice> devices_;
};

}  // namespace glintboard
