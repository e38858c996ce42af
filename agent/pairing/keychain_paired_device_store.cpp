// SPDX-License-Identifier: MIT
#include "agent/pairing/keychain_paired_device_store.h"

#include <algorithm>
#include <limits>

#include "platform/identity.h"
#include "platform/log.h"
#include "protocol/json_reader.h"
#include "protocol/json_writer.h"

namespace glintboard {
namespace {

using Code = KeychainPairedDeviceStoreError::Code;

KeychainQuery itemQuery() {
  return {std::string(agentIdentifier).append(".paired-devices"), "paired-devices"};
}

// A list that cannot be decoded counts as empty.
std::vector<PairedDevice> devicesIn(const std::string& data) {
  auto devices = decodeJson<std::vector<PairedDevice>>(data);
  return devices ? std::move(*devices) : std::vector<PairedDevice>();
}

double lastPairingIn(const std::string& data) {
  double last = -std::numeric_limits<double>::infinity();
  for (const PairedDevice& device : devicesIn(data)) {
    last = std::max(last, device.pairedAt.secondsSinceReference);
  }
  return last;
}

}  // namespace

KeychainPairedDeviceStoreError::KeychainPairedDeviceStoreError(Code givenCode,
                                                               KeychainStatus givenStatus)
    : std::runtime_error((givenCode == Code::saveFailed
                              ? "The pairing could not be saved (error "
                              : "The pairing could not be removed (error ") +
                         std::to_string(givenStatus) + ")."),
      code(givenCode),
      status(givenStatus) {}

std::vector<PairedDevice> KeychainPairedDeviceStore::load() {
  std::string data;
  const KeychainStatus status = keychain_.copyMatching(itemQuery(), data);
  const bool wasInReach = !isOutOfReach_;
  isOutOfReach_ = status != keychainSuccess && status != keychainItemNotFound;
  // A session without a keychain is no fault.
  if (isOutOfReach_ && wasInReach && status != keychainNotAvailable) {
    log::info("the stored pairing cannot be read (error ", status, ")");
  }
  return status == keychainSuccess ? devicesIn(data) : std::vector<PairedDevice>();
}

void KeychainPairedDeviceStore::save(const std::vector<PairedDevice>& devices) {
  const std::string data = jsonText(devices);
  KeychainStatus status = keychain_.update(itemQuery(), data);
  if (status == keychainItemNotFound) {
    status = keychain_.add(itemQuery(), data);
  }
  if (status != keychainSuccess) {
    throw KeychainPairedDeviceStoreError(Code::saveFailed, status);
  }
}

void KeychainPairedDeviceStore::deleteAll() {
  const KeychainStatus status = keychain_.remove(itemQuery());
  if (status != keychainSuccess && status != keychainItemNotFound) {
    throw KeychainPairedDeviceStoreError(Code::deleteFailed, status);
  }
}

KeychainMergeRule pairedDevicesMergeRule() {
  return {[](const std::string& a, const std::string& b) {
            return lastPairingIn(a) > lastPairingIn(b);
          },
          jsonText(std::vector<PairedDevice>())};
}

}  // namespace glintboard
