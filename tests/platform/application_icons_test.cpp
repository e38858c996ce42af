// SPDX-License-Identifier: MIT
#include "platform/linux/applications/application_icons.h"

#include <gtest/gtest.h>

#include <QGuiApplication>

#include "tests/platform/applications_test.h"
#include "tests/support/painted.h"

namespace glintboard {
namespace {

class ApplicationIconsTest : public test::IndexTest {
 protected:
  ApplicationIconsTest() {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    application_.emplace(argumentCount_, arguments_);
  }

  std::filesystem::path paint(const std::string& file, QSize size, Qt::GlobalColor colour) {
    return test::paint(desktop_.root, file, colour, size);
  }
  std::filesystem::path drawing(const std::string& attributes, const std::string& content) {
    return desktop_.root.write("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg' " +
                                                  attributes + ">" + content + "</svg>");
  }
  // The bounds of the opaque pixels when the file is drawn into a square of 128 pixels.
  static QRect covered(const std::filesystem::path& file) {
    const QImage image = drawIcon(file, 128);
    EXPECT_EQ(image.size(), QSize(128, 128));
    QRect rect;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (qAlpha(image.pixel(x, y)) > 127) {
          rect |= QRect(x, y, 1, 1);
        }
      }
    }
    return rect;
  }

  void open() {
    IndexTest::open();
    icons_ = applicationIcons(index_, desktop_.folders);
  }
  ApplicationLocation location(const std::string& bundleId) const {
    return {index_->current()->withBundleId(bundleId)->path};
  }
  ContentModification modification(const std::string& bundleId) const {
    return icons_.contentModification(location(bundleId)).value();
  }
  QColor colour(const std::string& bundleId) const {
    const auto image = icons_.image(location(bundleId), 128);
    return image.isNull() ? QColor(Qt::transparent) : image.pixelColor(64, 64);
  }

  int argumentCount_ = 1;
  char name_[5] = "test";
  char* arguments_[2] = {name_, nullptr};
  std::optional<QGuiApplication> application_;
  ApplicationIconClient icons_;
};

TEST_F(ApplicationIconsTest, ScalesAndCentresAnyImage) {
  EXPECT_EQ(covered(paint("small.png", {16, 16}, Qt::red)), QRect(0, 0, 128, 128));
  EXPECT_EQ(covered(paint("wide.png", {512, 256}, Qt::red)), QRect(0, 32, 128, 64));
  EXPECT_EQ(covered(paint("tall.xpm", {20, 80}, Qt::red)), QRect(48, 0, 32, 128));
  EXPECT_EQ(drawIcon(desktop_.root / "wide.png", 64).size(), QSize(64, 64));
  const std::string full = "<rect width='100%' height='100%'/>";
  EXPECT_EQ(covered(drawing("width='20' height='10'", full)), QRect(0, 32, 128, 64));
  EXPECT_EQ(covered(drawing("viewBox='0 0 10 20'", full)), QRect(32, 0, 64, 128));
  EXPECT_FALSE(covered(drawing("", "<rect x='5' y='5' width='10' height='10'/>")).isEmpty())
      << "a drawing without a size";
}

TEST_F(ApplicationIconsTest, RefusesInvalidAndOversizedImages) {
  const auto sparse = paint("sparse.png", {8, 8}, Qt::red);
  std::filesystem::resize_file(sparse, 17u << 20u);
  const auto pipe = desktop_.root / "pipe.png";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  for (const auto& refused :
       {desktop_.root.write("text.png", "not an image"), desktop_.root.write("empty.svg", ""),
        desktop_.root / "absent.png", paint("long.png", {5000, 1}, Qt::red), sparse, pipe}) {
    EXPECT_TRUE(drawIcon(refused, 128).isNull()) << refused;
  }
  const auto huge = drawIcon(drawing("width='900000000' height='3'", "<rect width='9'/>"), 128);
  EXPECT_EQ(huge.size(), QSize(128, 128)) << "a drawing has no size in pixels";
}

TEST_F(ApplicationIconsTest, RefusesDrawingsWithoutAGuiApplication) {
  const auto text = drawing("width='20' height='20'", "<text x='2' y='15'>GM</text>");
  EXPECT_FALSE(drawIcon(text, 128).isNull());
  application_.reset();
  EXPECT_TRUE(drawIcon(text, 128).isNull());
}

TEST_F(ApplicationIconsTest, UsesItsOwnOrTheGenericIconAndSeesChanges) {
  const auto own = paint("own.png", {64, 64}, Qt::green);
  const auto damaged = desktop_.root.write("damaged.png", "not an image");
  desktop_.entry("system/applications/own.desktop", "Icon=" + own.string() + "\n");
  desktop_.entry("system/applications/damaged.desktop", "Icon=" + damaged.string() + "\n");
  desktop_.entry("system/applications/none.desktop", "Icon=no-such-icon\n");
  open();
  EXPECT_EQ(colour("own"), QColor(Qt::green));
  EXPECT_EQ(colour("none"), QColor(Qt::transparent));
  const auto withoutIcon = modification("none");
  EXPECT_EQ(withoutIcon.iconFile, "");
  EXPECT_FALSE(icons_.contentModification({desktop_.root / "absent.desktop"}).has_value());

  const auto first = modification("own");
  EXPECT_EQ(first.iconFile, own);
  EXPECT_EQ(modification("own"), first);
  paint("own.new.png", {64, 64}, Qt::blue);
  std::filesystem::last_write_time(desktop_.root / "own.new.png", first.iconModified);
  std::filesystem::rename(desktop_.root / "own.new.png", own);
  EXPECT_NE(modification("own"), first) << "another file of the same age";
  EXPECT_EQ(colour("own"), QColor(Qt::blue));

  paint("system/icons/hicolor/64x64/apps/application-x-executable.png", {64, 64}, Qt::red);
  EXPECT_TRUE(test::eventually([&] { return modification("none") != withoutIcon; }));
  EXPECT_EQ(colour("none"), QColor(Qt::red));
  EXPECT_EQ(colour("damaged"), QColor(Qt::red));
}

TEST_F(ApplicationIconsTest, FollowsTheSymlinksOfFlatpakAndSnapUpdates) {
  desktop_.folders.dataDirs.push_back(desktop_.root / "flatpak/exports/share");
  desktop_.folders.dataDirs.push_back(desktop_.root / "snapd/desktop");
  const auto link = [&](const std::string& target, const std::string& path) {
    std::filesystem::create_directories((desktop_.root / path).parent_path());
    std::filesystem::create_symlink(target, desktop_.root / "new");
    std::filesystem::rename(desktop_.root / "new", desktop_.root / path);
  };
  const auto flatpak = [&](const std::string& version, Qt::GlobalColor colour) {
    const auto share = "flatpak/app/" + version + "/share/";
    desktop_.entry(share + "applications/org.test.Player.desktop",
                   "Exec=true\nIcon=org.test.Player\n");
    const auto image = "icons/hicolor/128x128/apps/org.test.Player.png";
    paint(share + image, {128, 128}, colour);
    link("../app/" + version + "/share", "flatpak/exports/current");
    link("../../current/applications/org.test.Player.desktop",
         "flatpak/exports/share/applications/org.test.Player.desktop");
    link((desktop_.root / "flatpak/exports/current" / image).string(),
         std::string("flatpak/exports/share/") + image);
  };
  const auto snap = [&](const std::string& version, Qt::GlobalColor colour) {
    paint("snap/tuner/" + version + "/icon.png", {64, 64}, colour);
    link(version, "snap/tuner/current");
  };
  flatpak("1", Qt::red);
  snap("1", Qt::green);
  desktop_.entry(
      "snapd/desktop/applications/tuner_tuner.desktop",
      "Exec=true\nIcon=" + (desktop_.root / "snap/tuner/current/icon.png").string() + "\n");
  open();
  const auto player = modification("org.test.Player");
  const auto tuner = modification("tuner_tuner");
  EXPECT_EQ(colour("org.test.Player"), QColor(Qt::red));
  EXPECT_EQ(colour("tuner_tuner"), QColor(Qt::green));
  flatpak("2", Qt::blue);
  snap("2", Qt::yellow);
  EXPECT_TRUE(test::eventually([&] { return colour("org.test.Player") == QColor(Qt::blue); }));
  EXPECT_NE(modification("org.test.Player"), player);
  EXPECT_EQ(colour("tuner_tuner"), QColor(Qt::yellow));
  EXPECT_NE(modification("tuner_tuner"), tuner);
}

}  // namespace
}  // namespace glintboard
