// SPDX-License-Identifier: MIT
#include "platform/linux/applications/application_index.h"

#include <gmock/gmock.h>

#include "tests/platform/applications_test.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class ApplicationIndexTest : public test::IndexTest {
 protected:
  // "bundle id: entry file below the root" for each installed application.
  std::vector<std::string> installed() const {
    std::vector<std::string> found;
    const auto applications = index_->current();
    for (const auto& entry : applications->all()) {
      found.push_back(entry.id + ": " +
                      entry.path.lexically_relative(desktop_.root.path()).string());
      EXPECT_EQ(applications->withBundleId(entry.id), &entry);
      EXPECT_EQ(applications->atPath(entry.path), &entry);
    }
    return found;
  }
  // Waits until the live index has an identifier, or no longer has it.
  bool becomes(const std::string& bundleId, bool present) const {
    return test::eventually(
        [&] { return (index_->current()->withBundleId(bundleId) != nullptr) == present; });
  }
};

TEST_F(ApplicationIndexTest, FirstFolderWithAnIdTakesPrecedence) {
  const std::string mine = "home/data/applications/";
  const std::string local = "local/applications/";
  const std::string system = "system/applications/";
  for (const auto& folder : {mine, local, system}) {
    desktop_.entry(folder + "twice.desktop", "Exec=true\n");
  }
  desktop_.entry(local + "masked.desktop", "Exec=true\nHidden=true\n");
  desktop_.entry(system + "masked.desktop", "Exec=true\n");
  desktop_.root.write(mine + "damaged.desktop", "no group\n");
  desktop_.entry(system + "damaged.desktop", "Exec=true\n");
  desktop_.entry(system + "not-in-menus.desktop", "Exec=true\nNoDisplay=true\n");
  desktop_.entry(system + "tried.desktop", "Exec=true\nTryExec=/bin/sh\n");
  desktop_.entry(system + "tried-in-vain.desktop", "Exec=true\nTryExec=no-such-program\n");
  desktop_.entry(system + "no-program.desktop", "Exec=no-such-program\n");
  desktop_.entry(system + "vendor/deep/er.desktop", "Exec=true\n");
  desktop_.root.write(system + "link.desktop", "[Desktop Entry]\nType=Link\nName=l\nURL=a:b\n");
  desktop_.root.write(system + "mimeinfo.cache", "");
  std::filesystem::create_directory_symlink("..", desktop_.root / (system + "vendor/loop"));
  open();
  EXPECT_THAT(installed(),
              ElementsAre("no-program: system/applications/no-program.desktop",
                          "not-in-menus: system/applications/not-in-menus.desktop",
                          "tried: system/applications/tried.desktop",
                          "twice: home/data/applications/twice.desktop",
                          "vendor-deep-er: system/applications/vendor/deep/er.desktop"));
  EXPECT_TRUE(index_->current()->withBundleId("not-in-menus")->noDisplay);
}

TEST_F(ApplicationIndexTest, ReadsEveryFieldOfAnEntry) {
  desktop_.entry("system/applications/org.test.Full.desktop",
                 "Name[C]=Full Name\nIcon=full\nStartupWMClass=FullClass\nDBusActivatable=true\n"
                 "Exec=\"/opt/my app/run\" --fixed \"a \\\\\"b\\\\\"\" --title=%c 100%% %U\n");
  desktop_.root.write("system/applications/vendor/nameless.desktop",
                      "[Desktop Entry]\nType=Application\n");
  desktop_.entry("system/applications/empty.desktop", "Name=\n");
  open();
  const auto applications = index_->current();
  const auto* entry = applications->withBundleId("org.test.Full");
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(entry->name, "Full Name");
  EXPECT_EQ(entry->icon, "full");
  EXPECT_EQ(entry->startupWmClass, "FullClass");
  EXPECT_TRUE(entry->dbusActivatable);
  EXPECT_THAT(entry->command, ElementsAre("/opt/my app/run", "--fixed", "a \"b\"", "100%"));
  EXPECT_EQ(applications->withBundleId("vendor-nameless")->name, "nameless");
  EXPECT_EQ(applications->withBundleId("empty")->name, "");
}

TEST_F(ApplicationIndexTest, NoticesChangesInFoldersThatAppearLater) {
  open();
  EXPECT_THAT(installed(), ElementsAre());
  desktop_.entry("home/data/applications/new.desktop", "Exec=true\n");
  EXPECT_TRUE(becomes("new", true)) << "several parent folders were missing";
  desktop_.entry("home/data/applications/sub/folder/other.desktop", "Exec=true\n");
  EXPECT_TRUE(becomes("sub-folder-other", true));
  desktop_.entry("home/data/applications/new.desktop", "Exec=true\nHidden=true\n");
  EXPECT_TRUE(becomes("new", false));
  std::filesystem::rename(desktop_.root / "home/data/applications/sub", desktop_.root / "away");
  EXPECT_TRUE(becomes("sub-folder-other", false));
  std::filesystem::remove_all(desktop_.root / "home");
  desktop_.entry("home/data/applications/again.desktop", "Exec=true\n");
  EXPECT_TRUE(becomes("again", true)) << "the folder was removed and created again";
}

TEST_F(ApplicationIndexTest, FollowsChangesOfDefaultApplications) {
  for (const std::string id : {"thunar", "mine", "foot", "term"}) {
    desktop_.entry("system/applications/" + id + ".desktop", "Exec=true\n");
  }
  desktop_.root.write("home/config/xfce4/helpers.rc", "");
  desktop_.folders.currentDesktop = "KDE:XFCE";
  open();
  const std::string finder = "com.apple.finder";
  const std::string terminal = "com.apple.Terminal";
  const std::string folders = "[Default Applications]\ninode/directory=";
  const struct {
    const char* file;
    std::string content;
    std::string role, id;
  } steps[] = {
      {"unrelated", "", finder, "thunar"},
      {"mimeapps.list", folders + "mine.desktop\n", finder, "mine"},
      {"mimeapps.list", folders + "thunar.desktop\n", finder, "thunar"},
      {"unrelated", "", terminal, "foot"},
      {"xfce4/helpers.rc", "TerminalEmulator=term\n", terminal, "term"},
      {"kdeglobals", "[General]\nTerminalService=foot.desktop\n", terminal, "foot"},
      {"xdg-terminals.list", "term.desktop\n", terminal, "term"},
  };
  for (const auto& step : steps) {
    desktop_.root.write(std::string("home/config/") + step.file, step.content);
    EXPECT_TRUE(test::eventually([&] {
      return index_->current()->withBundleId(step.role)->id == step.id;
    })) << step.file;
  }
  const auto before = index_->current();
  desktop_.root.write("home/config/otherrc", "");
  std::this_thread::sleep_for(300ms);
  EXPECT_EQ(index_->current(), before) << "other settings cause no scan";
}

}  // namespace
}  // namespace glintboard
