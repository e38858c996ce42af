// SPDX-License-Identifier: MIT
// Runs inside tests/support/private-network.sh, where it may mount folders of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>

#include <boost/asio/io_context.hpp>

#include "agent/decks/deck_store.h"
#include "agent/pairing/keychain_paired_device_store.h"
#include "platform/atomic_file.h"
#include "platform/linux/keychain/file_keychain.h"
#include "platform/linux/keychain/two_place_keychain.h"
#include "protocol/json_writer.h"
#include "tests/support/await.h"
#include "tests/support/crash_points.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

using enum DeckCategoryID;
using Names = std::vector<std::string>;

DecksFile decksNamed(const std::string& streamingName, const std::string& gamingName) {
  return {1,
          {DeckTemplate("streaming", streamingName, {}), DeckTemplate("gaming", gamingName, {})}};
}

// The decks in a folder, used by one thread only, since a forked process has no others.
struct Decks {
  std::filesystem::path folder;

  template <class Operation>
  auto run(Operation operation) const {
    asio::io_context loop;
    DeckStore store(loop.get_executor(), loop.get_executor(), folder / "decks.json");
    test::FakeDesktop desktop;
    const WorkspaceClient workspace = desktop.client();
    auto result = asio::co_spawn(loop, operation(store, workspace), asio::use_future);
    loop.run();
    return result.get();
  }
  // As for a phone's ping.
  void serve() const {
    run([](DeckStore& store, const WorkspaceClient& workspace) {
      return store.runningDeckBundleIds(workspace);
    });
  }
  void save(const std::string& name) const {
    run([&](DeckStore& store, const WorkspaceClient& workspace) {
      return store.saveDeck(streaming, name, {}, workspace);
    });
  }
  std::string name(DeckCategoryID category) const {
    return run([&](DeckStore& store, const WorkspaceClient& workspace) {
             return store.loadDeck(category, workspace);
           })
        .name;
  }
  // The contents of `file` and its backup.
  Names kept(const std::string& file) const {
    Names contents;
    for (const std::string& name : {file, file + ".bak"}) {
      if (std::filesystem::is_regular_file(folder / name)) {
        contents.push_back(readWholeFile(folder / name));
      }
    }
    return contents;
  }
};

TEST(StorageFaults, DecksSurviveAKillAtEverySystemCall) {
  const test::TemporaryFolder folder;
  const Decks decks{folder / "data"};
  const auto fresh = [&](const std::string& file, const std::string& content) {
    std::filesystem::remove_all(decks.folder);
    folder.write("data/" + file, content);
  };
  const std::string tooLarge(1000, '[');
  const std::string legacy = jsonText(DeckTemplate("old", "Legacy", {}));
  struct Case {
    const char* what;
    std::string file;
    std::string content;
    std::function<void()> work;
    std::function<void()> check;
  };
  const Case cases[] = {
      {"saving over decks", "decks.json", jsonText(decksNamed("Old", "Mine")),
       [&] { decks.save("New"); },
       [&] {
         EXPECT_THAT(decks.name(streaming), testing::AnyOf("Old", "New"));
         EXPECT_EQ(decks.name(gaming), "Mine");
         EXPECT_EQ(decks.kept("decks.json").size(), 1u) << "no file was damaged";
       }},
      {"taking over an earlier version's deck", "deck.json", legacy, [&] { decks.serve(); },
       [&] {
         decks.serve();
         EXPECT_EQ(decks.name(streaming), "Legacy");
       }},
      {"setting an earlier version's file aside", "deck.json",
       jsonText(DeckTemplate("old", "Legacy", std::vector(25, DeckTile::app(1, "A", "a")))),
       [&] { decks.serve(); },
       [&] {
         EXPECT_THAT(decks.kept("deck.json"), testing::Contains(testing::HasSubstr("Legacy")));
       }},
      {"replacing a damaged file", "decks.json", tooLarge, [&] { decks.serve(); },
       [&] { EXPECT_THAT(decks.kept("decks.json"), testing::Contains(tooLarge)); }},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    test::killAtEveryCall([&] { fresh(each.file, each.content); }, each.work, each.check);
  }
}

PairedDevice device(const char* name, double pairedAt) {
  return {Uuid(), name, {"TOKEN"}, {pairedAt}};
}

TEST(StorageFaults, PairingSurvivesAKillAtEverySystemCall) {
  const test::TemporaryFolder folder;
  FileKeychain preferred(folder / "preferred");
  FileKeychain fallback(folder / "fallback");
  TwoPlaceKeychain keychain(preferred, fallback, pairedDevicesMergeRule());
  KeychainPairedDeviceStore store(keychain);
  KeychainPairedDeviceStore kept(fallback);
  const auto loaded = [&] {
    const auto devices = store.load();
    return devices.empty() ? "none" : devices.front().name;
  };
  struct Case {
    const char* what;
    KeychainPairedDeviceStore& before;
    std::function<void()> work;
    Names after;
  };
  const Case cases[] = {
      {"a change", store, [&] { store.save({device("New", 2)}); }, {"Old", "New"}},
      {"a change in the file", kept, [&] { store.save({device("New", 2)}); }, {"Old", "New"}},
      {"a move out of the file", kept, [&] { store.load(); }, {"Old"}},
      {"a removal", store, [&] { store.deleteAll(); }, {"Old", "none"}},
      {"a removal from the file", kept, [&] { store.deleteAll(); }, {"Old", "none"}},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    test::killAtEveryCall(
        [&] {
          std::filesystem::remove_all(folder / "preferred");
          std::filesystem::remove_all(folder / "fallback");
          each.before.save({device("Old", 1)});
        },
        each.work, [&] { EXPECT_THAT(each.after, testing::Contains(loaded())); });
  }
}

// A mount, unmounted by the destructor.
class Mount {
 public:
  Mount(const char* type, const std::filesystem::path& place, unsigned long flags,
        const char* options)
      : place_(place) {
    EXPECT_EQ(::mount(place.c_str(), place.c_str(), type, flags, options), 0);
  }
  Mount(const Mount&) = delete;
  Mount& operator=(const Mount&) = delete;
  ~Mount() { ::umount2(place_.c_str(), MNT_DETACH); }

 private:
  std::filesystem::path place_;
};

// Expects a save of decks and one of the pairing to fail with the error and to change no file.
void expectFailedSaves(const Decks& decks, KeychainPairedDeviceStore& pairing,
                       const std::error_code& expected) {
  const auto files = [&] {
    Names names;
    for (const auto& entry : std::filesystem::directory_iterator(decks.folder)) {
      names.push_back(entry.path().filename());
    }
    return names;
  };
  const Names before = files();
  try {
    decks.save("New");
    ADD_FAILURE() << "saved";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), expected);
  }
  try {
    pairing.save({device("New", 2)});
    ADD_FAILURE() << "saved";
  } catch (const KeychainPairedDeviceStoreError& error) {
    EXPECT_EQ(error.status, -expected.value());
  }
  EXPECT_EQ(decks.name(streaming), "Old");
  EXPECT_EQ(pairing.load().at(0).name, "Old");
  EXPECT_EQ(files(), before);
}

TEST(StorageFaults, FailedWritesAreReportedAndDamageNothing) {
  if (::getenv("GLINTBOARD_PRIVATE_NETWORK") == nullptr) {
    GTEST_SKIP() << "needs a mount namespace";
  }
  const test::TemporaryFolder folder;
  const Decks decks{folder.path()};
  FileKeychain keychain(folder.path());
  KeychainPairedDeviceStore pairing(keychain);
  const Mount disk("tmpfs", folder.path(), 0, "size=64k,mode=700");
  decks.save("Old");
  pairing.save({device("Old", 1)});

  const auto fill = [&](const std::string& name, int size) {
    writeAtomically(folder / name, std::string(size, 'x'), 0600);
  };
  EXPECT_THROW(fill("large", 1 << 20), std::system_error);
  EXPECT_THROW(
      for (int number = 0;; ++number) { fill(std::to_string(number), 1); }, std::system_error);
  expectFailedSaves(decks, pairing, std::make_error_code(std::errc::no_space_on_device));
  std::filesystem::remove(folder / "0");
  std::filesystem::remove(folder / "1");
  decks.save("Old");
  {
    const Mount readOnly("none", folder.path(), MS_BIND, nullptr);
    ASSERT_EQ(
        ::mount("none", folder.path().c_str(), "none", MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr),
        0);
    expectFailedSaves(decks, pairing, std::make_error_code(std::errc::read_only_file_system));
  }
  decks.save("New");
  EXPECT_EQ(decks.name(streaming), "New");
}

// Each ping reads the decks, but must not retry and log a failed write each time.
TEST(StorageFaults, RetriesAFailedWriteOnlyAfterAPause) {
  const test::TemporaryFolder folder;
  folder.write("agent", "a file where the folder should be");
  asio::io_context loop;
  int writes = 0;
  asio::io_context disk;
  DeckStore store(loop.get_executor(), disk.get_executor(), folder / "agent/decks.json");
  test::FakeDesktop desktop;
  const WorkspaceClient workspace = desktop.client();
  for (int ping = 0; ping < 5; ++ping) {
    auto served = asio::co_spawn(loop, store.runningDeckBundleIds(workspace), asio::use_future);
    while (served.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
      loop.restart();
      loop.poll();
      disk.restart();
      writes += disk.poll() != 0 ? 1 : 0;
    }
  }
  EXPECT_EQ(writes, 1);
}

}  // namespace
}  // namespace glintboard
