#include <gtest/gtest.h>

#include <QRawFont>

#include "ui/design/deck_typography.h"

namespace glintboard {
namespace {

using DeckTypography::Family;
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

TEST(DeckTypography, NamesTheFileOfEveryWeight) {
  struct Case {
    Family family;
    Weight weight;
    const char* name;
  };
  const Case cases[] = {{Family::ui, Weight::ultraLight, "SpaceGrotesk-Regular"},
                        {Family::ui, Weight::regular, "SpaceGrotesk-Regular"},
                        {Family::ui, Weight::medium, "SpaceGrotesk-Medium"},
                        {Family::ui, Weight::semibold, "SpaceGrotesk-SemiBold"},
                        {Family::ui, Weight::bold, "SpaceGrotesk-Bold"},
                        {Family::display, Weight::medium, "BarlowCondensed-Medium"},
                        {Family::display, Weight::heavy, "BarlowCondensed-Bold"},
                        {Family::display, Weight::black, "BarlowCondensed-Bold"},
                        {Family::hand, Weight::medium, "Caveat-Regular"},
                        {Family::hand, Weight::semibold, "Caveat-Bold"},
                        {Family::ui, static_cast<Weight>(77), "SpaceGrotesk-Regular"}};
  for (const auto& one : cases) {
    EXPECT_EQ(DeckTypography::postScriptName(one.family, one.weight), one.name);
  }
}

TEST(DeckTypography, DrawsWithTheFileOfTheNamedWeight) {
  EXPECT_TRUE(DeckTypography::registerFonts());
  for (const Weight weight : {Weight::thin, Weight::regular, Weight::medium, Weight::semibold,
                              Weight::bold, Weight::black}) {
    EXPECT_EQ(drawnWith(DeckTypography::ui(TextStyle::body, weight)),
              DeckTypography::postScriptName(Family::ui, weight));
    EXPECT_EQ(drawnWith(DeckTypography::keyLabel(TextStyle::caption, weight)),
              DeckTypography::postScriptName(Family::ui, weight));
    EXPECT_EQ(drawnWith(DeckTypography::hero(30, weight, {})),
              DeckTypography::postScriptName(Family::display, weight));
    EXPECT_EQ(drawnWith(DeckTypography::handCaption(30, weight, {})),
              DeckTypography::postScriptName(Family::hand, weight));
  }
  EXPECT_FALSE(DeckTypography::isPostScriptAvailable("SpaceGrotesk-Heavy"));
  EXPECT_FALSE(DeckTypography::isPostScriptAvailable("NoSuchFont-Regular"));
}

TEST(DeckTypography, SizesFontsByStyleAndTextScale) {
  EXPECT_EQ(DeckTypography::ui(TextStyle::largeTitle).pixelSize(), 34);
  EXPECT_EQ(DeckTypography::mono(TextStyle::title2).pixelSize(), 22);
  EXPECT_EQ(DeckTypography::ui(TextStyle::caption2, Weight::regular, 2).pixelSize(), 22);
  EXPECT_EQ(DeckTypography::ui(12, Weight::regular, TextStyle::body, 1.5).pixelSize(), 18);
  EXPECT_EQ(DeckTypography::ui(12, Weight::regular, {}, 1.5).pixelSize(), 12);
  EXPECT_EQ(DeckTypography::baseSize(static_cast<TextStyle>(77)), 17);
}

}  // namespace
}  // namespace glintboard
