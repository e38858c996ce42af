// SPDX-License-Identifier: MIT
#include "agent/editor/installed_apps_catalog.h"

#include <gmock/gmock.h>

#include <QLocale>

#include "tests/platform/applications_test.h"
#include "tests/support/painted.h"

namespace glintboard {
namespace {

using testing::ElementsAre;

class InstalledAppsCatalogTest : public test::ApplicationsTest {
 protected:
  InstalledAppsCatalogTest() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }
  ~InstalledAppsCatalogTest() override { QLocale::setDefault(QLocale::system()); }

  std::filesystem::path entry(const std::string& id, const std::string& name,
                              const std::string& more = "") {
    return desktop_.root.write(
        "system/applications/" + id + ".desktop",
        "[Desktop Entry]\nType=Application\nExec=true\nName=" + name + "\n" + more);
  }
  std::string image(const std::string& file, QColor color) {
    return "Icon=" + test::paint(desktop_.root, file, color).string() + "\n";
  }
  void start() {
    ApplicationsTest::start();
    catalog_.emplace(executors_->workers(), applications_->listClient(),
                     applications_->iconClient());
  }

  std::optional<InstalledAppsCatalog> catalog_;
};

TEST_F(InstalledAppsCatalogTest, ListsEachApplicationOnceInLocaleOrder) {
  entry("z", "Zebra");
  entry("upper", "TERMINAL");
  entry("lower", "terminal");
  entry("umlaut", "Ärger");
  entry("numbers", "App 10");
  entry("now", "GeForce NOW");
  entry("discord", "Discord");
  entry("com.discordapp.Discord", "Discord by Flatpak");
  entry("helper", "Helper", "NoDisplay=true\n");
  entry("gone", "Gone", "Hidden=true\n");
  entry("wanting", "Wanting", "TryExec=no-such-program\n");
  start();
  const auto apps = catalog_->scanBundles();
  std::vector<std::string> found;
  for (const auto& app : apps) {
    found.push_back(app.label + ": " + app.bundleId);
  }
  EXPECT_THAT(found, ElementsAre("App 10: numbers", "Ärger: umlaut", "Discord: com.hnc.Discord",
                                 "Discord by Flatpak: com.discordapp.Discord", "GeForce NOW: now",
                                 "terminal: lower", "TERMINAL: upper", "Zebra: z"));
  EXPECT_EQ(apps[4].iconName, "geforcenow");
  EXPECT_FALSE(appBundleInfo({"Nameless", "", {}}));
}

TEST_F(InstalledAppsCatalogTest, GivesEachApplicationItsIconAndAccent) {
  entry("red", "Red", image("red.png", Qt::red));
  entry("same", "Same", image("red.png", Qt::red));
  entry("clear", "Clear", image("clear.png", Qt::transparent));
  entry("none", "None");
  start();
  const auto apps = test::await(executors_->service(), catalog_->load(workspace_));
  ASSERT_EQ(apps.size(), 4U);
  EXPECT_EQ(apps[2].icon.size(), QSize(128, 128));
  EXPECT_EQ(apps[2].icon.deviceIndependentSize(), QSizeF(64, 64));
  EXPECT_EQ(apps[2].accent, QColor(Qt::red));
  EXPECT_EQ(apps[3].icon.cacheKey(), apps[2].icon.cacheKey()) << "a shared icon is drawn once";
  EXPECT_EQ(apps[0].accent, fallbackAccent());
  EXPECT_TRUE(apps[1].icon.isNull()) << "no theme has a generic icon";
}

TEST_F(InstalledAppsCatalogTest, IdentifiesTheApplicationOfADroppedLauncher) {
  const auto path = entry("discord", "Discord");
  entry("vendor/deep", "Deep");
  start();
  const auto root = desktop_.root.path();
  EXPECT_EQ(catalog_->bundleIdOf(path), "com.hnc.Discord");
  EXPECT_EQ(catalog_->bundleIdOf(root / "home/Desktop/discord.desktop"), "com.hnc.Discord");
  EXPECT_EQ(catalog_->bundleIdOf(root / "system/applications/vendor/deep.desktop"), "vendor-deep");
  EXPECT_FALSE(catalog_->bundleIdOf(root / "home/Desktop/unknown.desktop"));
  EXPECT_FALSE(catalog_->bundleIdOf(root / "home/Desktop/discord"));
}

}  // namespace
}  // namespace glintboard
