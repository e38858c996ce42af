#include "agent/pairing/keychain_paired_device_store.h"

#include "platform/identity.h"
#include "protocol/json_reader.h"
#include "protocol/json_writer.h"

namespace glintboard {
namespace {

using Code = KeychainPairedDeviceStoreError::Code;

KeychainQuery itemQuery() {
  return {std::string(agentIdentifier) + ".paired-devices", "paired-devices"};
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
  if (keychain_.copyMatching(itemQuery(), data) != keychainSuccess) {
    return {};
  }
  auto devices = decodeJson<std::vector<PairedDevice>>(data);
  return devices ? std::move(*devices) : std::vector<PairedDevice>();
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

}  // namespace glintboard
