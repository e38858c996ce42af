// SPDX-License-Identifier: MIT
// A keychain for sessions that have none.
#pragma once

#include <filesystem>

#include "platform/keychain.h"

namespace glintboard {

// Keeps each item of one service in `<account>.json` in a folder; the folder and the files are the
// user's alone (0700, 0600). The service is not looked at.
//
// Statuses: keychainItemNotFound without the file; keychainDuplicateItem when `add` finds one;
// otherwise the negated errno: -EPERM for a folder or file of another user, -EINVAL for an account
// that is no file name. Nothing throws.
class FileKeychain : public Keychain {
 public:
  // The folder is created when an item is first written.
  explicit FileKeychain(std::filesystem::path folder) : folder_(std::move(folder)) {}

  KeychainStatus copyMatching(const KeychainQuery& query, std::string& data) override;
  KeychainStatus update(const KeychainQuery& query, const std::string& data) override;
  KeychainStatus add(const KeychainQuery& query, const std::string& data) override;
  KeychainStatus remove(const KeychainQuery& query) override;
  // Does nothing: what cannot be read here is mended by the user.
  void watch(std::function<void()> /*readable*/) override {}

 private:
  std::filesystem::path fileOf(const KeychainQuery& query) const;
  void prepareFolder() const;

  std::filesystem::path folder_;
};

}  // namespace glintboard
