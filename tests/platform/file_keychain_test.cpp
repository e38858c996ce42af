#include "platform/linux/file_keychain.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/atomic_file.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

const KeychainQuery item{"org.example.service", "paired-devices"};

mode_t modeOf(const std::filesystem::path& path) {
  struct stat status{};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777u : 0;
}

TEST(FileKeychain, KeepsAnItemInAFileThatIsTheUsersAlone) {
  const test::TemporaryFolder folder;
  FileKeychain keychain(folder / "data/agent");
  std::string data;
  EXPECT_EQ(keychain.copyMatching(item, data), keychainItemNotFound);
  EXPECT_EQ(keychain.update(item, "[]"), keychainItemNotFound);
  EXPECT_EQ(keychain.remove(item), keychainItemNotFound);
  EXPECT_FALSE(std::filesystem::exists(folder / "data"));

  EXPECT_EQ(keychain.add(item, "[1]"), keychainSuccess);
  EXPECT_EQ(keychain.add(item, "[2]"), keychainDuplicateItem);
  EXPECT_EQ(readWholeFile(folder / "data/agent/paired-devices.json"), "[1]");
  EXPECT_EQ(modeOf(folder / "data/agent"), 0700u);
  EXPECT_EQ(modeOf(folder / "data/agent/paired-devices.json"), 0600u);

  EXPECT_EQ(keychain.update(item, "[3]"), keychainSuccess);
  EXPECT_EQ(keychain.copyMatching(item, data), keychainSuccess);
  EXPECT_EQ(data, "[3]");
  EXPECT_EQ(keychain.remove(item), keychainSuccess);
  EXPECT_EQ(keychain.copyMatching(item, data), keychainItemNotFound);
}

TEST(FileKeychain, TightensWhatOthersCouldRead) {
  const test::TemporaryFolder folder;
  const auto file = folder.write("agent/paired-devices.json", "[]");
  ::chmod((folder / "agent").c_str(), 0755);
  ::chmod(file.c_str(), 0644);
  FileKeychain keychain(folder / "agent");
  EXPECT_EQ(keychain.update(item, "[1]"), keychainSuccess);
  EXPECT_EQ(modeOf(folder / "agent"), 0700u);
  EXPECT_EQ(modeOf(file), 0600u);
}

TEST(FileKeychain, ReportsFailuresAsNegativeStatuses) {
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

}  // namespace
}  // namespace glintboard
