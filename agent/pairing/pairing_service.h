// SPDX-License-Identifier: MIT
// The pairing of this computer.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "agent/pairing/paired_device_storing.h"
#include "agent/pairing/paired_list_loading.h"
#include "platform/actor.h"
#include "platform/async_lock.h"
#include "platform/observers.h"
#include "protocol/pairing_engine.h"
#include "protocol/payloads.h"
#include "protocol/wire_message.h"

namespace glintboard {

// The answer to a pairing request: a complete "pair.ok" or "pair.fail".
using PairingResponse = std::variant<WireMessage<PairOKPayload>, WireMessage<PairFailPayload>>;

class PairingServiceError : public std::runtime_error {
 public:
  enum class Code { persistenceFailed };
  explicit PairingServiceError(Code given)
      : std::runtime_error("The new pairing could not be saved."), code(given) {}
  Code code;
};

// The state that the user sees.
struct PairingState {
  std::string currentPIN;
  std::string currentPairingCode;
  std::vector<PairedDevice> pairedDevices;
  bool isLockedOut = false;
  bool replacementPairingEnabled = false;
};

// Checks pairing requests, issues device tokens and looks tokens up. At most one phone is paired: a
// successful pairing replaces the list. Changes are serialised, each with its store call; looking a
// token up does not wait for them. At the start every operation waits up to two seconds for the
// stored list. A list that is loaded later is used unless the pairing was changed before.
//
// An actor of the service loop. The operations may be awaited on any executor.
class PairingService : public Actor {
 public:
  // Starts loading the stored list. A store out of reach is loaded again when it reports a change.
  // The store is called on `storeLane` only, where it may block. Throws SecureRandomError.
  PairingService(asio::any_io_executor executor, asio::any_io_executor storeLane,
                 std::unique_ptr<PairedDeviceStoring> store);

  // The complete reply to the request. Throws PairingServiceError::persistenceFailed when the new
  // pairing cannot be saved; it is valid until the agent ends.
  Awaitable<PairingResponse> handlePairRequest(PairRequestPayload request, Uuid requestId);
  // The paired device of that token, or none.
  Awaitable<std::optional<PairedDevice>> device(std::string token);
  // Whether the token names a paired device; none while the stored list is waited for. On the
  // actor's executor only.
  std::optional<bool> isPaired(std::string_view token);
  // Removes the pairing. Throws the store's error, or std::runtime_error after five seconds; the
  // phone is unpaired until the agent ends in either case.
  Awaitable<> unpairAll();
  // Renews the secrets and lets another phone pair and replace the paired one.
  Awaitable<> beginReplacementPairing();
  // Refuses other phones again.
  Awaitable<> endReplacementPairing();
  Awaitable<PairingState> state();
  // Calls `observer` on the actor's executor after each change of the state, including the load of
  // the stored list. Any thread.
  void whenChanged(std::function<void()> observer) { observers_->add(std::move(observer)); }

 private:
  Awaitable<PairingResponse> doHandlePairRequest(PairRequestPayload request, Uuid requestId);
  Awaitable<std::optional<PairedDevice>> doDevice(std::string token);
  Awaitable<> doUnpairAll();
  Awaitable<> doBeginReplacementPairing();
  Awaitable<> doEndReplacementPairing();
  Awaitable<PairingState> doState();

  // Waits for the stored list and takes it over.
  Awaitable<> loaded();
  void takeLoaded();
  const PairedDevice* find(std::string_view token) const;
  // Why the request is refused regardless of its secret; none when it is not.
  std::optional<PairFailPayload> refusal(const PairRequestPayload& request);
  // Why the secret is refused; none when it is right. Counts wrong PINs.
  std::optional<PairFailPayload> secretRefusal(const PairRequestPayload& request);
  void renewSecrets();

  // Shared with the calls on the store lane, which may outlive this.
  std::shared_ptr<PairedDeviceStoring> store_;
  // Shared with the loading, which may outlive this.
  const std::shared_ptr<Observers> observers_ = std::make_shared<Observers>();
  asio::any_io_executor storeLane_;
  AsyncLock changes_;
  PairingEngine engine_;
  std::string currentPIN_;
  std::string currentPairingCode_;
  std::vector<PairedDevice> pairedDevices_;
  bool replacementPairingEnabled_ = false;
  // Null after a change of the pairing, which makes the stored list outdated.
  std::shared_ptr<PairedListLoading> loading_;
};

}  // namespace glintboard
