// SPDX-License-Identifier: MIT
#include "platform/linux/base/host_name.h"

#include <gtest/gtest.h>

#include "platform/atomic_file.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

TEST(HostName, PrefersThePrettyName) {
  const test::TemporaryFolder folder;
  const auto file = folder / "machine-info";
  std::string kernelName = "box";
  const HostName name(file, [&] { return kernelName; });
  EXPECT_EQ(name.localizedName(), "box");
  kernelName = "renamed";
  EXPECT_EQ(name.localizedName(), "renamed");

  writeAtomically(file, "PRETTY_HOSTNAME=\"Anna's Box\"\n", 0644);
  EXPECT_EQ(name.localizedName(), "Anna's Box");
  writeAtomically(file, "PRETTY_HOSTNAME=\"Anna's Fox\"\n", 0644);
  EXPECT_EQ(name.localizedName(), "Anna's Fox");
  writeAtomically(file, "PRETTY_HOSTNAME=\"\xff\"\n", 0644);
  EXPECT_EQ(name.localizedName(), "renamed");
  std::filesystem::remove(file);
  EXPECT_EQ(name.localizedName(), "renamed");

  for (const char* unusable : {"", "localhost", "(none)", "\xff"}) {
    kernelName = unusable;
    EXPECT_EQ(name.localizedName(), std::nullopt) << unusable;
  }
}

TEST(HostName, ParsesShellQuotedAssignments) {
  const struct {
    const char* file;
    const char* value;
  } cases[] = {
      {"KEY=plain", "plain"},
      {"OTHER=1\n  KEY=indented\r\n", "indented"},
      {"KEY=\"a \\\"b\\\" \\$c \\\\ \\d\"", "a \"b\" $c \\ \\d"},
      {"KEY='a \\ \"b\"'", "a \\ \"b\""},
      {"KEY=a\\ b", "a b"},
      {"KEY='a'\"b\"c", "abc"},
      {"KEY=first\nKEY=second", "second"},
      {"KEY=first\nKEY=", ""},
      {"#KEY=comment\nKEYS=other\nKEY", ""},
      {"KEY=\"unclosed \\", "unclosed \\"},
      {"", ""},
  };
  for (const auto& [file, value] : cases) {
    EXPECT_EQ(assignedValue(file, "KEY"), value) << file;
  }
}

}  // namespace
}  // namespace glintboard
