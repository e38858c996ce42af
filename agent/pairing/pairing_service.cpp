// SPDX-License-Identifier: MIT
#include "agent/pairing/pairing_service.h"

#include <algorithm>

#include "platform/log.h"
#include "platform/run_on.h"
#include "platform/spawn.h"
#include "protocol/message_factory.h"
#include "protocol/pairing_secrets.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

constexpr auto loadDeadline = 2s;
constexpr auto changeDeadline = 5s;

PairFailPayload failure(PairingFailureReason reason, std::string message) {
  return {reason, std::move(message)};
}

PairFailPayload lockoutFailure() {
  return failure(PairingFailureReason::lockout, "Too many failed PIN attempts");
}

// Wakes one coroutine from any thread.
class Wakeup : public std::enable_shared_from_this<Wakeup> {
 public:
  explicit Wakeup(const asio::any_io_executor& executor) : timer_(executor) {
    timer_.expires_at(asio::steady_timer::time_point::max());
  }

  // Any thread.
  void notify() {
    asio::post(timer_.get_executor(), [self = shared_from_this()] {
      self->isNotified_ = true;
      self->timer_.cancel();
    });
  }

  // Resumes once there was a notification since the last call. On the timer's executor.
  static Awaitable<> next(std::shared_ptr<Wakeup> wakeup) {
    while (!std::exchange(wakeup->isNotified_, false)) {
      co_await wakeup->timer_.async_wait(asio::as_tuple(asio::use_awaitable));
    }
  }

 private:
  asio::steady_timer timer_;
  bool isNotified_ = false;
};

}  // namespace

// The loading of the stored list. It goes on when the service has stopped waiting for it, and again
// when a store out of reach tells of a change; it ends when the service drops it.
class PairingService::Loading {
 public:
  Loading(const asio::any_io_executor& executor, std::shared_ptr<const Observers> observers)
      : ended_(executor),
        observers_(std::move(observers)),
        changed_(std::make_shared<Wakeup>(executor)) {
    ended_.expires_after(loadDeadline);
  }
  Loading(const Loading&) = delete;
  Loading& operator=(const Loading&) = delete;
  ~Loading() { changed_->notify(); }

  static void start(const std::shared_ptr<Loading>& loading,
                    std::shared_ptr<PairedDeviceStoring> store, asio::any_io_executor lane) {
    spawn(loading->ended_.get_executor(),
          run(loading, loading->changed_, std::move(store), std::move(lane)),
          "loading the pairing");
  }

  bool isExpected() const { return ended_.expiry() > std::chrono::steady_clock::now(); }
  // Resumes when the list is there, or is not expected any more.
  Awaitable<> wait() {
    if (isExpected()) {
      co_await ended_.async_wait(asio::as_tuple(asio::use_awaitable));
    }
  }

  // The list, once.
  std::optional<std::vector<PairedDevice>> take() { return std::exchange(devices_, std::nullopt); }

 private:
  static Awaitable<> run(std::weak_ptr<Loading> wanted, std::shared_ptr<Wakeup> changed,
                         std::shared_ptr<PairedDeviceStoring> store, asio::any_io_executor lane) {
    bool watches = false;
    while (!wanted.expired()) {
      auto load = runOn(lane, [store] {
        auto devices = store->load();
        return std::pair(std::move(devices), store->isOutOfReach());
      });
      auto [devices, isOutOfReach] = co_await std::move(load);
      if (const auto loading = wanted.lock()) {
        loading->devices_ = std::move(devices);
        loading->ended_.expires_at(asio::steady_timer::time_point::min());
        loading->observers_->notify();
      }
      if (!isOutOfReach) {
        break;
      }
      if (!std::exchange(watches, true)) {
        const auto told = [weak = std::weak_ptr(changed)] {
          if (const auto waiting = weak.lock()) {
            waiting->notify();
          }
        };
        co_await watch(store, lane, told);
      }
      co_await Wakeup::next(changed);
    }
    if (watches) {
      co_await watch(store, lane, {});
    }
  }

  static Awaitable<> watch(std::shared_ptr<PairedDeviceStoring> store, asio::any_io_executor lane,
                           std::function<void()> told) {
    auto watching = runOn(lane, [store, told = std::move(told)] { store->watch(told); });
    co_await std::move(watching);
  }

  asio::steady_timer ended_;
  const std::shared_ptr<const Observers> observers_;
  std::optional<std::vector<PairedDevice>> devices_;
  const std::shared_ptr<Wakeup> changed_;
};

PairingService::PairingService(asio::any_io_executor executor, asio::any_io_executor storeLane,
                               std::unique_ptr<PairedDeviceStoring> store)
    : Actor(std::move(executor)),
      store_(std::move(store)),
      storeLane_(std::move(storeLane)),
      changes_(this->executor()),
      loading_(std::make_shared<Loading>(this->executor(), observers_)) {
  renewSecrets();
  Loading::start(loading_, store_, storeLane_);
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

// A list that comes late still counts, unless a phone was paired or forgotten meanwhile.
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

// Why the request is refused whatever its secret, or none.
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
