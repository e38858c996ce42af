// SPDX-License-Identifier: MIT
// Secrets that only this user may read.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace glintboard {

// Result codes of the keychain operations. An implementation may have further negative ones.
using KeychainStatus = std::int32_t;
inline constexpr KeychainStatus keychainSuccess = 0;
// Something answered, but not as it should.
inline constexpr KeychainStatus keychainFailed = -2070;
// There is no such keychain in this session.
inline constexpr KeychainStatus keychainNotAvailable = -25291;
// The keychain is there and has no place to keep items in.
inline constexpr KeychainStatus keychainNoSuchKeychain = -25294;
inline constexpr KeychainStatus keychainDuplicateItem = -25299;
inline constexpr KeychainStatus keychainItemNotFound = -25300;
// The keychain is locked: whether it holds the item is not known.
inline constexpr KeychainStatus keychainInteractionNotAllowed = -25308;
inline constexpr KeychainStatus keychainTimedOut = -110;

// What identifies a generic password.
struct KeychainQuery {
  std::string service;
  std::string account;
};

// What a keychain that keeps items in two places must know of their data.
struct KeychainMergeRule {
  // Whether `a` is a later state of the same item than `b`.
  std::function<bool(const std::string& a, const std::string& b)> isLater;
  // The data that stands for a removed item.
  std::string removed;
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
  // From now on calls `readable`, on any thread, whenever an item that could not be read may be
  // readable: the keychain appears, is unlocked or answers again. A call may turn out to be for
  // nothing; none is missed since the last reading that failed. Without a function ends that; no
  // call is under way afterwards.
  virtual void watch(std::function<void()> readable) = 0;
};

}  // namespace glintboard
