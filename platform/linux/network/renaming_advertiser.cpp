// SPDX-License-Identifier: MIT
#include "platform/linux/network/renaming_advertiser.h"

#include <utility>

namespace glintboard {

RenamingAdvertiser::RenamingAdvertiser(std::unique_ptr<BonjourAdvertiser> advertiser,
                                       std::shared_ptr<const HostName> hostName)
    : advertiser_(std::move(advertiser)), hostName_(std::move(hostName)) {}

void RenamingAdvertiser::publish(const BonjourService& service) {
  const std::lock_guard lock(mutex_);
  service_ = service;
  publishUnderName();
}

void RenamingAdvertiser::withdraw() {
  const std::lock_guard lock(mutex_);
  service_.reset();
  advertiser_->withdraw();
}

void RenamingAdvertiser::checkName() {
  const std::lock_guard lock(mutex_);
  if (service_ && hostName_->localizedName().value_or(service_->name) != name_) {
    publishUnderName();
  }
}

void RenamingAdvertiser::publishUnderName() {
  name_ = hostName_->localizedName().value_or(service_->name);
  auto named = *service_;
  named.name = name_;
  advertiser_->publish(named);
}

}  // namespace glintboard
