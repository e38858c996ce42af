#include <future>

#include "protocol/text.h"
#include "tests/tools/shortcuts/tool_test.h"

namespace glintboard {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

using ShortcutsTool = test::ToolTest;

TEST_F(ShortcutsTool, KeepsWhatTheUserMakesChangesAndDeletes) {
  EXPECT_EQ(tool({"list"}).stdoutText, "");
  const std::string command = "printf '%s\\n' \"a\\tb\"  # ü\necho done";
  const auto tea = create("Make tea (green)", command);
  const auto boil = create("Boil", "true");
  EXPECT_EQ(tool({"list"}).stdoutText, "Boil\nMake tea (green)\n");
  const auto listed = tool({"list", "--show-identifiers"}).stdoutText;
  EXPECT_EQ(ShortcutsCatalog::parseListOutput(listed),
            (std::vector<CatalogShortcut>{{"Boil", boil}, {"Make tea (green)", tea}}));
  EXPECT_THAT(tool({"show", lowercased(tea)}).stdoutText, HasSubstr(command));
  EXPECT_EQ(tool({"run", tea}).stdoutText, "a\\tb\ndone\n");

  EXPECT_EQ(tool({"edit", "Boil", "--name", "--", "--icon=kettle"}).exitCode, 0);
  EXPECT_THAT(tool({"show", "--", "--"}).stdoutText,
              AllOf(HasSubstr("Name:       --\n"), HasSubstr("Icon:       kettle\n")));
  EXPECT_EQ(tool({"edit", boil, "--icon", ""}).exitCode, 0);
  EXPECT_EQ(readWholeFile(fileOf(boil)), "[Shortcut]\nName=--\nCommand=true\n");

  EXPECT_EQ(tool({"delete", tea}).exitCode, 0);
  EXPECT_EQ(tool({"list"}).stdoutText, "--\n");
}

TEST_F(ShortcutsTool, RefusesWhatMakesNoSenseAndChangesNothing) {
  const auto tea = create("Tea", "true");
  const auto before = readWholeFile(fileOf(tea));
  const std::vector<std::string> wrongUsage[] = {
      {},
      {"brew"},
      {"run"},
      {"list", "--all"},
      {"list", "--show-identifiers=yes"},
      {"create", "Milk"},
      {"create", "Milk", "--command"},
      {"edit", "Tea"},
      {"edit", "Tea", "--name", "a", "--name", "b"},
  };
  for (const auto& words : wrongUsage) {
    const auto result = tool(words);
    EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(words);
    EXPECT_THAT(result.stderrText, HasSubstr("Try \"shortcuts help\""));
  }
  const std::vector<std::string> impossible[] = {
      {"create", "Tea", "--command", "true"},
      {"create", " ", "--command", "true"},
      {"create", "Milk", "--command", ""},
      {"create", "\xff", "--command", "true"},
      {"edit", "Tea", "--command", " "},
      {"edit", "Milk", "--name", "Coffee"},
      {"delete", "Milk"},
      {"show", tea.substr(1)},
  };
  for (const auto& words : impossible) {
    const auto result = tool(words);
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(words);
    EXPECT_NE(result.stderrText, "");
  }
  EXPECT_EQ(tool({"list"}).stdoutText, "Tea\n");
  EXPECT_EQ(readWholeFile(fileOf(tea)), before);
  EXPECT_EQ(tool({"edit", "Tea", "--name", "Tea"}).exitCode, 0) << "its own name is not taken";
}

TEST_F(ShortcutsTool, SkipsDamagedFilesWithoutTouchingThem) {
  const auto tea = create("Tea", "true");
  const std::string id = "0F8FAD5B-D9CB-469F-A165-70867728950";
  const std::pair<std::string, std::string> damaged[] = {
      {id + "0", "not a key file"},
      {id + "1", "[Shortcut]\nName=No command\n"},
      {id + "2", "[Shortcut]\nCommand=true\n"},
      {id + "3", "[Shortcut]\nName=Bad escape\nCommand=\\d\n"},
      {id + "4", "[Shortcut]\nName=\xff\nCommand=true\n"},
      {"no-uuid", "[Shortcut]\nName=No identifier\nCommand=true\n"},
      {lowercased(tea), "[Shortcut]\nName=Twice\nCommand=true\n"},
  };
  for (const auto& [name, content] : damaged) {
    desktop_.root.write(fileOf(name), content);
  }
  desktop_.root.write(shortcutsFolder() / (tea + ".shortcut.Ab12Cd"), "half written");
  const auto listed = tool({"list"});
  EXPECT_EQ(listed.exitCode, 0);
  EXPECT_EQ(listed.stdoutText, "Tea\n");
  EXPECT_EQ(std::ranges::count(listed.stderrText, '\n'), 7) << listed.stderrText;
  for (const auto& [name, content] : damaged) {
    EXPECT_THAT(listed.stderrText, HasSubstr("Skipped " + fileOf(name).string() + ": "));
  }
  for (const auto* command : {"run", "delete", "show"}) {
    const auto result = tool({command, id + "1"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.stderrText, AllOf(HasSubstr("has no Command"), Not(HasSubstr("not found"))));
  }
  for (const auto& [name, content] : damaged) {
    EXPECT_EQ(readWholeFile(fileOf(name)), content);
  }
}

TEST_F(ShortcutsTool, AChangeKeepsWhatOthersWroteIntoTheFile) {
  const auto tea = create("Tea", "true");
  desktop_.root.write(fileOf(tea),
                      "[Shortcut]\n# Mine\nName=Tea\nName[de]=Tee\nCommand=true\nX-Note=hot\n");
  EXPECT_EQ(tool({"edit", tea, "--command", "false"}).exitCode, 0);
  EXPECT_EQ(readWholeFile(fileOf(tea)),
            "[Shortcut]\n# Mine\nName=Tea\nName[de]=Tee\nCommand=false\nX-Note=hot\n");
}

TEST_F(ShortcutsTool, ChangesMadeAtOnceAreAllKept) {
  const auto tea = create("Tea", "true");
  std::vector<std::future<ProcessRunResult>> changes;
  const auto start = [&](std::vector<std::string> words) {
    changes.push_back(std::async(std::launch::async, [this, words] { return tool(words); }));
  };
  for (int i = 0; i < 5; ++i) {
    start({"edit", tea, "--name", "Green tea"});
    start({"edit", tea, "--command", "echo green"});
    start({"edit", tea, "--icon", "leaf"});
    start({"create", "Cup " + std::to_string(i), "--command", "true"});
    start({"create", "Only one", "--command", "true"});
  }
  int failed = 0;
  for (auto& change : changes) {
    failed += change.get().exitCode == 0 ? 0 : 1;
  }
  EXPECT_EQ(failed, 4) << "the name of one Shortcut is taken once";
  EXPECT_EQ(readWholeFile(fileOf(tea)),
            "[Shortcut]\nName=Green tea\nCommand=echo green\nIcon=leaf\n");
  EXPECT_EQ(tool({"list"}).stdoutText, "Cup 0\nCup 1\nCup 2\nCup 3\nCup 4\nGreen tea\nOnly one\n");
}

}  // namespace
}  // namespace glintboard
