// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "agent_core/icons/app_icon_provider.h"
#include "agent_core/icons/shortcut_icon_provider.h"
#include "platform/executors.h"
#include "tests/support/await.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/painted.h"

namespace glintboard {
namespace {

TEST(AppIconProvider, RendersOncePerModification) {
  Executors executors;
  test::FakeDesktop desktop;
  int rendered = 0;
  std::optional<ContentModification> modified = ContentModification{};
  QImage image = test::painted(Qt::red, {iconSide, iconSide});
  AppIconProvider provider(executors.workerStrand(),
                           {[&](const ApplicationLocation&) { return modified; },
                            [&](const ApplicationLocation&, int) { return ++rendered, image; }});
  const WorkspaceClient workspace = desktop.client();
  const auto get = [&] {
    return test::await(executors.service(), provider.pngAndRevision("a", workspace));
  };

  EXPECT_FALSE(get());
  desktop.installed = {"a"};
  const auto first = get();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->revision, AppIconProvider::revision(first->data));
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(first->data)).size(), QSize(128, 128));
  EXPECT_EQ(get()->data, first->data);
  EXPECT_EQ(rendered, 1);

  modified->iconInode = 7;
  EXPECT_EQ(get()->revision, first->revision);
  EXPECT_EQ(rendered, 2);

  modified = std::nullopt;  // unreadable from now on
  image = test::painted(Qt::blue, {iconSide, iconSide});
  EXPECT_NE(get()->revision, first->revision);
  const auto revisions =
      test::await(executors.service(), provider.revisions({"a", "absent"}, workspace));
  EXPECT_EQ(revisions, (std::map<std::string, std::string>{{"a", get()->revision}}));
  EXPECT_EQ(rendered, 3);

  modified = ContentModification{};
  image = {};
  EXPECT_FALSE(get()) << "there is no image";
}

// One Shortcut and an icon without an identifier. Counts how often icons are drawn.
struct SomeShortcuts {
  std::string identifier = "0F8FAD5B-D9CB-469F-A165-70867728950E";
  std::string stamp = "red";
  QColor colour = Qt::red;
  int drawn = 0;

  ShortcutIconClient client() {
    return {[this](const std::string& asked) {
              return ShortcutIconProvider::normalizedKey(asked) ==
                             ShortcutIconProvider::normalizedKey(identifier)
                         ? std::optional(icon(identifier))
                         : std::nullopt;
            },
            [this] {
              return std::vector{icon(identifier), icon("no identifier"),
                                 icon("1F8FAD5B-D9CB-469F-A165-70867728950E")};
            }};
  }

 private:
  ShortcutIconClient::Icon icon(const std::string& of) {
    return {of, stamp,
            [this](int side) { return ++drawn, test::painted(colour, {2 * side, 2 * side}); }};
  }
};

struct ShortcutIconProviderTest : testing::Test {
  auto run(auto operation) { return test::await(executors.service(), std::move(operation)); }

  Executors executors;
  SomeShortcuts shortcuts;
  ShortcutIconProvider provider{executors.workerStrand(), shortcuts.client()};
};

TEST_F(ShortcutIconProviderTest, CacheIgnoresTheCaseOfIdentifiers) {
  const std::string key = ShortcutIconProvider::normalizedKey(shortcuts.identifier);
  EXPECT_EQ(run(provider.cachedPNG(key)), std::nullopt);
  const auto icon = run(provider.pngAndRevision(shortcuts.identifier));
  ASSERT_TRUE(icon);
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(icon->data)).width(), iconSide);
  EXPECT_EQ(run(provider.revision(key)), icon->revision);
  EXPECT_EQ(shortcuts.drawn, 1);
  shortcuts.identifier = "another";
  EXPECT_FALSE(run(provider.pngAndRevision("unknown")));
  shortcuts.identifier = "unknown";
  EXPECT_TRUE(run(provider.pngAndRevision("unknown"))) << "a missing icon is looked up again";
}

TEST_F(ShortcutIconProviderTest, PreloadRendersOnlyChangedIcons) {
  const auto first = run(provider.revision(shortcuts.identifier));
  const auto loaded = run(provider.preloadAll());
  EXPECT_EQ(loaded.size(), 2u) << "all that have an identifier";
  EXPECT_EQ(shortcuts.drawn, 2);
  EXPECT_EQ(run(provider.preloadAll()), loaded);
  EXPECT_EQ(shortcuts.drawn, 2);

  shortcuts.stamp = "blue";
  shortcuts.colour = Qt::blue;
  EXPECT_EQ(run(provider.revision(shortcuts.identifier)), first) << "kept until the next preload";
  const auto changed = run(provider.preloadAll());
  EXPECT_EQ(shortcuts.drawn, 3) << "icons of one stamp are rendered once";
  const std::string key = ShortcutIconProvider::normalizedKey(shortcuts.identifier);
  EXPECT_NE(changed.at(key), loaded.at(key));
  EXPECT_EQ(run(provider.cachedPNG(key)), changed.at(key));
  EXPECT_NE(run(provider.revision(key)), first);
}

}  // namespace
}  // namespace glintboard
