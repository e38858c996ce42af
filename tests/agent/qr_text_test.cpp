#include "agent/shell/qr_text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace glintboard {
namespace {

TEST(QrText, DrawsASquareWithItsQuietZone) {
  const std::string drawing = qrHalfBlocks("glintboard://pair?v=1&name=a&code=b");
  const auto lines = std::ranges::count(drawing, '\n');
  EXPECT_EQ(lines, (29 + 8 + 1) / 2) << "version 3 is 29 modules wide";
  EXPECT_TRUE(drawing.ends_with("\033[0m\n"));
  EXPECT_NE(drawing.find("\u2580"), std::string::npos);
  EXPECT_TRUE(qrHalfBlocks("").empty());
  EXPECT_TRUE(qrHalfBlocks(std::string(5000, 'x')).empty());
}

}  // namespace
}  // namespace glintboard
