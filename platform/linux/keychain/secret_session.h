// SPDX-License-Identifier: MIT
// A conversation with the session's Secret Service.
#pragma once

#include <libsecret/secret.h>

#include <chrono>
#include <string>
#include <vector>

#include "platform/keychain.h"
#include "platform/linux/base/gio_call.h"

namespace glintboard {

// Why the Secret Service did not do what it was asked.
struct SecretRefusal {
  KeychainStatus status;
};

// Talks to the Secret Service until a deadline common to all calls, and never lets it ask the user
// anything on its own. Every call throws SecretRefusal. For one thread, for one operation.
class SecretSession {
 public:
  // Connects, which starts the service where the bus can.
  explicit SecretSession(std::chrono::milliseconds deadline);

  // The items of that service and account, locked ones too.
  std::vector<GObjectPointer<SecretItem>> search(const KeychainQuery& query);
  // The collection that new items belong into, or null.
  GObjectPointer<SecretCollection> defaultCollection();
  std::string secret(SecretItem* item);
  void setSecret(SecretItem* item, const std::string& data);
  void create(SecretCollection* collection, const KeychainQuery& query, const std::string& data);
  void remove(SecretItem* item);
  // Unlocks the item or collection where that needs no answer of the user; otherwise has the user
  // asked, does not wait for the answer, and returns false.
  bool unlock(const std::string& path);

 private:
  template <class Finish>
  auto call(const GioCalls::Start& start, Finish finish);
  GLibPointer<GVariant> callBus(const char* path, const char* interface, const char* method,
                                GVariant* arguments, const char* reply);

  GioCalls calls_;
  GObjectPointer<GDBusConnection> bus_;
  GObjectPointer<SecretService> service_;
};

}  // namespace glintboard
