#include "platform/linux/two_place_keychain.h"

#include <gtest/gtest.h>

#include "platform/atomic_file.h"
#include "platform/linux/file_keychain.h"
#include "platform/linux/secret_service_keychain.h"
#include "tests/support/keyring.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

const KeychainQuery item{"org.example.service", "paired-devices"};

// Later items are the greater texts here.
class TwoPlaceKeychainTest : public testing::Test {
 protected:
  test::KeyringSession session;
  SecretServiceKeychain secretService{{400ms, 600ms}};
  FileKeychain file{session.folder() / "agent"};
  TwoPlaceKeychain keychain{secretService, file, {std::greater<>(), "removed"}};

  static std::string read(Keychain& from) {
    std::string data;
    const KeychainStatus status = from.copyMatching(item, data);
    return status == keychainSuccess        ? data
           : status == keychainItemNotFound ? "none"
                                            : std::to_string(status);
  }
  // As the pairing is saved.
  KeychainStatus save(const std::string& data) {
    const KeychainStatus status = keychain.update(item, data);
    return status == keychainItemNotFound ? keychain.add(item, data) : status;
  }
  void expectOnlyInSecretService(const std::string& data) {
    EXPECT_EQ(read(keychain), data);
    EXPECT_EQ(read(secretService), data);
    EXPECT_EQ(read(file), "none");
  }
};

TEST_F(TwoPlaceKeychainTest, WhatWasKeptWithoutTheServiceMovesToItWhenItAppears) {
  EXPECT_EQ(read(keychain), std::to_string(keychainNotAvailable));
  EXPECT_EQ(save("0"), keychainSuccess);
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(keychain.remove(item), keychainItemNotFound);
  EXPECT_TRUE(std::filesystem::is_empty(session.folder() / "agent"));

  EXPECT_EQ(keychain.update(item, "1"), keychainSuccess);
  EXPECT_EQ(save("2"), keychainSuccess);
  EXPECT_EQ(read(keychain), "2");
  EXPECT_EQ(read(file), "2");
  session.startUnlocked();
  expectOnlyInSecretService("2");
  EXPECT_EQ(save("3"), keychainSuccess);
  expectOnlyInSecretService("3");
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  expectOnlyInSecretService("none");
  EXPECT_TRUE(std::filesystem::is_empty(session.folder() / "agent"));
  EXPECT_EQ(keychain.update(item, "4"), keychainItemNotFound);
  EXPECT_EQ(keychain.remove(item), keychainItemNotFound);
}

TEST_F(TwoPlaceKeychainTest, OfTwoItemsTheLaterOneWins) {
  session.startUnlocked();
  ASSERT_EQ(secretService.add(item, "1"), keychainSuccess);
  ASSERT_EQ(file.add(item, "2"), keychainSuccess);
  expectOnlyInSecretService("2");
  ASSERT_EQ(file.add(item, "1"), keychainSuccess);
  expectOnlyInSecretService("2");
  ASSERT_EQ(file.add(item, "1"), keychainSuccess);
  EXPECT_EQ(save("3"), keychainSuccess);
  expectOnlyInSecretService("3");
}

TEST_F(TwoPlaceKeychainTest, AnItemSurvivesAServiceThatIsLockedOrHangs) {
  session.startUnlocked();
  ASSERT_EQ(save("1"), keychainSuccess);
  session.lock();
  EXPECT_EQ(read(keychain), std::to_string(keychainInteractionNotAllowed));
  EXPECT_EQ(save("2"), keychainSuccess);
  EXPECT_EQ(read(keychain), "2");
  session.restartUnlocked();
  EXPECT_EQ(read(secretService), "1");
  expectOnlyInSecretService("2");

  session.signal(SIGSTOP);
  EXPECT_EQ(read(keychain), std::to_string(keychainTimedOut));
  EXPECT_EQ(save("3"), keychainSuccess);
  EXPECT_EQ(read(keychain), "3");
  session.signal(SIGCONT);
  expectOnlyInSecretService("3");
}

TEST_F(TwoPlaceKeychainTest, TheFileIsKeptUntilTheServiceHasWhatItHolds) {
  session.startLocked();  // nothing can be added: there is no collection
  ASSERT_EQ(file.add(item, "1"), keychainSuccess);
  EXPECT_EQ(read(keychain), "1");
  EXPECT_EQ(read(file), "1");
  EXPECT_EQ(save("2"), keychainSuccess);
  EXPECT_EQ(read(file), "2");
}

TEST_F(TwoPlaceKeychainTest, WhatWasRemovedWhileTheServiceWasAwayDoesNotComeBack) {
  session.startUnlocked();
  ASSERT_EQ(save("1"), keychainSuccess);
  session.kill();
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(read(keychain), "none");
  session.startUnlocked();
  EXPECT_EQ(read(secretService), "1");
  expectOnlyInSecretService("none");

  // A pairing after such a removal counts, wherever it is kept.
  ASSERT_EQ(save("2"), keychainSuccess);
  session.lock();
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(save("3"), keychainSuccess);
  EXPECT_EQ(read(keychain), "3");
  session.restartUnlocked();
  expectOnlyInSecretService("3");
  session.lock();
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  session.restartUnlocked();
  EXPECT_EQ(save("4"), keychainSuccess);
  expectOnlyInSecretService("4");
}

}  // namespace
}  // namespace glintboard
