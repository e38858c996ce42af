// SPDX-License-Identifier: MIT
#include "platform/startup_pages.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstring>

#include "platform/file_descriptor.h"

namespace glintboard {
namespace {

TEST(StartupPages, KeepCodeGeneratedAtRunTime) {
  constexpr std::array<unsigned char, 6> code{0xb8, 42, 0, 0, 0, 0xc3};  // return 42
  const FileDescriptor file(::memfd_create("code", MFD_CLOEXEC));
  const auto size = static_cast<std::size_t>(::getpagesize());
  ASSERT_EQ(::ftruncate(file.get(), static_cast<off_t>(size)), 0);
  void* const page = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE, file.get(), 0);
  ASSERT_NE(page, MAP_FAILED);
  std::memcpy(page, code.data(), code.size());
  ASSERT_EQ(::mprotect(page, size, PROT_READ | PROT_EXEC), 0);
  releaseStartupPages();
  EXPECT_EQ(std::memcmp(page, code.data(), code.size()), 0);
  ::munmap(page, size);
}

}  // namespace
}  // namespace glintboard
