#include "platform/atomic_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <system_error>

#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

TEST(AtomicFile, ReplacesTheContentAndTheMode) {
  const test::TemporaryFolder folder;
  const auto path = folder.write("secret", "old content that is longer");
  writeAtomically(path, "new", 0600);
  EXPECT_EQ(readWholeFile(path), "new");
  struct stat status{};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777u, 0600u);
}

TEST(AtomicFile, AFailedWriteLeavesTheOldFileAndNoOther) {
  const test::TemporaryFolder folder;
  folder.write("target/inside", "a folder cannot be replaced by a file");
  EXPECT_THROW(writeAtomically(folder / "target", "new", 0644), std::system_error);
  EXPECT_EQ(readWholeFile(folder / "target/inside"), "a folder cannot be replaced by a file");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(AtomicFile, TellsAMissingFileFromOtherFailures) {
  const test::TemporaryFolder folder;
  try {
    readWholeFile(folder / "absent");
    FAIL() << "read a file that is not there";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
  }
}

}  // namespace
}  // namespace glintboard
