#include <gtest/gtest.h>

#include <QPainter>
#include <algorithm>
#include <filesystem>

#include "agent/shell/qr_code_image.h"
#include "agent/shell/qr_text.h"
#include "protocol/pairing_qr_payload.h"
#include "tests/agent/menu_fixture.h"

namespace glintboard {
namespace {

TEST(QRCodeImage, IsReadAtEverySizeAndIsNothingForNoText) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
    const auto image = QRCodeImage::make("h\u00e9llo \u2713", 180, ratio);
    EXPECT_EQ(image.width(), qRound(180 * ratio));
    EXPECT_EQ(image.deviceIndependentSize(), QSizeF(180, 180));
    QImage card(image.size() * 1.2, QImage::Format_RGB32);
    card.fill(Qt::white);
    QPainter(&card).drawImage(QPointF(image.width() * 0.1, image.width() * 0.1),
                              QImage(image.constBits(), image.width(), image.height(),
                                     image.bytesPerLine(), image.format()));
    EXPECT_EQ(test::codeIn(card), "h\u00e9llo \u2713\n") << ratio;
  }
  EXPECT_TRUE(QRCodeImage::make("").isNull());
  EXPECT_TRUE(QRCodeImage::make(QString(5000, 'x')).isNull());
}

TEST(QrText, DrawsASquareWithItsQuietZone) {
  const std::string drawing = qrHalfBlocks("glintboard://pair?v=1&name=a&code=b");
  const auto lines = std::ranges::count(drawing, '\n');
  EXPECT_EQ(lines, (29 + 8 + 1) / 2) << "version 3 is 29 modules wide";
  EXPECT_TRUE(drawing.ends_with("\033[0m\n"));
  EXPECT_NE(drawing.find("\u2580"), std::string::npos);
  EXPECT_TRUE(qrHalfBlocks("").empty());
  EXPECT_TRUE(qrHalfBlocks(std::string(5000, 'x')).empty());
}

// In a language of long texts no text of the windows is cut. The modules of the pictures' code are
// black and white alone, at scale factors where the points are not whole pixels too.
TEST(Pictures, ShowEveryTextAndASharpCodeAtEveryScaleFactor) {
  const test::TemporaryFolder folder;
  EXPECT_EQ(std::system((GLINTBOARD_PICTURES " " + folder.path().string() + " pseudo").c_str()), 0);
  int codes = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    const QImage picture(QString::fromStdString(entry.path()));
    const auto text = test::codeIn(picture);
    if (text.empty()) {
      continue;
    }
    ++codes;
    const auto address = PairingQRPayload::parse(text.substr(0, text.size() - 1));
    ASSERT_TRUE(address) << text;
    EXPECT_EQ(address->macName, "Studio");
    // The finder pattern's row through the code's middle.
    int grey = 0;
    const QPoint middle(picture.width() / 2, picture.height() * 2 / 5);
    for (int x = middle.x() - 50; x < middle.x() + 50; ++x) {
      const int level = qGray(picture.pixel(x, middle.y()));
      grey += level > 0 && level < 255 ? 1 : 0;
    }
    EXPECT_EQ(grey, 0) << entry.path();
  }
  EXPECT_GE(codes, 5);
}

}  // namespace
}  // namespace glintboard
