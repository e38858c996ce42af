#include <gtest/gtest.h>

#include "agent_core/icons/app_icon_provider.h"
#include "agent_core/icons/shortcut_icon_provider.h"
#include "platform/executors.h"
#include "tests/support/await.h"
#include "tests/support/fake_desktop.h"

namespace glintboard {
namespace {

QImage square(int side, QColor colour) {
  QImage image(side, side, QImage::Format_ARGB32);
  image.fill(colour);
  return image;
}

TEST(AppIconProvider, RendersOnceForEachChangeOfTheApplication) {
  Executors executors;
  test::FakeDesktop desktop;
  int rendered = 0;
  std::optional<ContentModification> modified = ContentModification{};
  QImage image = square(iconSide, Qt::red);
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

  modified = std::nullopt;  // unreadable, and it stays so
  image = square(iconSide, Qt::blue);
  EXPECT_NE(get()->revision, first->revision);
  const auto revisions =
      test::await(executors.service(), provider.revisions({"a", "absent"}, workspace));
  EXPECT_EQ(revisions, (std::map<std::string, std::string>{{"a", get()->revision}}));
  EXPECT_EQ(rendered, 3);

  modified = ContentModification{};
  image = {};
  EXPECT_FALSE(get()) << "an application whose icon is gone has none";
}

TEST(ShortcutIconProvider, CachesUnderTheIdentifierInAnyLetterCase) {
  Executors executors;
  const std::string upper = "0F8FAD5B-D9CB-469F-A165-70867728950E";
  const std::string lower = ShortcutIconProvider::normalizedKey(upper);
  int asked = 0;
  QColor colour = Qt::red;
  ShortcutIconProvider provider(
      executors.workerStrand(),
      {[&](const std::string& identifier, int side) {
         return ++asked, identifier == "unknown" ? QImage() : square(2 * side, colour);
       },
       [&](int side) {
         return std::vector<ShortcutIconClient::Icon>{{upper, square(side, colour)},
                                                      {"no identifier", square(side, colour)}};
       }});
  const auto run = [&](auto operation) {
    return test::await(executors.service(), std::move(operation));
  };
  EXPECT_EQ(run(provider.cachedPNG(upper)), std::nullopt);
  const auto icon = run(provider.pngAndRevision(upper));
  ASSERT_TRUE(icon);
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(icon->data)).width(), iconSide);
  EXPECT_EQ(run(provider.revision(lower)), icon->revision);
  EXPECT_EQ(asked, 1);
  EXPECT_FALSE(run(provider.pngAndRevision("unknown")));
  EXPECT_FALSE(run(provider.pngAndRevision("unknown")));
  EXPECT_EQ(asked, 3) << "what is missing is looked for again";

  colour = Qt::blue;
  const auto loaded = run(provider.preloadAll());
  ASSERT_EQ(loaded.size(), 1u);
  EXPECT_EQ(run(provider.cachedPNG(upper)), loaded.at(lower));
  EXPECT_NE(run(provider.revision(upper)), icon->revision);
}

}  // namespace
}  // namespace glintboard
