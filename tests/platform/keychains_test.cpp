// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <functional>
#include <future>
#include <semaphore>

#include "platform/atomic_file.h"
#include "platform/linux/keychain/file_keychain.h"
#include "platform/linux/keychain/secret_service_keychain.h"
#include "platform/linux/keychain/two_place_keychain.h"
#include "tests/support/keyring.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

const KeychainQuery item{"org.example.service", "paired-devices"};

// The contract of every keychain. Leaves `last` in it.
void expectKeepsAnItem(Keychain& keychain, const std::string& last) {
  std::string data;
  EXPECT_EQ(keychain.copyMatching(item, data), keychainItemNotFound);
  EXPECT_EQ(keychain.update(item, "[]"), keychainItemNotFound);
  EXPECT_EQ(keychain.remove(item), keychainItemNotFound);
  EXPECT_EQ(keychain.add(item, "[2]"), keychainSuccess);
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(keychain.copyMatching(item, data), keychainItemNotFound);
  EXPECT_EQ(keychain.add(item, "[3]"), keychainSuccess);
  EXPECT_EQ(keychain.add(item, "[4]"), keychainDuplicateItem);
  EXPECT_EQ(keychain.update(item, last), keychainSuccess);
  EXPECT_EQ(keychain.copyMatching(item, data), keychainSuccess);
  EXPECT_EQ(data, last);
}

TEST(FileKeychain, KeepsAnItemInAPrivateFile) {
  const test::TemporaryFolder folder;
  const auto file = folder / "data/agent/paired-devices.json";
  FileKeychain keychain(file.parent_path());
  expectKeepsAnItem(keychain, "[1]");
  for (const char* next : {"[2]", "[3]"}) {
    EXPECT_EQ(std::filesystem::status(file.parent_path()).permissions(),
              std::filesystem::perms{0700});
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms{0600});
    // The next change makes a readable file private again.
    ::chmod(file.parent_path().c_str(), 0755);
    ::chmod(file.c_str(), 0644);
    EXPECT_EQ(keychain.update(item, next), keychainSuccess);
    EXPECT_EQ(readWholeFile(file), next);
  }
}

TEST(FileKeychain, ReportsErrorsAsNegativeStatuses) {
  const test::TemporaryFolder folder;
  folder.write("blocked", "a file where the folder should be");
  FileKeychain blocked(folder / "blocked");
  std::string data;
  EXPECT_EQ(blocked.copyMatching(item, data), -ENOTDIR);
  EXPECT_EQ(blocked.add(item, "[]"), -ENOTDIR);
  EXPECT_EQ(blocked.update(item, "[]"), -ENOTDIR);
  EXPECT_EQ(blocked.remove(item), -ENOTDIR);

  FileKeychain keychain(folder / "agent");
  for (const std::string account : {"", "../outside", ".hidden", "a/b"}) {
    EXPECT_EQ(keychain.add({"service", account}, "[]"), -EINVAL) << account;
  }
  folder.write("agent/paired-devices.json/inside", "a folder where the file should be");
  EXPECT_EQ(keychain.copyMatching(item, data), -EISDIR);
  EXPECT_EQ(keychain.update(item, "[]"), -EISDIR);
}

TEST(FileKeychain, RefusesFilesOfOtherUsers) {
  const test::TemporaryFolder folder;
  const auto file = folder.write("agent/paired-devices.json", "[]");
  std::string data;
  for (const auto& foreign : {file, file.parent_path()}) {
    // Only root can change the owner; other users test with a folder of root.
    const bool given = ::chown(foreign.c_str(), 1000, 1000) == 0;
    EXPECT_EQ(FileKeychain(given ? folder / "agent" : "/usr").copyMatching(item, data), -EPERM);
    EXPECT_EQ(data, "");
  }
}

class SecretServiceKeychainTest : public testing::Test {
 protected:
  test::KeyringSession session;
  SecretServiceKeychain keychain{{2s, 3s}};
  std::string data;

  // Every operation's status, with how long the slowest took.
  std::vector<KeychainStatus> statuses() {
    std::vector<KeychainStatus> all;
    slowest = {};
    const std::function<KeychainStatus()> operations[] = {
        [&] { return keychain.copyMatching(item, data); },
        [&] { return keychain.update(item, "[9]"); }, [&] { return keychain.add(item, "[9]"); },
        [&] { return keychain.remove(item); }};
    for (const auto& operation : operations) {
      const auto began = Clock::now();
      all.push_back(operation());
      slowest = std::max(slowest, Clock::now() - began);
    }
    return all;
  }
  static std::vector<KeychainStatus> always(KeychainStatus status) {
    return std::vector<KeychainStatus>(4, status);
  }

  Clock::duration slowest{};
};

TEST_F(SecretServiceKeychainTest, StoresAnItemUnderItsAttributes) {
  session.start("unlocked");
  const std::string first = "[{\"name\":\"Anna\u2019s phone\"}]";
  expectKeepsAnItem(keychain, first);
  const std::string lookup =
      "secret-tool lookup class generic-password service org.example.service account "
      "paired-devices";
  EXPECT_EQ(test::outputOf(lookup), first);
  EXPECT_EQ(keychain.update(item, "[3]"), keychainSuccess);
  EXPECT_EQ(keychain.add({item.service, "another"}, "[4]"), keychainSuccess);
  session.restart("unlocked");
  EXPECT_EQ(keychain.copyMatching(item, data), keychainSuccess);
  EXPECT_EQ(data, "[3]");
  EXPECT_EQ(test::outputOf("secret-tool search account paired-devices 2>&1 | grep label"),
            "label = Glintboard Agent paired devices\n");

  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(test::outputOf(lookup), "");
  EXPECT_EQ(keychain.copyMatching({item.service, "another"}, data), keychainSuccess);
}

TEST_F(SecretServiceKeychainTest, LockedCollectionIsNotEmptyAndPromptsOnce) {
  const auto prompts = session.folder() / "prompts";
  const std::string prompter = "org.gnome.keyring.SystemPrompter";
  const test::ChildProcess prompting({"/usr/bin/python3",
                                      GLINTBOARD_TEST_SUPPORT "/bus_application.py", prompter,
                                      prompts.string(), "/org/gnome/keyring/Prompter"});
  ASSERT_EQ(::system(("gdbus wait --session --timeout 20 " + prompter).c_str()), 0);
  session.start("unlocked");
  ASSERT_EQ(keychain.add(item, "[1]"), keychainSuccess);
  session.lock();
  EXPECT_EQ(statuses(), always(keychainInteractionNotAllowed));
  EXPECT_EQ(statuses(), always(keychainInteractionNotAllowed));
  EXPECT_LT(slowest, test::slowdown * 2500ms);
  EXPECT_TRUE(test::eventually([&] { return std::filesystem::exists(prompts); }));
  EXPECT_THAT(readWholeFile(prompts), testing::MatchesRegex("BeginPrompting [^\n]*\n"));

  session.restart("locked");
  EXPECT_EQ(keychain.copyMatching(item, data), keychainInteractionNotAllowed);
  EXPECT_EQ(keychain.copyMatching({item.service, "absent"}, data), keychainInteractionNotAllowed);
  session.restart("unlocked");
  EXPECT_EQ(keychain.copyMatching(item, data), keychainSuccess);
  EXPECT_EQ(data, "[1]") << "refused changes had no effect";
}

TEST_F(SecretServiceKeychainTest, CreatesNoDefaultCollection) {
  session.start("locked");
  EXPECT_EQ(statuses(),
            (std::vector<KeychainStatus>{keychainItemNotFound, keychainItemNotFound,
                                         keychainNoSuchKeychain, keychainItemNotFound}));
  EXPECT_LT(slowest, test::slowdown * 2500ms);
}

TEST_F(SecretServiceKeychainTest, ReportsAnAbsentServiceAndFindsItLater) {
  EXPECT_EQ(statuses(), always(keychainNotAvailable)) << "on a bus without the service";
  session.start("unlocked");
  EXPECT_EQ(keychain.add(item, "[1]"), keychainSuccess);
  EXPECT_EQ(keychain.copyMatching(item, data), keychainSuccess);
  session.kill();
  EXPECT_EQ(statuses(), always(keychainNotAvailable));
  EXPECT_LT(slowest, test::slowdown * 2s);
}

TEST_F(SecretServiceKeychainTest, HungOrDyingServiceMeetsTheDeadline) {
  session.start("unlocked");
  ASSERT_EQ(keychain.add(item, "[1]"), keychainSuccess);
  session.signal(SIGSTOP);
  EXPECT_EQ(statuses(), always(keychainTimedOut));
  EXPECT_LT(slowest, test::slowdown * 4s);
  session.signal(SIGCONT);
  EXPECT_EQ(keychain.copyMatching(item, data), keychainSuccess);

  session.signal(SIGSTOP);
  SecretServiceKeychain patient({20s, 20s});
  auto dying = std::async(std::launch::async, [&] { return patient.update(item, "[2]"); });
  EXPECT_EQ(dying.wait_for(300ms), std::future_status::timeout);
  session.kill();
  ASSERT_EQ(dying.wait_for(test::slowdown * 5s), std::future_status::ready);
  EXPECT_EQ(dying.get(), keychainNotAvailable);
  session.start("unlocked");
  EXPECT_EQ(keychain.update(item, "[3]"), keychainSuccess);
}

TEST_F(SecretServiceKeychainTest, SignalsWhenItBecomesReadable) {
  session.start("unlocked");
  ASSERT_EQ(keychain.add(item, "[1]"), keychainSuccess);
  session.kill();
  const auto locked = [this] { session.restart("locked"); };
  const struct {
    const char* name;
    std::function<void()> begin;  // applied to a running service
    KeychainStatus before;
    std::function<void()> end;
  } cases[] = {
      {"locked at the start", locked, keychainInteractionNotAllowed, [this] { session.unlock(); }},
      {"locked meanwhile", [this] { session.lock(); }, keychainInteractionNotAllowed,
       [this] { session.unlock(); }},
      {"away", [this] { session.kill(); }, keychainNotAvailable,
       [this] { session.start("unlocked"); }},
      {"away and then locked", [this] { session.kill(); }, keychainNotAvailable,
       [this] {
         session.start("locked");
         session.unlock();
       }},
      {"hanging", [this] { session.signal(SIGSTOP); }, keychainTimedOut,
       [this] { session.signal(SIGCONT); }},
  };
  session.start("unlocked");
  for (const auto& [name, begin, before, end] : cases) {
    begin();
    EXPECT_EQ(keychain.copyMatching(item, data), before) << name;
    std::counting_semaphore<> readable(0);
    keychain.watch([&] { readable.release(); });
    auto reading = std::async(std::launch::async, [&] {
      while (readable.try_acquire_for(test::slowdown * 5s)) {
        if (keychain.copyMatching(item, data) == keychainSuccess) {
          return true;
        }
      }
      return false;
    });
    end();
    EXPECT_TRUE(reading.get()) << name;
    keychain.watch({});
  }
}

// In these tests the greater text is the later item.
class TwoPlaceKeychainTest : public testing::Test {
 protected:
  test::KeyringSession session;
  SecretServiceKeychain secretService{{2s, 3s}};
  FileKeychain file{session.folder() / "agent"};
  TwoPlaceKeychain keychain{secretService, file, {std::greater<>(), "removed"}};

  static std::string read(Keychain& from) {
    std::string data;
    const KeychainStatus status = from.copyMatching(item, data);
    return status == keychainSuccess        ? data
           : status == keychainItemNotFound ? "none"
                                            : std::to_string(status);
  }
  // Saves the way the pairing is saved.
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

TEST_F(TwoPlaceKeychainTest, MovesTheItemToTheServiceWhenItAppears) {
  EXPECT_EQ(read(keychain), std::to_string(keychainNotAvailable));
  EXPECT_EQ(save("0"), keychainSuccess);
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(keychain.remove(item), keychainItemNotFound);
  EXPECT_TRUE(std::filesystem::is_empty(session.folder() / "agent"));

  EXPECT_EQ(keychain.update(item, "1"), keychainSuccess);
  EXPECT_EQ(save("2"), keychainSuccess);
  EXPECT_EQ(read(keychain), "2");
  EXPECT_EQ(read(file), "2");
  session.start("unlocked");
  expectOnlyInSecretService("2");
  EXPECT_EQ(save("3"), keychainSuccess);
  expectOnlyInSecretService("3");
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  expectOnlyInSecretService("none");
  EXPECT_TRUE(std::filesystem::is_empty(session.folder() / "agent"));
  EXPECT_EQ(keychain.update(item, "4"), keychainItemNotFound);
  EXPECT_EQ(keychain.remove(item), keychainItemNotFound);
}

TEST_F(TwoPlaceKeychainTest, LaterItemWins) {
  session.start("unlocked");
  ASSERT_EQ(secretService.add(item, "1"), keychainSuccess);
  ASSERT_EQ(file.add(item, "2"), keychainSuccess);
  expectOnlyInSecretService("2");
  ASSERT_EQ(file.add(item, "1"), keychainSuccess);
  expectOnlyInSecretService("2");
  ASSERT_EQ(file.add(item, "1"), keychainSuccess);
  EXPECT_EQ(save("3"), keychainSuccess);
  expectOnlyInSecretService("3");
}

TEST_F(TwoPlaceKeychainTest, ItemSurvivesALockedOrHungService) {
  session.start("unlocked");
  ASSERT_EQ(save("1"), keychainSuccess);
  session.lock();
  EXPECT_EQ(read(keychain), std::to_string(keychainInteractionNotAllowed));
  EXPECT_EQ(save("2"), keychainSuccess);
  EXPECT_EQ(read(keychain), "2");
  session.restart("unlocked");
  EXPECT_EQ(read(secretService), "1");
  expectOnlyInSecretService("2");

  session.signal(SIGSTOP);
  EXPECT_EQ(read(keychain), std::to_string(keychainTimedOut));
  EXPECT_EQ(save("3"), keychainSuccess);
  EXPECT_EQ(read(keychain), "3");
  session.signal(SIGCONT);
  expectOnlyInSecretService("3");
}

TEST_F(TwoPlaceKeychainTest, KeepsTheFileUntilTheServiceHasTheItem) {
  session.start("locked");  // without a collection, so nothing can be added
  ASSERT_EQ(file.add(item, "1"), keychainSuccess);
  EXPECT_EQ(read(keychain), "1");
  EXPECT_EQ(read(file), "1");
  EXPECT_EQ(save("2"), keychainSuccess);
  EXPECT_EQ(read(file), "2");
}

TEST_F(TwoPlaceKeychainTest, RemovalWithoutTheServiceIsPermanent) {
  session.start("unlocked");
  ASSERT_EQ(save("1"), keychainSuccess);
  session.kill();
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(read(keychain), "none");
  session.start("unlocked");
  EXPECT_EQ(read(secretService), "1");
  expectOnlyInSecretService("none");

  // An item saved after such a removal is kept.
  ASSERT_EQ(save("2"), keychainSuccess);
  session.lock();
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(save("3"), keychainSuccess);
  EXPECT_EQ(read(keychain), "3");
  session.restart("unlocked");
  expectOnlyInSecretService("3");
  session.lock();
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  session.restart("unlocked");
  EXPECT_EQ(save("4"), keychainSuccess);
  expectOnlyInSecretService("4");
}

}  // namespace
}  // namespace glintboard
