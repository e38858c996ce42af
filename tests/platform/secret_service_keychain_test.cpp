#include "platform/linux/secret_service_keychain.h"

#include <gtest/gtest.h>

#include <future>

#include "platform/atomic_file.h"
#include "tests/support/keyring.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

const KeychainQuery item{"org.example.service", "paired-devices"};

class SecretServiceKeychainTest : public testing::Test {
 protected:
  test::KeyringSession session;
  SecretServiceKeychain keychain{{400ms, 600ms}};
  std::string data;

  // Every operation's status, with how long the slowest took.
  std::vector<KeychainStatus> statuses() {
    std::vector<KeychainStatus> all;
    const auto measured = [&](KeychainStatus (*operation)(Keychain&, std::string&)) {
      const auto began = Clock::now();
      all.push_back(operation(keychain, data));
      slowest = std::max(slowest, Clock::now() - began);
    };
    slowest = {};
    measured([](Keychain& k, std::string& read) { return k.copyMatching(item, read); });
    measured([](Keychain& k, std::string&) { return k.update(item, "[9]"); });
    measured([](Keychain& k, std::string&) { return k.add(item, "[9]"); });
    measured([](Keychain& k, std::string&) { return k.remove(item); });
    return all;
  }
  static std::vector<KeychainStatus> always(KeychainStatus status) {
    return std::vector<KeychainStatus>(4, status);
  }

  Clock::duration slowest{};
};

TEST_F(SecretServiceKeychainTest, KeepsAnItemUnderItsAttributes) {
  session.startUnlocked();
  EXPECT_EQ(keychain.copyMatching(item, data), keychainItemNotFound);
  EXPECT_EQ(keychain.update(item, "[]"), keychainItemNotFound);
  EXPECT_EQ(keychain.remove(item), keychainItemNotFound);

  const std::string first = "[{\"name\":\"Anna\u2019s phone\"}]";
  EXPECT_EQ(keychain.add(item, first), keychainSuccess);
  EXPECT_EQ(keychain.add(item, "[2]"), keychainDuplicateItem);
  const std::string lookup =
      "secret-tool lookup class generic-password service org.example.service account "
      "paired-devices";
  EXPECT_EQ(test::outputOf(lookup), first);
  EXPECT_EQ(keychain.update(item, "[3]"), keychainSuccess);
  EXPECT_EQ(keychain.add({item.service, "another"}, "[4]"), keychainSuccess);
  session.restartUnlocked();
  EXPECT_EQ(keychain.copyMatching(item, data), keychainSuccess);
  EXPECT_EQ(data, "[3]");
  const std::string found = test::outputOf("secret-tool search account paired-devices 2>&1 | sort");
  for (const char* line :
       {"attribute.class = generic-password\n", "attribute.service = org.example.service\n",
        "label = Glintboard Agent paired devices\n", "secret = [3]\n"}) {
    EXPECT_NE(found.find(line), std::string::npos) << found;
  }

  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(test::outputOf(lookup), "");
  EXPECT_EQ(keychain.copyMatching({item.service, "another"}, data), keychainSuccess);
}

// Counts how often the user would be asked for the password.
constexpr const char* prompter = R"(
import sys
from gi.repository import Gio, GLib
node = Gio.DBusNodeInfo.new_for_xml('''<node><interface name="org.gnome.keyring.internal.Prompter">
  <method name="BeginPrompting"><arg type="o" direction="in"/></method>
  <method name="PerformPrompt"><arg type="o" direction="in"/><arg type="s" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="s" direction="in"/></method>
  <method name="StopPrompting"><arg type="o" direction="in"/></method></interface></node>''')
bus = Gio.bus_get_sync(Gio.BusType.SESSION)
def called(connection, sender, path, interface, method, arguments, invocation):
    with open(sys.argv[1], 'a') as file:
        file.write(method + '\n')
    invocation.return_value(None)
bus.register_object('/org/gnome/keyring/Prompter', node.interfaces[0], called, None, None)
Gio.bus_own_name_on_connection(bus, 'org.gnome.keyring.SystemPrompter', 0, None, None)
open(sys.argv[1], 'w').close()
GLib.MainLoop().run()
)";

TEST_F(SecretServiceKeychainTest, ALockedCollectionIsNotAnAbsentItemAndTheUserIsAskedOnce) {
  const auto prompts = session.folder() / "prompts";
  test::ChildProcess prompting({"/usr/bin/python3", "-c", prompter, prompts.string()});
  ASSERT_TRUE(test::eventually([&] { return std::filesystem::exists(prompts); }));
  session.startUnlocked();
  ASSERT_EQ(keychain.add(item, "[1]"), keychainSuccess);
  session.lock();
  EXPECT_EQ(statuses(), always(keychainInteractionNotAllowed));
  EXPECT_EQ(statuses(), always(keychainInteractionNotAllowed));
  EXPECT_LT(slowest, 600ms);
  EXPECT_TRUE(test::eventually([&] { return !readWholeFile(prompts).empty(); }));
  EXPECT_EQ(readWholeFile(prompts), "BeginPrompting\n");

  session.kill();
  session.startLocked();
  EXPECT_EQ(keychain.copyMatching(item, data), keychainInteractionNotAllowed);
  EXPECT_EQ(keychain.copyMatching({item.service, "absent"}, data), keychainInteractionNotAllowed);
  session.restartUnlocked();
  EXPECT_EQ(keychain.copyMatching(item, data), keychainSuccess);
  EXPECT_EQ(data, "[1]") << "nothing that was refused changed the item";
}

TEST_F(SecretServiceKeychainTest, NoDefaultCollectionIsMade) {
  session.startLocked();
  EXPECT_EQ(statuses(),
            (std::vector<KeychainStatus>{keychainItemNotFound, keychainItemNotFound,
                                         keychainNoSuchKeychain, keychainItemNotFound}));
  EXPECT_LT(slowest, 600ms);
}

TEST_F(SecretServiceKeychainTest, AnAbsentServiceIsSaidAtOnceAndFoundWhenItAppears) {
  EXPECT_EQ(statuses(), always(keychainNotAvailable)) << "a bus without the service";
  session.startUnlocked();
  EXPECT_EQ(keychain.add(item, "[1]"), keychainSuccess);
  EXPECT_EQ(keychain.copyMatching(item, data), keychainSuccess);
  session.kill();
  EXPECT_EQ(statuses(), always(keychainNotAvailable));
  EXPECT_LT(slowest, 300ms);
}

TEST(SecretServiceKeychain, WithoutABusIsNotAvailable) {
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  SecretServiceKeychain keychain;
  std::string data;
  EXPECT_EQ(keychain.copyMatching(item, data), keychainNotAvailable);
  EXPECT_EQ(keychain.add(item, "[]"), keychainNotAvailable);
}

TEST_F(SecretServiceKeychainTest, AServiceThatHangsOrDiesHoldsUpNobodyBeyondTheDeadline) {
  session.startUnlocked();
  ASSERT_EQ(keychain.add(item, "[1]"), keychainSuccess);
  session.signal(SIGSTOP);
  EXPECT_EQ(statuses(), always(keychainTimedOut));
  EXPECT_LT(slowest, 800ms);
  session.signal(SIGCONT);
  EXPECT_EQ(keychain.copyMatching(item, data), keychainSuccess);

  session.signal(SIGSTOP);
  SecretServiceKeychain patient({20s, 20s});
  auto dying = std::async(std::launch::async, [&] { return patient.update(item, "[2]"); });
  EXPECT_EQ(dying.wait_for(300ms), std::future_status::timeout);
  session.kill();
  ASSERT_EQ(dying.wait_for(5s), std::future_status::ready);
  EXPECT_EQ(dying.get(), keychainNotAvailable);
  session.startUnlocked();
  EXPECT_EQ(keychain.update(item, "[3]"), keychainSuccess);
}

}  // namespace
}  // namespace glintboard
