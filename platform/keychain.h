// Secrets that only this user may read.
#pragma once

#include <cstdint>
#include <string>

namespace glintboard {

// Result codes of the keychain operations.
using KeychainStatus = std::int32_t;
inline constexpr KeychainStatus keychainSuccess = 0;
inline constexpr KeychainStatus keychainItemNotFound = -25300;

// What identifies a generic password.
struct KeychainQuery {
  std::string service;
  std::string account;
};

// A store of generic passwords. The calls block: use it on the keychain lane.
class Keychain {
 public:
  virtual ~Keychain() = default;
  // Reads the item's data into `data`.
  virtual KeychainStatus copyMatching(const KeychainQuery& query, std::string& data) = 0;
  // Replaces the data of an item that exists.
  virtual KeychainStatus update(const KeychainQuery& query, const std::string& data) = 0;
  // Creates the item.
  virtual KeychainStatus add(const KeychainQuery& query, const std::string& data) = 0;
  virtual KeychainStatus remove(const KeychainQuery& query) = 0;
};

}  // namespace glintboard
