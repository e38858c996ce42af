// SPDX-License-Identifier: MIT
// The loading of the stored list of paired devices.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "agent/pairing/paired_device_storing.h"
#include "platform/asio.h"
#include "platform/observers.h"

namespace glintboard {

// Loads the list on the store's lane, and again after each change of a store that was out of reach.
// Waiting for it is limited to two seconds; the loading itself continues until a load has succeeded
// or this object is destroyed. Used on one executor.
class PairedListLoading {
 public:
  // Starts loading; notifies `observers` on `executor` after each load.
  static std::shared_ptr<PairedListLoading> start(const asio::any_io_executor& executor,
                                                  asio::any_io_executor lane,
                                                  std::shared_ptr<PairedDeviceStoring> store,
                                                  std::shared_ptr<const Observers> observers);
  PairedListLoading(const PairedListLoading&) = delete;
  PairedListLoading& operator=(const PairedListLoading&) = delete;
  ~PairedListLoading();

  // Whether the first load is still waited for.
  bool isExpected() const { return ended_.expiry() > std::chrono::steady_clock::now(); }
  // Resumes when the first load has ended or the time limit is reached.
  Awaitable<> wait();
  // The list of the latest load; none if there is no load since the last call.
  std::optional<std::vector<PairedDevice>> take() { return std::exchange(devices_, std::nullopt); }

 private:
  class Wakeup;

  PairedListLoading(const asio::any_io_executor& executor,
                    std::shared_ptr<const Observers> observers);
  // Holds the loading weakly between two loads.
  static Awaitable<> run(std::weak_ptr<PairedListLoading> wanted, std::shared_ptr<Wakeup> changed,
                         std::shared_ptr<PairedDeviceStoring> store, asio::any_io_executor lane);

  asio::steady_timer ended_;
  const std::shared_ptr<const Observers> observers_;
  std::optional<std::vector<PairedDevice>> devices_;
  const std::shared_ptr<Wakeup> changed_;
};

}  // namespace glintboard
