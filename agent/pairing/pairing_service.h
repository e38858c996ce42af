// SPDX-License-Identifier: MIT
// The one owner of this computer's pairing.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "agent/pairing/paired_device_storing.h"
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

// What the user is shown of the pairing.
struct PairingState {
  std::string currentPIN;
  std::string currentPairingCode;
  std::vector<PairedDevice> pairedDevices;
  bool isLockedOut = false;
  bool replacementPairingEnabled = false;
};

// Judges pairing requests, issues device tokens and says whose a token is. At most one phone is
// trusted: a successful pairing replaces the list. Changes happen one after another, each with its
// store call; looking a token up never waits for them. Everything waits at most two seconds for
// the stored list at the start; one that comes later is taken as long as nothing was changed.
//
// An actor of the service loop.
class PairingService : public Actor {
 public:
  // Starts loading the stored list; while the store is out of reach, loads it again whenever the
  // store tells that it may be readable. Throws SecureRandomError.
  PairingService(asio::any_io_executor executor, asio::any_io_executor storeLane,
                 std::unique_ptr<PairedDeviceStoring> store);

  // Throws PairingServiceError::persistenceFailed when the new pairing cannot be saved; it is in
  // effect all the same until the agent ends.
  Awaitable<PairingResponse> handlePairRequest(PairRequestPayload request, Uuid requestId);
  // The paired device of that token, or none.
  Awaitable<std::optional<PairedDevice>> device(std::string token);
  // Whether the token is a paired device's, at once; none as long as the stored list is waited for.
  // To be called in the actor's turn.
  std::optional<bool> isPaired(std::string_view token);
  // Forgets the paired phone. Throws the store's error; the phone is forgotten until the agent
  // ends all the same.
  Awaitable<> unpairAll();
  // From now on another phone may pair and replace the paired one, with fresh secrets.
  Awaitable<> beginReplacementPairing();
  Awaitable<> endReplacementPairing();
  Awaitable<PairingState> state();
  // Calls `told` in the actor's turn at every change of the state, the arrival of the stored list
  // included. Any thread.
  void whenChanged(std::function<void()> told) { observers_->add(std::move(told)); }

 private:
  class Loading;

  Awaitable<PairingResponse> doHandlePairRequest(PairRequestPayload request, Uuid requestId);
  Awaitable<std::optional<PairedDevice>> doDevice(std::string token);
  Awaitable<> doUnpairAll();
  Awaitable<> doBeginReplacementPairing();
  Awaitable<> doEndReplacementPairing();
  Awaitable<PairingState> doState();

  Awaitable<> loaded();
  void takeLoaded();
  const PairedDevice* find(std::string_view token) const;
  std::optional<PairFailPayload> refusal(const PairRequestPayload& request);
  std::optional<PairFailPayload> secretRefusal(const PairRequestPayload& request);
  void renewSecrets();

  // Shared with the store lane, where a call may still hang when this is destroyed.
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
  // None once a phone was paired or forgotten: the stored list is then outdated.
  std::shared_ptr<Loading> loading_;
};

}  // namespace glintboard
