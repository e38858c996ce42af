#include <gtest/gtest.h>

#include <QDir>
#include <QFontDatabase>
#include <QRawFont>

#include "ui/design/deck_typography.h"

namespace glintboard {
namespace {

using DeckTypography::TextStyle;
using DeckTypography::Weight;

// The PostScript name in the file that Qt really draws the font with: record 6 of its name table.
QString drawnWith(const QFont& font) {
  const QByteArray table = QRawFont::fromFont(font).fontTable("name");
  const auto word = [&](qsizetype at) {
    return table.size() < at + 2
               ? 0
               : static_cast<quint8>(table[at]) << 8 | static_cast<quint8>(table[at + 1]);
  };
  for (int record = 0; record < word(2); ++record) {
    const qsizetype at = 6 + 12 * record;
    if (word(at) == 3 && word(at + 6) == 6) {
      QString name;
      for (int i = 0; i < word(at + 8); i += 2) {
        name += QChar(word(word(4) + word(at + 10) + i));
      }
      return name;
    }
  }
  return {};
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
    EXPECT_EQ(drawnWith(font), name);
  }
}

TEST(DeckTypography, WithoutItsFilesTheSystemsFontsStandIn) {
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
