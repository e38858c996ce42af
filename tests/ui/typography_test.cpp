// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QFontDatabase>
#include <QRawFont>

#include "ui/design/deck_typography.h"

namespace glintboard {
namespace {

using DeckTypography::TextStyle;
using DeckTypography::Weight;

// Whether Qt draws the font with the file of that PostScript name, which its name table contains.
bool isDrawnWith(const QFont& font, const char* postScriptName) {
  QByteArray utf16;
  for (; *postScriptName != 0; ++postScriptName) {
    utf16.append('\0').append(*postScriptName);
  }
  return QRawFont::fromFont(font).fontTable("name").contains(utf16);
}

TEST(DeckTypography, DrawsWithTheFileOfTheNamedWeight) {
  EXPECT_TRUE(DeckTypography::registerFonts());
  const std::pair<QFont, const char*> cases[] = {
      {DeckTypography::ui(TextStyle::body, Weight::thin), "SpaceGrotesk-Regular"},
      {DeckTypography::ui(TextStyle::body, Weight::medium), "SpaceGrotesk-Medium"},
      {DeckTypography::ui(TextStyle::body, Weight::bold), "SpaceGrotesk-Bold"},
      {DeckTypography::keyLabel(TextStyle::caption, Weight::semibold), "SpaceGrotesk-SemiBold"},
      {DeckTypography::hero(30, Weight::medium, {}), "BarlowCondensed-Medium"},
      {DeckTypography::hero(30, Weight::black, {}), "BarlowCondensed-Bold"},
      {DeckTypography::handCaption(30, Weight::medium, {}), "Caveat-Regular"},
      {DeckTypography::handCaption(30, Weight::semibold, {}), "Caveat-Bold"}};
  for (const auto& [font, name] : cases) {
    EXPECT_TRUE(isDrawnWith(font, name)) << name;
  }
}

TEST(DeckTypography, FallsBackToTheSystemFont) {
  DeckTypography::registerFonts();
  EXPECT_EQ(DeckTypography::ui(TextStyle::body).family(), "Space Grotesk");
  QFontDatabase::removeAllApplicationFonts();
  const QFont body = DeckTypography::ui(TextStyle::body);
  EXPECT_EQ(body.family(), QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
  EXPECT_EQ(body.pixelSize(), 17);
  for (const auto& file : QDir(":/Glintboard_GlintboardUI.bundle/Fonts").entryInfoList()) {
    QFontDatabase::addApplicationFont(file.filePath());
  }
  EXPECT_EQ(DeckTypography::ui(TextStyle::body).family(), "Space Grotesk");
}

}  // namespace
}  // namespace glintboard
