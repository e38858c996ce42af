// SPDX-License-Identifier: MIT
#include "agent/pairing/pairing_service.h"

#include <gtest/gtest.h>

#include "agent/pairing/keychain_paired_device_store.h"
#include "platform/executors.h"
#include "protocol/message_factory.h"
#include "tests/support/await.h"
#include "tests/support/eventually.h"
#include "tests/support/fakes.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

class PairingServiceTest : public testing::Test {
 protected:
  const Uuid phone = randomUuid();
  const Uuid otherPhone = randomUuid();
  test::FakeKeychain keychain;
  Executors executors;
  std::optional<PairingService> service;

  void SetUp() override {
    restart();
    state();  // waits until the list is loaded
  }

  void restart() {
    service.emplace(executors.service(), executors.keychainLane(),
                    std::make_unique<KeychainPairedDeviceStore>(keychain));
  }

  void store(const std::string& token) {
    KeychainPairedDeviceStore(keychain).save({{phone, "Phone", {token}, {}}});
  }

  template <class T>
  T run(Awaitable<T> operation) {
    return test::await(executors.service(), std::move(operation));
  }

  PairingState state() { return run(service->state()); }

  // The token, or the reason and message of the refusal.
  std::string pair(PairingMethod method, const std::string& secret, Uuid device) {
    const Uuid id = randomUuid();
    const auto response = run(service->handlePairRequest({method, secret, "Phone", device}, id));
    if (const auto* ok = std::get_if<WireMessage<PairOKPayload>>(&response)) {
      EXPECT_EQ(*ok, MessageFactory::pairOK(ok->payload.token, id));
      return ok->payload.token;
    }
    const auto& fail = std::get<WireMessage<PairFailPayload>>(response);
    EXPECT_EQ(fail.id, id);
    return std::string(rawValue(fail.payload.reason)) + ": " + fail.payload.message.value_or("");
  }
  std::string pairByCode(Uuid device) {
    return pair(PairingMethod::qr, state().currentPairingCode, device);
  }
  std::string pairByPIN(Uuid device) {
    return pair(PairingMethod::pin, state().currentPIN, device);
  }
  std::string wrongPIN() { return pair(PairingMethod::pin, "nonsense", phone); }
  bool knows(const std::string& token) { return run(service->device(token)).has_value(); }

  const std::string alreadyPaired =
      "already_paired: Mac is already paired. Show the pairing code again or Unpair to add a new "
      "device.";
  const std::string lockedOut = "lockout: Too many failed PIN attempts";
};

TEST_F(PairingServiceTest, StoresThePairingAndRenewsItsSecrets) {
  const auto before = state();
  const std::string token = pairByCode(phone);
  EXPECT_EQ(token.size(), 36u);
  EXPECT_TRUE(knows(token));
  EXPECT_FALSE(knows("x" + token));
  const auto after = state();
  ASSERT_EQ(after.pairedDevices.size(), 1u);
  EXPECT_EQ(after.pairedDevices[0].id, phone);
  EXPECT_NE(after.currentPIN + after.currentPairingCode,
            before.currentPIN + before.currentPairingCode);
  EXPECT_EQ(pair(PairingMethod::qr, before.currentPairingCode, phone),
            "invalid_code: Invalid pairing code");
  restart();
  EXPECT_TRUE(knows(token));
}

TEST_F(PairingServiceTest, OnlyThePairedPhoneMayPairAgain) {
  const std::string first = pairByPIN(phone);
  EXPECT_EQ(pairByPIN(otherPhone), alreadyPaired);
  EXPECT_EQ(pair(PairingMethod::pin, "nonsense", otherPhone), alreadyPaired);
  const std::string second = pairByPIN(phone);
  EXPECT_TRUE(knows(second));
  EXPECT_FALSE(knows(first));

  run(service->beginReplacementPairing());
  run(service->endReplacementPairing());
  EXPECT_EQ(pairByCode(otherPhone), alreadyPaired);
  run(service->beginReplacementPairing());
  const std::string third = pairByCode(otherPhone);
  EXPECT_TRUE(knows(third));
  EXPECT_FALSE(knows(second));
  EXPECT_FALSE(state().replacementPairingEnabled);
  EXPECT_EQ(pairByCode(phone), alreadyPaired);
}

TEST_F(PairingServiceTest, FiveWrongPINsLockUntilTheCodeIsUsedOrRenewed) {
  const auto fail = [this] {
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(wrongPIN(), "invalid_pin: Invalid PIN");
    }
    EXPECT_EQ(wrongPIN(), lockedOut);
    EXPECT_EQ(pairByPIN(phone), lockedOut);
    EXPECT_TRUE(state().isLockedOut);
  };
  EXPECT_EQ(wrongPIN(), "invalid_pin: Invalid PIN");
  EXPECT_EQ(pairByPIN(phone).size(), 36u) << "and resets the attempts";
  fail();
  EXPECT_EQ(pairByCode(phone).size(), 36u);
  EXPECT_FALSE(state().isLockedOut);
  fail();
  const auto before = state();
  run(service->beginReplacementPairing());
  EXPECT_NE(state().currentPairingCode, before.currentPairingCode);
  EXPECT_EQ(pairByPIN(phone).size(), 36u);
  fail();
  run(service->unpairAll());
  EXPECT_EQ(pairByPIN(otherPhone).size(), 36u);
}

TEST_F(PairingServiceTest, StoreFailureKeepsTheStateInMemory) {
  const std::string kept = pairByCode(phone);
  keychain.failure = -1;
  const auto before = state();
  EXPECT_THROW(pairByCode(phone), PairingServiceError);
  const auto after = state();
  EXPECT_EQ(after.currentPairingCode, before.currentPairingCode);
  EXPECT_FALSE(knows(kept));
  EXPECT_TRUE(knows(after.pairedDevices.at(0).token.value));
  EXPECT_THROW(run(service->unpairAll()), std::runtime_error);
  EXPECT_TRUE(state().pairedDevices.empty());
  keychain.failure = keychainSuccess;
  restart();
  EXPECT_TRUE(knows(kept)) << "the store still has the previous pairing";
}

TEST_F(PairingServiceTest, WaitsTwoSecondsForAHungStore) {
  store("stored");
  const auto restartWhileItHangs = [&] {
    keychain.hangs = true;
    restart();
    const auto began = std::chrono::steady_clock::now();
    EXPECT_FALSE(knows("stored"));
    EXPECT_LT(std::chrono::steady_clock::now() - began, test::slowdown * 3s);
  };
  restartWhileItHangs();
  keychain.recover();
  EXPECT_TRUE(test::eventually([&] { return knows("stored"); })) << "a late list counts";

  restartWhileItHangs();
  auto unpaired = asio::co_spawn(executors.service(), service->unpairAll(), asio::use_future);
  state();  // returns after the unpairing began
  keychain.recover();
  unpaired.get();
  EXPECT_FALSE(knows("stored")) << "not if the phone was unpaired before it arrived";
}

TEST_F(PairingServiceTest, AStoreOutOfReachIsAskedWhenItTellsUntilItAnswersOrThePairingChanges) {
  store("stored");
  const auto restartOutOfReach = [&] {
    keychain.readFailure = keychainInteractionNotAllowed;
    restart();
    EXPECT_FALSE(knows("stored"));
    EXPECT_TRUE(test::eventually([&] { return keychain.isWatched(); }));
    keychain.reads = 0;
  };
  restartOutOfReach();
  keychain.tell();
  EXPECT_TRUE(test::eventually([&] { return keychain.reads == 1; }));
  EXPECT_FALSE(knows("stored"));
  keychain.readFailure = keychainSuccess;
  keychain.tell();
  EXPECT_TRUE(test::eventually([&] { return knows("stored"); }));
  EXPECT_TRUE(test::eventually([&] { return !keychain.isWatched(); }));
  EXPECT_EQ(keychain.reads, 2) << "it was asked without having told";

  restartOutOfReach();
  const std::string token = pairByCode(otherPhone);
  EXPECT_TRUE(test::eventually([&] { return !keychain.isWatched(); })) << "nobody wants the list";
  EXPECT_EQ(keychain.reads, 0);
  EXPECT_TRUE(knows(token));
}

}  // namespace
}  // namespace glintboard
