// SPDX-License-Identifier: MIT
// Advertising under the name that the computer has at the time.
#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include "platform/bonjour.h"
#include "platform/linux/base/host_name.h"

namespace glintboard {

// Publishes services under the computer's name; the name that a service comes with is for computers
// without one.
class RenamingAdvertiser : public BonjourAdvertiser {
 public:
  RenamingAdvertiser(std::unique_ptr<BonjourAdvertiser> advertiser,
                     std::shared_ptr<const HostName> hostName);

  void publish(const BonjourService& service) override;
  void withdraw() override;
  // Publishes anew if the computer's name is another now. Any thread.
  void checkName();

 private:
  // With `mutex_` held.
  void publishUnderName();

  const std::unique_ptr<BonjourAdvertiser> advertiser_;
  const std::shared_ptr<const HostName> hostName_;
  std::mutex mutex_;
  std::optional<BonjourService> service_;
  std::string name_;  // as it is published
};

}  // namespace glintboard
