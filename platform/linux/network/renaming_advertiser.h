// SPDX-License-Identifier: MIT
// Advertises under the computer's current name.
#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include "platform/bonjour.h"
#include "platform/linux/base/host_name.h"

namespace glintboard {

// Publishes services under the computer's name. The name in a service is used only if the computer
// has none. Thread-safe.
class RenamingAdvertiser : public BonjourAdvertiser {
 public:
  // `advertiser` publishes the renamed services.
  RenamingAdvertiser(std::unique_ptr<BonjourAdvertiser> advertiser,
                     std::shared_ptr<const HostName> hostName);

  void publish(const BonjourService& service) override;
  void withdraw() override;
  // Publishes again if the computer's name has changed.
  void checkName();

 private:
  // With `mutex_` held.
  void publishUnderName();

  const std::unique_ptr<BonjourAdvertiser> advertiser_;
  const std::shared_ptr<const HostName> hostName_;
  std::mutex mutex_;
  std::optional<BonjourService> service_;
  std::string name_;  // the published one
};

}  // namespace glintboard
