#include "platform/atomic_file.h"

#include <gtest/gtest.h>

#include <system_error>

#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

TEST(AtomicFile, AFailedWriteLeavesTheOldFileAndNoOther) {
  const test::TemporaryFolder folder;
  folder.write("target/inside", "a folder cannot be replaced by a file");
  EXPECT_THROW(writeAtomically(folder / "target", "new", 0644), std::system_error);
  EXPECT_EQ(readWholeFile(folder / "target/inside"), "a folder cannot be replaced by a file");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

}  // namespace
}  // namespace glintboard
