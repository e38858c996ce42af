// SPDX-License-Identifier: MIT
#include "platform/linux/keychain/secret_service_keychain.h"

#include <utility>

#include "platform/linux/keychain/secret_service_watch.h"
#include "platform/linux/keychain/secret_session.h"

namespace glintboard {
namespace {

struct Found {
  std::vector<GObjectPointer<SecretItem>> items;
  // The item or collection to unlock before anything can be said; empty when nothing is locked.
  std::string locked;
};

Found find(SecretSession& session, const KeychainQuery& query) {
  Found found{session.search(query), {}};
  for (const auto& item : found.items) {
    if (secret_item_get_locked(item.get())) {
      found.locked = g_dbus_proxy_get_object_path(G_DBUS_PROXY(item.get()));
    }
  }
  // A locked collection need not tell what it holds.
  if (found.items.empty()) {
    const auto collection = session.defaultCollection();
    if (collection && secret_collection_get_locked(collection.get())) {
      found.locked = g_dbus_proxy_get_object_path(G_DBUS_PROXY(collection.get()));
    }
  }
  return found;
}

// Success when there are items to work on.
KeychainStatus statusOf(const Found& found) {
  if (!found.locked.empty()) {
    return keychainInteractionNotAllowed;
  }
  return found.items.empty() ? keychainItemNotFound : keychainSuccess;
}

}  // namespace

SecretServiceKeychain::SecretServiceKeychain() = default;
SecretServiceKeychain::SecretServiceKeychain(Deadlines deadlines) : deadlines_(deadlines) {}
SecretServiceKeychain::~SecretServiceKeychain() = default;

// Does `work` with a session and turns a refusal into its status.
template <class Work>
KeychainStatus SecretServiceKeychain::operate(std::chrono::milliseconds deadline, Work work) {
  try {
    SecretSession session(deadline);
    return work(session);
  } catch (const SecretRefusal& refusal) {
    return refusal.status;
  }
}

KeychainStatus SecretServiceKeychain::copyMatching(const KeychainQuery& query, std::string& data) {
  const KeychainStatus status = operate(deadlines_.read, [&](SecretSession& session) {
    Found found = find(session, query);
    if (!found.locked.empty() && !std::exchange(hasAskedToUnlock_, true) &&
        session.unlock(found.locked)) {
      found = find(session, query);
    }
    const KeychainStatus state = statusOf(found);
    if (state == keychainSuccess) {
      data = session.secret(found.items.front().get());
    }
    return state;
  });
  if (status == keychainTimedOut && watch_) {
    watch_->ask();
  }
  return status;
}

KeychainStatus SecretServiceKeychain::update(const KeychainQuery& query, const std::string& data) {
  return operate(deadlines_.change, [&](SecretSession& session) {
    const Found found = find(session, query);
    const KeychainStatus status = statusOf(found);
    if (status == keychainSuccess) {
      session.setSecret(found.items.front().get(), data);
    }
    return status;
  });
}

KeychainStatus SecretServiceKeychain::add(const KeychainQuery& query, const std::string& data) {
  return operate(deadlines_.change, [&](SecretSession& session) {
    const KeychainStatus status = statusOf(find(session, query));
    if (status != keychainItemNotFound) {
      return status == keychainSuccess ? keychainDuplicateItem : status;
    }
    const auto collection = session.defaultCollection();
    if (!collection) {
      return keychainNoSuchKeychain;
    }
    session.create(collection.get(), query, data);
    return keychainSuccess;
  });
}

KeychainStatus SecretServiceKeychain::remove(const KeychainQuery& query) {
  return operate(deadlines_.change, [&](SecretSession& session) {
    const Found found = find(session, query);
    const KeychainStatus status = statusOf(found);
    if (status == keychainSuccess) {
      for (const auto& item : found.items) {
        session.remove(item.get());
      }
    }
    return status;
  });
}

void SecretServiceKeychain::watch(std::function<void()> readable) {
  watch_ = readable ? std::make_unique<SecretServiceWatch>(std::move(readable)) : nullptr;
}

}  // namespace glintboard
