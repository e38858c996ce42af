// SPDX-License-Identifier: MIT
// Runs inside tests/support/private-network.sh, with Avahi daemons of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/executors.h"
#include "platform/linux/network/avahi_advertiser.h"
#include "platform/linux/network/host_name_watcher.h"
#include "platform/linux/network/renaming_advertiser.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using Names = std::set<std::string>;

const std::string type = "_glintboard._tcp";

// A system bus and, while it runs, an Avahi daemon. The bus has the same address in every test,
// because libdbus reads the address only once in a process.
class Computer {
 public:
  explicit Computer(const std::string& name)
      : name_(name), socket_("/run/bus-" + name), address_("unix:path=" + socket_) {}

  void startBus() {
    bus_ = std::make_unique<test::ChildProcess>(
        std::vector<std::string>{test::desktopPart("bus"), "system", socket_});
    EXPECT_TRUE(eventuallyAnswers("org.freedesktop.DBus / org.freedesktop.DBus.GetId"));
  }

  // Starts the daemon with the wrapper program `through`.
  void startDaemon(const std::string& through = "env") {
    daemon_ = std::make_unique<test::ChildProcess>(
        std::vector<std::string>{"env", "DBUS_SYSTEM_BUS_ADDRESS=" + address_, through,
                                 test::desktopPart("avahi"), name_, folder_.path().string()});
  }
  void stopBus() { bus_.reset(); }
  void stopDaemon() { daemon_.reset(); }
  const test::ChildProcess& daemon() const { return *daemon_; }
  const std::string& address() const { return address_; }

  // Waits until a service on the bus answers a call.
  bool eventuallyAnswers(const std::string& call) const {
    return test::eventually(
        [&] { return !run("dbus-send --system --print-reply --dest=" + call).empty(); });
  }
  // Waits until this computer finds the service with ";HOST;ADDRESS;PORT;TXT", or no longer does.
  bool eventuallyResolves(const std::string& record, bool wanted = true) const {
    return test::eventually([&] {
      return (run("avahi-browse -rtp _glintboard._tcp").find(record) != std::string::npos) ==
             wanted;
    });
  }

  std::string run(const std::string& command) const {
    return test::outputOf("DBUS_SYSTEM_BUS_ADDRESS=" + address_ + " " + command + " 2>/dev/null");
  }

 private:
  const std::string name_;
  const std::string socket_;
  const std::string address_;
  test::TemporaryFolder folder_;
  std::unique_ptr<test::ChildProcess> bus_;
  std::unique_ptr<test::ChildProcess> daemon_;
};

class Avahi : public testing::Test {
 protected:
  void SetUp() override {
    if (::getenv("GLINTBOARD_PRIVATE_NETWORK") == nullptr) {
      GTEST_SKIP() << "only in a network of its own";
    }
    if (test::outputOf("awk '{ print $3 }' /proc/self/uid_map") == "1\n") {
      GTEST_SKIP() << "Avahi's daemon needs more than one user";
    }
    ::setenv("DBUS_SYSTEM_BUS_ADDRESS", computer_.address().c_str(), 1);
    computer_.startBus();
  }

  static std::vector<BonjourInstance> browse() {
    auto found = BonjourBrowser::live()->browse(type, 2s).value_or(std::vector<BonjourInstance>());
    std::erase_if(found, [](const BonjourInstance& instance) { return instance.address.empty(); });
    return found;
  }

  static Names found() {
    Names names;
    for (const auto& instance : browse()) {
      names.insert(instance.name);
    }
    return names;
  }

  static bool eventuallyFound(const Names& names) {
    return test::eventually([&] { return found() == names; });
  }

  // Advertises the service on a running daemon and waits until it is found.
  void advertise(AvahiAdvertiser& advertiser, const std::string& name) {
    computer_.startDaemon();
    advertiser.publish({name, type, "local.", 9847});
    ASSERT_TRUE(eventuallyFound({name}));
  }

  // Starts the daemon of another computer on the network.
  void connect(Computer& other) {
    other.startBus();
    other.startDaemon(test::desktopPart("other-computer"));
    ASSERT_TRUE(test::eventually([] {
      return test::outputOf("ip -brief link show near 2>&1").find("UP") != std::string::npos;
    }));
    ASSERT_TRUE(other.eventuallyAnswers(
        "org.freedesktop.Avahi / org.freedesktop.Avahi.Server.GetVersionString"));
  }

  Computer computer_{"box"};
};

TEST_F(Avahi, AdvertisesAndWithdraws) {
  AvahiAdvertiser advertiser;
  advertise(advertiser, "Anna's Box");
  const auto instances = browse();
  ASSERT_EQ(instances.size(), 1U);
  EXPECT_EQ(instances[0].address, "127.0.0.1");
  EXPECT_EQ(instances[0].port, 9847);
  // The last field is the empty TXT record.
  EXPECT_TRUE(computer_.eventuallyResolves(";box.local;127.0.0.1;9847;\n"));
  computer_.run("avahi-set-host-name fox");
  EXPECT_TRUE(computer_.eventuallyResolves(";fox.local;127.0.0.1;9847;\n"));
  advertiser.publish({"Renamed", type, "local.", 9848});
  EXPECT_TRUE(eventuallyFound({"Renamed"}));
  advertiser.withdraw();
  EXPECT_TRUE(eventuallyFound({}));
}

TEST_F(Avahi, TruncatesLongNamesAndRefusesInvalidOnes) {
  computer_.startDaemon();
  AvahiAdvertiser advertiser;
  const std::string long62(62, 'x');
  advertiser.publish({long62 + "\u00fc and more", type, "local.", 9847});
  EXPECT_TRUE(eventuallyFound({long62}));
  advertiser.publish({"gr\xfcn", type, "local.", 9847});
  EXPECT_TRUE(eventuallyFound({"gr\ufffdn"}));
  // Invalid text must neither abort the process nor be advertised.
  advertiser.publish({"", type, "local.", 9847});
  advertiser.publish({"Box", "\xff", "local.", 9847});
  EXPECT_TRUE(eventuallyFound({}));
  EXPECT_TRUE(BonjourBrowser::live()->browse("\xff", 1s)->empty());
}

TEST_F(Avahi, TakesTheNextNameOnACollision) {
  Computer other("other");
  connect(other);
  computer_.startDaemon();
  const test::ChildProcess theirs({"env", "DBUS_SYSTEM_BUS_ADDRESS=" + other.address(),
                                   "avahi-publish", "-s", "Box", type, "9847"});
  EXPECT_TRUE(eventuallyFound({"Box"})) << "over the cable";
  AvahiAdvertiser ours;
  ours.publish({"Box", type, "local.", 9848});
  EXPECT_TRUE(eventuallyFound({"Box", "Box #2"}));
  AvahiAdvertiser second;
  second.publish({"Box #2", type, "local.", 9849});
  EXPECT_TRUE(eventuallyFound({"Box", "Box #2", "Box #3"}));
}

TEST_F(Avahi, FollowsACablePulledAndPluggedIn) {
  AvahiAdvertiser advertiser;
  advertise(advertiser, "Box");
  Computer other("other");
  connect(other);
  const auto isSeen = [&](bool wanted) {
    return other.eventuallyResolves(";box.local;10.99.0.1;9847;", wanted);
  };
  EXPECT_TRUE(isSeen(true));
  ASSERT_EQ(::system("ip link set near down"), 0);
  // The other computer forgets the cached records.
  const auto far = "nsenter --net --target " + std::to_string(other.daemon().id()) + " ";
  ASSERT_EQ(::system((far + "ip link set far down").c_str()), 0);
  EXPECT_TRUE(isSeen(false));
  ASSERT_EQ(::system((far + "ip link set far up").c_str()), 0);
  EXPECT_TRUE(isSeen(false));
  ASSERT_EQ(::system("ip link set near up"), 0);
  EXPECT_TRUE(isSeen(true));
}

TEST_F(Avahi, FollowsTheHostName) {
  const auto rename = [](const std::string& name) {
    EXPECT_EQ(::sethostname(name.data(), name.size()), 0);
  };
  computer_.startDaemon();
  rename("box");
  Executors executors;
  const test::TemporaryFolder etc;
  const auto file = etc / "machine-info";
  const auto advertiser = std::make_shared<RenamingAdvertiser>(
      std::make_unique<AvahiAdvertiser>(), std::make_shared<HostName>(file, kernelHostName));
  const auto watcher =
      HostNameWatcher::start(executors.service(), file, [advertiser] { advertiser->checkName(); });
  advertiser->publish({"Nameless", type, "local.", 9847});
  EXPECT_TRUE(eventuallyFound({"box"}));
  rename("fox");
  EXPECT_TRUE(eventuallyFound({"fox"}));
  etc.write("machine-info", "PRETTY_HOSTNAME=\"Anna's Box\"\n");
  EXPECT_TRUE(eventuallyFound({"Anna's Box"}));
  std::filesystem::remove(file);
  EXPECT_TRUE(eventuallyFound({"fox"}));
  rename("localhost");
  EXPECT_TRUE(eventuallyFound({"Nameless"}));
  advertiser->withdraw();
  EXPECT_TRUE(eventuallyFound({}));
  rename("box");
  std::this_thread::sleep_for(100ms);
  EXPECT_EQ(found(), Names{}) << "withdrawn";
  watcher->stop();
}

TEST_F(Avahi, ReconnectsToTheSystemBus) {
  computer_.stopBus();
  AvahiAdvertiser advertiser;
  advertiser.publish({"Box", type, "local.", 9847});
  EXPECT_EQ(found(), Names{});
  for (int time = 0; time < 2; ++time) {
    computer_.startBus();
    computer_.startDaemon();
    EXPECT_TRUE(eventuallyFound({"Box"}));
    computer_.stopDaemon();
    computer_.stopBus();
  }
}

}  // namespace
}  // namespace glintboard
