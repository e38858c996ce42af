#include "platform/linux/application_icons.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImageWriter>
#include <thread>

#include "tests/platform/desktop_folders.h"

namespace glintboard {
namespace {

class ApplicationIconsTest : public testing::Test {
 protected:
  ApplicationIconsTest() {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    application_.emplace(argumentCount_, arguments_);
  }

  // Writes an image of one colour.
  std::filesystem::path paint(const std::string& file, QSize size, Qt::GlobalColor colour) {
    const auto path = desktop_.root.write(file, "");
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    EXPECT_TRUE(image.save(QString::fromStdString(path.string())));
    return path;
  }
  std::filesystem::path drawing(const std::string& attributes, const std::string& content) {
    return desktop_.root.write("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg' " +
                                                  attributes + ">" + content + "</svg>");
  }
  // The columns and rows that are not transparent in a square of 128 pixels.
  static QRect covered(const QImage& image) {
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

  int argumentCount_ = 1;
  char name_[5] = "test";
  char* arguments_[2] = {name_, nullptr};
  std::optional<QGuiApplication> application_;
  test::DesktopFolders desktop_;
};

TEST_F(ApplicationIconsTest, FitsAnyImageIntoTheSquareAndCentresIt) {
  EXPECT_EQ(covered(drawIcon(paint("small.png", {16, 16}, Qt::red), 128)), QRect(0, 0, 128, 128));
  EXPECT_EQ(covered(drawIcon(paint("wide.png", {512, 256}, Qt::red), 128)), QRect(0, 32, 128, 64));
  EXPECT_EQ(covered(drawIcon(paint("tall.xpm", {20, 80}, Qt::red), 128)), QRect(48, 0, 32, 128));
  EXPECT_EQ(drawIcon(paint("wide.png", {512, 256}, Qt::red), 64).size(), QSize(64, 64));
  const std::string full = "<rect width='100%' height='100%'/>";
  EXPECT_EQ(covered(drawIcon(drawing("width='20' height='10'", full), 128)), QRect(0, 32, 128, 64));
  EXPECT_EQ(
      covered(drawIcon(drawing("viewBox='0 0 10 20'", "<rect width='10' height='20'/>"), 128)),
      QRect(32, 0, 64, 128));
  EXPECT_FALSE(
      covered(drawIcon(drawing("", "<rect x='5' y='5' width='10' height='10'/>"), 128)).isEmpty())
      << "a drawing without a size";
}

TEST_F(ApplicationIconsTest, RefusesWhatIsNoImageOrTooLarge) {
  EXPECT_TRUE(drawIcon(desktop_.root.write("text.png", "not an image"), 128).isNull());
  EXPECT_TRUE(drawIcon(desktop_.root.write("empty.svg", ""), 128).isNull());
  EXPECT_TRUE(drawIcon(desktop_.root / "absent.png", 128).isNull());
  EXPECT_TRUE(drawIcon(paint("long.png", {5000, 1}, Qt::red), 128).isNull());
  const auto sparse = paint("sparse.png", {8, 8}, Qt::red);
  std::filesystem::resize_file(sparse, 17u << 20u);
  EXPECT_TRUE(drawIcon(sparse, 128).isNull());
  const auto pipe = desktop_.root / "pipe.png";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_TRUE(drawIcon(pipe, 128).isNull());
  const auto huge = drawIcon(drawing("width='900000000' height='3'", "<rect width='9'/>"), 128);
  EXPECT_EQ(huge.size(), QSize(128, 128)) << "a drawing has no pixels of its own";
}

TEST_F(ApplicationIconsTest, WithoutAGuiApplicationADrawingIsRefusedRatherThanFatal) {
  const auto text = drawing("width='20' height='20'", "<text x='2' y='15'>GM</text>");
  EXPECT_FALSE(drawIcon(text, 128).isNull());
  application_.reset();
  EXPECT_TRUE(drawIcon(text, 128).isNull());
}

TEST_F(ApplicationIconsTest, AnApplicationHasItsOwnIconOrTheGenericOneAndChangesAreSeen) {
  const auto own = paint("own.png", {64, 64}, Qt::green);
  const auto damaged = desktop_.root.write("damaged.png", "not an image");
  desktop_.entry("system/applications/own.desktop", "Icon=" + own.string() + "\n");
  desktop_.entry("system/applications/damaged.desktop", "Icon=" + damaged.string() + "\n");
  desktop_.entry("system/applications/none.desktop", "Icon=no-such-icon\n");
  Executors executors;
  const auto index = ApplicationIndex::open(executors, desktop_.folders);
  const auto icons = applicationIcons(index, desktop_.folders);
  const auto location = [&](const std::string& bundleId) {
    return ApplicationLocation{index->current()->withBundleId(bundleId)->path};
  };
  const auto colour = [&](const std::string& bundleId) {
    const auto image = icons.image(location(bundleId), 128);
    return image.isNull() ? QColor(Qt::transparent) : image.pixelColor(64, 64);
  };
  EXPECT_EQ(colour("own"), QColor(Qt::green));
  EXPECT_EQ(colour("none"), QColor(Qt::transparent));
  const auto withoutIcon = icons.contentModification(location("none")).value();
  EXPECT_EQ(withoutIcon.iconFile, "");
  EXPECT_FALSE(icons.contentModification({desktop_.root / "absent.desktop"}).has_value());

  const auto first = icons.contentModification(location("own")).value();
  EXPECT_EQ(first.iconFile, own);
  EXPECT_EQ(icons.contentModification(location("own")), first);
  paint("own.new.png", {64, 64}, Qt::blue);
  std::filesystem::last_write_time(desktop_.root / "own.new.png", first.iconModified);
  std::filesystem::rename(desktop_.root / "own.new.png", own);
  EXPECT_NE(icons.contentModification(location("own")), first) << "another file of the same age";
  EXPECT_EQ(colour("own"), QColor(Qt::blue));

  paint("system/icons/hicolor/64x64/apps/application-x-executable.png", {64, 64}, Qt::red);
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  EXPECT_NE(icons.contentModification(location("none")), withoutIcon);
  EXPECT_EQ(colour("none"), QColor(Qt::red));
  EXPECT_EQ(colour("damaged"), QColor(Qt::red));
  index->stop();
}

}  // namespace
}  // namespace glintboard
