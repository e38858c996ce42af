// SPDX-License-Identifier: MIT
#include "platform/linux/keychain/two_place_keychain.h"

#include <utility>

#include "platform/log.h"

namespace glintboard {
namespace {

// Whether the keychain was in a state to say so.
bool isAnswer(KeychainStatus status) {
  return status == keychainSuccess || status == keychainItemNotFound ||
         status == keychainDuplicateItem;
}

// The fallback's note that the preferred keychain holds the item.
KeychainQuery noteOf(const KeychainQuery& query) {
  return {query.service, query.account + ".moved"};
}

KeychainStatus put(Keychain& keychain, const KeychainQuery& query, const std::string& data) {
  const KeychainStatus status = keychain.update(query, data);
  return status == keychainItemNotFound ? keychain.add(query, data) : status;
}

std::string_view reasonOf(KeychainStatus status) {
  switch (status) {
    case keychainNotAvailable:
      return "there is none in this session";
    case keychainNoSuchKeychain:
      return "it has no default collection";
    case keychainInteractionNotAllowed:
      return "it is locked";
    case keychainTimedOut:
      return "it does not answer in time";
    default:
      return "it fails";
  }
}

}  // namespace

KeychainStatus TwoPlaceKeychain::copyMatching(const KeychainQuery& query, std::string& data) {
  std::string kept;
  const bool isKept = fallback_.copyMatching(query, kept) == keychainSuccess;
  const bool isRemoved = isKept && kept == rule_.removed;
  std::string preferred;
  const KeychainStatus status = preferred_.copyMatching(query, preferred);
  report(status);
  if (status == keychainSuccess) {
    fallback_.add(noteOf(query), rule_.removed);
  }
  if (!isKept || (status == keychainSuccess && !isRemoved && !rule_.isLater(kept, preferred))) {
    if (isKept) {
      fallback_.remove(query);
    }
    if (status == keychainSuccess) {
      data = std::move(preferred);
    }
    return status;
  }
  if (isRemoved) {
    if (isAnswer(status)) {
      remove(query);
    }
    return keychainItemNotFound;
  }
  if (isAnswer(status) && put(preferred_, query, kept) == keychainSuccess) {
    fallback_.add(noteOf(query), rule_.removed);
    fallback_.remove(query);
  }
  data = std::move(kept);
  return keychainSuccess;
}

KeychainStatus TwoPlaceKeychain::update(const KeychainQuery& query, const std::string& data) {
  return write(query, data, &Keychain::update);
}

KeychainStatus TwoPlaceKeychain::add(const KeychainQuery& query, const std::string& data) {
  return write(query, data, &Keychain::add);
}

KeychainStatus TwoPlaceKeychain::write(const KeychainQuery& query, const std::string& data,
                                       Write operation) {
  std::string kept;
  const bool isKept = fallback_.copyMatching(query, kept) == keychainSuccess;
  if (isKept) {
    // Replaced before anything else, so that no crash in between brings it back.
    const KeychainStatus status = fallback_.update(query, data);
    if (status != keychainSuccess) {
      return status;
    }
  }
  const KeychainStatus status =
      isKept ? put(preferred_, query, data) : (preferred_.*operation)(query, data);
  report(status);
  if (isAnswer(status)) {
    if (status == keychainSuccess) {
      fallback_.add(noteOf(query), rule_.removed);
    }
    if (isKept) {
      fallback_.remove(query);
    }
    return status;
  }
  return isKept ? keychainSuccess : fallback_.add(query, data);
}

KeychainStatus TwoPlaceKeychain::remove(const KeychainQuery& query) {
  const KeychainStatus status = preferred_.remove(query);
  if (isAnswer(status)) {
    fallback_.remove(noteOf(query));
    const KeychainStatus keptStatus = fallback_.remove(query);
    return keptStatus == keychainItemNotFound ? status : keptStatus;
  }
  std::string note;
  const bool mayBeHeld = status != keychainNotAvailable ||
                         fallback_.copyMatching(noteOf(query), note) == keychainSuccess;
  return mayBeHeld ? put(fallback_, query, rule_.removed) : fallback_.remove(query);
}

void TwoPlaceKeychain::report(KeychainStatus preferredStatus) {
  const bool answers = isAnswer(preferredStatus);
  if (std::exchange(reportedAnswer_, answers) == answers) {
    return;
  }
  if (answers) {
    log::info("keychain: the desktop's own keeps the pairing");
  } else {
    log::info("keychain: a file keeps the pairing instead of the desktop's own: ",
              reasonOf(preferredStatus));
  }
}

}  // namespace glintboard
