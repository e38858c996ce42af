// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "agent_core/shortcuts/shortcuts_runner.h"
#include "platform/executors.h"
#include "tests/support/await.h"
#include "tests/support/fakes.h"

namespace glintboard {
namespace {

using test::FakeRunner;

const std::string someShortcut = "0F8FAD5B-D9CB-469F-A165-70867728950E";

TEST(ShortcutsRunner, MapsEveryExitToAResult) {
  using namespace ShortcutRunResult;
  using enum ShortcutErrorCode;
  const char* missing = "Shortcut missing \u2014 replace it in Edit Deck.";
  const char* permission = "Needs permission or input on your Mac.";
  const std::tuple<ProcessRunResult, ShortcutErrorCode, const char*> cases[] = {
      {{1, "", "Error: Shortcut NOT found; no permission"}, notFound, missing},
      {{1, "", "It couldn't find it"}, notFound, missing},
      {{1, "", "does not exist"}, notFound, missing},
      {{1, "", "User Cancelled."}, cancelled, permission},
      {{143, "", ""}, cancelled, permission},
      {{1, "", "Not authorized to send"}, cancelled, permission},
      {{1, "", "privacy settings"}, cancelled, permission},
      {{1, "", "is not allowed"}, cancelled, permission},
      {{1, "", "  Something Broke \n"}, runFailed, "Something Broke"},
      {{1, "out", " \n"}, runFailed, "Could not run Shortcut on Mac."},
      {{0, "", "", true}, timedOut, "Still waiting on your Mac \u2014 check for a dialog."},
  };
  Executors executors;
  FakeRunner runner;
  const auto run = [&](const char* tool = "/bin/true", std::string shortcut = someShortcut) {
    return test::await(executors.service(), ShortcutsRunner(tool, runner).run(std::move(shortcut)));
  };
  for (const auto& [ended, code, message] : cases) {
    runner.result = ended;
    EXPECT_EQ(run(), Result(Error{someShortcut, code, message})) << ended.stderrText;
  }
  runner.result = {0, "", "not found"};
  EXPECT_EQ(run(), Result(Ok{someShortcut}));
  EXPECT_EQ(runner.arguments, (std::vector<std::string>{"run", someShortcut}));
  runner.startFailure = "no processes left";
  EXPECT_EQ(run(), Result(Error{someShortcut, runFailed, "no processes left"}));
  EXPECT_EQ(run("/no/such/tool"), Result(Error{someShortcut, runFailed,
                                               "The shortcuts CLI is not available on this Mac."}));
  runner = {};
  for (const std::string& other : {someShortcut + std::string("\0b", 2), std::string(1, '\0'),
                                   std::string(128 << 10, 'x'), std::string("--help")}) {
    EXPECT_EQ(run("/bin/true", other), Result(Error{other, notFound, missing}));
    EXPECT_TRUE(runner.arguments.empty()) << "it was run";
  }
}

TEST(ShortcutsCatalog, ListsParsedLinesAndReportsFailures) {
  Executors executors;
  FakeRunner runner;
  const ShortcutsCatalog catalog("/bin/true", runner);
  const auto list = [&] { return test::await(executors.service(), catalog.list()); };
  runner.result.stdoutText = "\r\n  Lights (on) (" + someShortcut + ")  \nno identifier (x)\n(" +
                             someShortcut + ")\nTwice (0f8fad5b-d9cb-469f-a165-70867728950e)\n" +
                             "Wrong (0f8fad5bd-9cb-469f-a165-70867728950e)";
  EXPECT_EQ(list(),
            (std::vector<CatalogShortcut>{{"Lights (on)", someShortcut},
                                          {"Twice", "0f8fad5b-d9cb-469f-a165-70867728950e"}}));
  EXPECT_EQ(runner.arguments, (std::vector<std::string>{"list", "--show-identifiers"}));
  runner.result = {0, "nothing to parse", ""};
  EXPECT_TRUE(list().empty());
  runner.result = {3, "", ""};
  EXPECT_THROW(list(), ShortcutsCatalogError);
  runner.result = {0, "", "", true};
  EXPECT_THROW(list(), ShortcutsCatalogError);
}

TEST(ShortcutsCatalog, PrefersTheSuggestedShortcutByItsExactName) {
  const CatalogShortcut similar{"my VOICE for cursor", "1"};
  const CatalogShortcut preferred{std::string(ShortcutsCatalog::heroRecipePreferredName), "2"};
  const CatalogShortcut other{"Voice", "3"};
  EXPECT_EQ(ShortcutsCatalog::findHero({other, similar, preferred}), preferred);
  EXPECT_EQ(ShortcutsCatalog::findHero({other, similar}), similar);
  EXPECT_EQ(ShortcutsCatalog::findHero({other}), std::nullopt);
}

}  // namespace
}  // namespace glintboard
