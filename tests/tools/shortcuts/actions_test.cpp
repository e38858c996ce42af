#include "tests/support/session_bus.h"
#include "tests/tools/shortcuts/tool_test.h"

namespace glintboard {
namespace {

using testing::HasSubstr;

class ApplicationActions : public test::ToolTest {
 protected:
  // The identifiers of the listed Shortcuts by name.
  std::map<std::string, std::string> listed() {
    std::map<std::string, std::string> identifiers;
    for (auto& shortcut :
         ShortcutsCatalog::parseListOutput(tool({"list", "--show-identifiers"}).stdoutText)) {
      identifiers[shortcut.name] = shortcut.identifier;
    }
    return identifiers;
  }
};

TEST_F(ApplicationActions, AreOfferedUnderIdentifiersThatStayTheSame) {
  const std::string action =
      "Actions=new;nameless;\n[Desktop Action new]\nName=New Window\nExec=x\n";
  desktop_.entry("system/applications/org.test.Browser.desktop", "Exec=true\n" + action);
  desktop_.entry("system/applications/other.desktop", "Exec=true\n" + action);
  desktop_.entry("system/applications/unlisted.desktop", "NoDisplay=true\n" + action);
  desktop_.entry("system/applications/deleted.desktop", "Hidden=true\n" + action);
  EXPECT_EQ(listed(), (std::map<std::string, std::string>{
                          {"org.test.Browser: New Window", "51FA575F-895A-5356-A4BE-5F4B8AA67453"},
                          {"other: New Window", "EE920191-F010-51E2-9BD9-78B054599A58"}}));
}

TEST_F(ApplicationActions, StartTheApplicationInASessionOfItsOwn) {
  const auto program = desktop_.program(
      "bin/browser",
      "#!/bin/sh\n" + desktop_.report("report",
                                      "echo \"$@\"; pwd; ls -l /proc/$$/fd; "
                                      "[ $(ps -o sid= -p $$) -eq $$ ] && echo leads its session"));
  desktop_.entry("system/applications/browser.desktop",
                 "Exec=false\nPath=/usr\nActions=private;lost;\n"
                 "[Desktop Action private]\nName=Private\nExec=" +
                     program.string() + " --private \"two words\" %U\n" +
                     "[Desktop Action lost]\nName=Lost\nExec=/no/such/program\n");
  EXPECT_EQ(tool({"run", listed().at("browser: Private")}).exitCode, 0);
  const auto report = desktop_.reported("report");
  EXPECT_THAT(report, HasSubstr("--private two words\n/usr\n"));
  EXPECT_THAT(report, HasSubstr("1 -> /dev/null"));
  EXPECT_THAT(report, HasSubstr("2 -> /dev/null"));
  EXPECT_THAT(report, HasSubstr("leads its session"));

  const auto lost = tool({"run", "browser: Lost"});
  EXPECT_EQ(lost.exitCode, 1);
  EXPECT_THAT(lost.stderrText, HasSubstr("names no program that is installed"));
  for (const std::vector<std::string>& words : {std::vector<std::string>{"delete", "browser: Lost"},
                                                {"edit", "browser: Lost", "--name", "x"}}) {
    const auto refused = tool(words);
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_THAT(refused.stderrText, HasSubstr("belongs to an application"));
  }
}

TEST_F(ApplicationActions, AreActivatedOverTheBusWhereTheEntryAsksForIt) {
  const test::SessionBus bus;
  bus.install("org.test.Editor", desktop_.root / "log");
  const std::string action =
      "DBusActivatable=true\nActions=new-file;\n"
      "[Desktop Action new-file]\nName=New File\n";
  desktop_.entry("system/applications/org.test.Editor.desktop", action);
  desktop_.entry("system/applications/org.test.Nobody.desktop", action);
  EXPECT_EQ(tool({"run", "org.test.Editor: New File"}).stderrText, "");
  EXPECT_EQ(desktop_.reported("log"), "ActivateAction /org/test/Editor ('new-file', [], {})\n");
  EXPECT_EQ(tool({"run", "org.test.Nobody: New File"}).exitCode, 1);
}

}  // namespace
}  // namespace glintboard
