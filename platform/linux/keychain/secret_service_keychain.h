// SPDX-License-Identifier: MIT
// The keychain of a desktop session.
#pragma once

#include <chrono>
#include <memory>

#include "platform/keychain.h"

namespace glintboard {

class SecretServiceWatch;
class SecretSession;

// Keeps each item in the Secret Service's default collection, with the attributes `class`
// ("generic-password"), `service` and `account`.
//
// Statuses beside success, each at the latest at the deadline: keychainItemNotFound;
// keychainDuplicateItem when `add` finds one; keychainInteractionNotAllowed while the collection is
// locked, whatever it holds; keychainNoSuchKeychain when `add` finds no default collection;
// keychainNotAvailable without a bus or a service, or when the service dies; keychainTimedOut;
// otherwise keychainFailed. Nothing throws.
//
// Only the first `copyMatching` that finds a lock has the user asked to unlock, without waiting for
// it: a later call finds the collection open. No default collection is ever made, for that would
// have the user invent a password.
class SecretServiceKeychain : public Keychain {
 public:
  struct Deadlines {
    std::chrono::milliseconds read{1500};
    std::chrono::milliseconds change{3000};
  };

  SecretServiceKeychain();
  explicit SecretServiceKeychain(Deadlines deadlines);
  ~SecretServiceKeychain() override;

  KeychainStatus copyMatching(const KeychainQuery& query, std::string& data) override;
  KeychainStatus update(const KeychainQuery& query, const std::string& data) override;
  KeychainStatus add(const KeychainQuery& query, const std::string& data) override;
  KeychainStatus remove(const KeychainQuery& query) override;
  void watch(std::function<void()> readable) override;

 private:
  template <class Work>
  KeychainStatus operate(std::chrono::milliseconds deadline, Work work);

  Deadlines deadlines_;
  bool hasAskedToUnlock_ = false;
  std::unique_ptr<SecretServiceWatch> watch_;
};

}  // namespace glintboard
