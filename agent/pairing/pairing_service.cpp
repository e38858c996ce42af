// SPDX-License-Identifier: MIT
#include "agent/pairing/pairing_service.h"

#include <algorithm>

#include "platform/log.h"
#include "platform/run_on.h"
#include "protocol/message_factory.h"
#include "protocol/pairing_secrets.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

constexpr auto changeDeadline = 5s;

PairFailPayload failure(PairingFailureReason reason, std::string message) {
  return {reason, std::move(message)};
}

PairFailPayload lockoutFailure() {
  return failure(PairingFailureReason::lockout, "Too many failed PIN attempts");
}

}  // namespace

PairingService::PairingService(asio::any_io_executor executor, asio::any_io_executor storeLane,
                               std::unique_ptr<PairedDeviceStoring> store)
    : Actor(std::move(executor)),
      store_(std::move(store)),
      storeLane_(std::move(storeLane)),
      changes_(this->executor()) {
  renewSecrets();
  loading_ = PairedListLoading::start(this->executor(), storeLane_, store_, observers_);
}

Awaitable<PairingResponse> PairingService::handlePairRequest(PairRequestPayload request,
                                                             Uuid requestId) {
  return enter(doHandlePairRequest(std::move(request), requestId));
}

Awaitable<std::optional<PairedDevice>> PairingService::device(std::string token) {
  return enter(doDevice(std::move(token)));
}

Awaitable<> PairingService::unpairAll() {
  return enter(doUnpairAll());
}

Awaitable<> PairingService::beginReplacementPairing() {
  return enter(doBeginReplacementPairing());
}

Awaitable<> PairingService::endReplacementPairing() {
  return enter(doEndReplacementPairing());
}

Awaitable<PairingState> PairingService::state() {
  return enter(doState());
}

Awaitable<> PairingService::loaded() {
  const auto loading = loading_;
  if (!loading) {
    co_return;
  }
  co_await loading->wait();
  takeLoaded();
}

void PairingService::takeLoaded() {
  auto devices = loading_ ? loading_->take() : std::nullopt;
  if (devices) {
    pairedDevices_ = std::move(*devices);
  }
}

const PairedDevice* PairingService::find(std::string_view token) const {
  const auto device = std::ranges::find(pairedDevices_, token, [](const PairedDevice& paired) {
    return std::string_view(paired.token.value);
  });
  return device == pairedDevices_.end() ? nullptr : &*device;
}

std::optional<bool> PairingService::isPaired(std::string_view token) {
  if (loading_ && loading_->isExpected()) {
    return std::nullopt;
  }
  takeLoaded();
  return find(token) != nullptr;
}

Awaitable<PairingResponse> PairingService::doHandlePairRequest(PairRequestPayload request,
                                                               Uuid requestId) {
  co_await loaded();
  const auto guard = co_await changes_.acquire();
  const bool wasLockedOut = engine_.isLockedOut();
  auto refused = refusal(request);
  if (!refused) {
    refused = secretRefusal(request);
  }
  if (engine_.isLockedOut() != wasLockedOut) {
    observers_->notify();
  }
  if (refused) {
    log::info("pairing by ", rawValue(request.method), " refused: ", rawValue(refused->reason));
    co_return MessageFactory::pairFail(refused->reason, std::move(refused->message), requestId);
  }
  const std::string token = uuidText(randomUuid());
  pairedDevices_ = {PairedDevice{request.deviceId, std::move(request.deviceName),
                                 DeviceToken{token}, ReferenceDate::now()}};
  loading_.reset();
  observers_->notify();
  bool saved = false;
  try {
    auto saving = runBefore(changeDeadline, storeLane_, [store = store_, list = pairedDevices_] {
      store->save(list);
      return true;
    });
    saved = (co_await std::move(saving)).has_value();
  } catch (const std::exception& error) {
    log::warning("saving the pairing: ", error.what());
  }
  if (!saved) {
    throw PairingServiceError(PairingServiceError::Code::persistenceFailed);
  }
  replacementPairingEnabled_ = false;
  renewSecrets();
  engine_.resetAttempts();
  observers_->notify();
  log::info("paired by ", rawValue(request.method), " with \"", pairedDevices_.front().name, "\"");
  co_return MessageFactory::pairOK(token, requestId);
}

std::optional<PairFailPayload> PairingService::refusal(const PairRequestPayload& request) {
  if (request.method == PairingMethod::pin && engine_.isLockedOut()) {
    return lockoutFailure();
  }
  const bool isKnown = std::ranges::find(pairedDevices_, request.deviceId, &PairedDevice::id) !=
                       pairedDevices_.end();
  if (!isKnown && !pairedDevices_.empty() && !replacementPairingEnabled_) {
    return failure(
        PairingFailureReason::alreadyPaired,
        "Mac is already paired. Show the pairing code again or Unpair to add a new device.");
  }
  return std::nullopt;
}

std::optional<PairFailPayload> PairingService::secretRefusal(const PairRequestPayload& request) {
  if (request.method == PairingMethod::qr) {
    return PairingSecret::matches(request.secret, currentPairingCode_)
               ? std::nullopt
               : std::optional(failure(PairingFailureReason::invalidCode, "Invalid pairing code"));
  }
  const auto result = engine_.check(request.secret, currentPIN_);
  if (std::holds_alternative<PINCheckResult::Lockout>(result)) {
    return lockoutFailure();
  }
  return std::holds_alternative<PINCheckResult::Accepted>(result)
             ? std::nullopt
             : std::optional(failure(PairingFailureReason::invalidPIN, "Invalid PIN"));
}

Awaitable<std::optional<PairedDevice>> PairingService::doDevice(std::string token) {
  co_await loaded();
  const auto* device = find(token);
  co_return device != nullptr ? std::optional(*device) : std::nullopt;
}

Awaitable<> PairingService::doUnpairAll() {
  co_await loaded();
  const auto guard = co_await changes_.acquire();
  pairedDevices_.clear();
  replacementPairingEnabled_ = false;
  loading_.reset();
  observers_->notify();
  log::info("unpaired");
  auto deleting = runBefore(changeDeadline, storeLane_, [store = store_] {
    store->deleteAll();
    return true;
  });
  const auto done = co_await std::move(deleting);
  if (!done) {
    throw std::runtime_error("Removing the stored pairing took too long.");
  }
  renewSecrets();
  engine_.resetAttempts();
  observers_->notify();
}

Awaitable<> PairingService::doBeginReplacementPairing() {
  co_await loaded();
  const auto guard = co_await changes_.acquire();
  renewSecrets();
  engine_.resetAttempts();
  replacementPairingEnabled_ = true;
  observers_->notify();
  log::info("another phone may pair");
}

Awaitable<> PairingService::doEndReplacementPairing() {
  co_await loaded();
  const auto guard = co_await changes_.acquire();
  replacementPairingEnabled_ = false;
  observers_->notify();
}

Awaitable<PairingState> PairingService::doState() {
  co_await loaded();
  co_return PairingState{currentPIN_, currentPairingCode_, pairedDevices_, engine_.isLockedOut(),
                         replacementPairingEnabled_};
}

void PairingService::renewSecrets() {
  currentPIN_ = PINGenerator::generate();
  currentPairingCode_ = PairingCodeGenerator::generate();
}

}  // namespace glintboard
