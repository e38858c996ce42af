// SPDX-License-Identifier: MIT
#include "platform/atomic_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <latch>
#include <system_error>
#include <thread>

#include "platform/file_descriptor.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

TEST(AtomicFile, FailedWriteLeavesOnlyTheOldFile) {
  const test::TemporaryFolder folder;
  folder.write("target/inside", "a folder cannot be replaced by a file");
  EXPECT_THROW(writeAtomically(folder / "target", "new", 0644), std::system_error);
  EXPECT_EQ(readWholeFile(folder / "target/inside"), "a folder cannot be replaced by a file");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(AtomicFile, ReadsUntilTheContentIsComplete) {
  const test::TemporaryFolder folder;
  const auto pipe = folder / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  std::latch partSeen(1);
  std::latch done(1);
  std::jthread writer([&] {
    const FileDescriptor end(::open(pipe.c_str(), O_WRONLY | O_CLOEXEC));
    EXPECT_EQ(::write(end.get(), "a part", 6), 6);
    partSeen.wait();
    EXPECT_EQ(::write(end.get(), " and the rest", 13), 13);
    done.wait();  // the reader did not wait for the end of the file
  });
  std::string buffer;
  const auto isWhole = [&](std::string_view text) {
    if (!text.ends_with("rest")) {
      partSeen.count_down();
      return false;
    }
    return true;
  };
  EXPECT_EQ(readWholeFile(pipe, buffer, isWhole), "a part and the rest");
  done.count_down();
}

}  // namespace
}  // namespace glintboard
