// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "agent/menu/qr_code_image.h"
#include "agent/menu/qr_text.h"
#include "protocol/pairing_qr_payload.h"
#include "tests/agent/menu_fixture.h"

namespace glintboard {
namespace {

TEST(QRCode, HasAQuietZoneAndIsEmptyForTooMuchText) {
  const std::string drawing = qrHalfBlocks("glintboard://pair?v=1&name=a&code=b");
  EXPECT_EQ(std::ranges::count(drawing, '\n'), (29 + 8 + 1) / 2) << "version 3 has 29 modules";
  EXPECT_NE(drawing.find("\u2580"), std::string::npos);
  for (const int length : {0, 5000}) {
    EXPECT_TRUE(qrHalfBlocks(std::string(length, 'x')).empty());
    EXPECT_TRUE(QRCodeImage::make(QString(length, 'x')).isNull());
  }
}

// In the pseudo-language no text is truncated. The modules of the QR codes are purely black and
// white, at fractional scale factors too.
TEST(Pictures, TruncateNoTextAndDrawSharpCodes) {
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
    // A row of pixels through the middle of the code.
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
