// SPDX-License-Identifier: MIT
#include "ui/design/deck_typography.h"

#include <QCoreApplication>
#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHash>
#include <algorithm>
#include <cmath>

#include "ui/design/bundle_finder.h"

namespace glintboard::DeckTypography {

namespace {

bool registerFolder(const QString& folder) {
  bool good = true;
  const auto files = QDir(folder).entryInfoList(QDir::Files);
  for (const auto& file : files) {
    if (file.suffix().toLower() == u"ttf") {
      good = QFontDatabase::addApplicationFont(file.filePath()) >= 0 && good;
    }
  }
  return good;
}

bool registerAll() {
  const bool bundled = registerFolder(BundleFinder::resourceBundle() + "/Fonts");
  return registerFolder(QCoreApplication::applicationDirPath() + "/Fonts") && bundled;
}

// The family name in the font files.
QString familyName(Family family) {
  switch (family) {
    case Family::ui:
      return QStringLiteral("Space Grotesk");
    case Family::display:
      return QStringLiteral("Barlow Condensed");
    case Family::hand:
      return QStringLiteral("Caveat");
  }
  return {};
}

QFont sized(QFont font, double size, int weight) {
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(size))));
  font.setWeight(static_cast<QFont::Weight>(weight));
  return font;
}

// The weight of the file that `postScriptName` chooses.
int fileWeight(Family family, Weight weight) {
  const int wanted = number(weight);
  if (family == Family::hand) {
    return wanted >= 600 ? 700 : 400;
  }
  return wanted <= 450 ? 400 : wanted <= 550 ? 500 : wanted <= 650 ? 600 : 700;
}

// Caches the answers until the fonts of the system or of this process change: listing the fonts is
// slow, and every text of a window needs an answer.
bool isKnownAvailable(const QString& name) {
  static QHash<QString, bool> answers;
  [[maybe_unused]] static const auto changes =
      QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, [] { answers.clear(); });
  const auto known = answers.constFind(name);
  return known != answers.cend() ? *known : *answers.insert(name, isPostScriptAvailable(name));
}

QFont brandFont(Family family, double size, Weight weight) {
  registerFonts();
  if (isKnownAvailable(postScriptName(family, weight))) {
    return sized(QFont(familyName(family)), size, fileWeight(family, weight));
  }
  return sized(QFontDatabase::systemFont(QFontDatabase::GeneralFont), size, number(weight));
}

double scaled(double size, std::optional<TextStyle> relativeTo, double textScale) {
  return relativeTo ? size * textScale : size;
}

QString withoutSpaces(QString text) {
  return text.remove(u' ');
}

}  // namespace

QString teachingCaption() {
  return QCoreApplication::translate("DeckTypography", "Tap a key \u2014 the Mac opens it.");
}

QString rawValue(Family family) {
  return withoutSpaces(familyName(family));
}

int number(Weight weight) {
  switch (weight) {
    case Weight::ultraLight:
      return 100;
    case Weight::thin:
      return 200;
    case Weight::light:
      return 300;
    case Weight::medium:
      return 500;
    case Weight::semibold:
      return 600;
    case Weight::bold:
      return 700;
    case Weight::heavy:
      return 800;
    case Weight::black:
      return 900;
    case Weight::regular:
      break;
  }
  return 400;
}

double baseSize(TextStyle style) {
  switch (style) {
    case TextStyle::largeTitle:
      return 34;
    case TextStyle::title:
      return 28;
    case TextStyle::title2:
      return 22;
    case TextStyle::title3:
      return 20;
    case TextStyle::callout:
      return 16;
    case TextStyle::subheadline:
      return 15;
    case TextStyle::footnote:
      return 13;
    case TextStyle::caption:
      return 12;
    case TextStyle::caption2:
      return 11;
    case TextStyle::headline:
    case TextStyle::body:
      break;
  }
  return 17;
}

bool registerFonts() {
  static const bool registered = registerAll();
  return registered;
}

bool isPostScriptAvailable(const QString& name) {
  // A PostScript name is the family's and the style's name, each without spaces.
  const auto dash = name.lastIndexOf(u'-');
  const QString family = name.left(dash);
  const QString style = dash < 0 ? QStringLiteral("Regular") : name.mid(dash + 1);
  const auto families = QFontDatabase::families();
  return std::ranges::any_of(families, [&](const QString& candidate) {
    if (withoutSpaces(candidate) != family) {
      return false;
    }
    const auto styles = QFontDatabase::styles(candidate);
    return std::ranges::any_of(styles,
                               [&](const QString& one) { return withoutSpaces(one) == style; });
  });
}

QString postScriptName(Family family, Weight weight) {
  QString style;
  switch (fileWeight(family, weight)) {
    case 500:
      style = QStringLiteral("Medium");
      break;
    case 600:
      style = QStringLiteral("SemiBold");
      break;
    case 700:
      style = QStringLiteral("Bold");
      break;
    default:
      style = QStringLiteral("Regular");
      break;
  }
  return rawValue(family) + u'-' + style;
}

QFont ui(TextStyle style, Weight weight, double textScale) {
  return ui(baseSize(style), weight, style, textScale);
}

QFont keyLabel(TextStyle style, Weight weight, double textScale) {
  return ui(style, weight, textScale);
}

QFont hero(TextStyle style, Weight weight, double textScale) {
  return hero(baseSize(style), weight, style, textScale);
}

QFont handCaption(TextStyle style, Weight weight, double textScale) {
  return handCaption(baseSize(style), weight, style, textScale);
}

QFont mono(TextStyle style, Weight weight, double textScale) {
  return mono(baseSize(style) * textScale, weight);
}

QFont ui(double size, Weight weight, std::optional<TextStyle> relativeTo, double textScale) {
  return brandFont(Family::ui, scaled(size, relativeTo, textScale), weight);
}

QFont keyLabel(double size, Weight weight, std::optional<TextStyle> relativeTo, double textScale) {
  return ui(size, weight, relativeTo, textScale);
}

QFont hero(double size, Weight weight, std::optional<TextStyle> relativeTo, double textScale) {
  return brandFont(Family::display, scaled(size, relativeTo, textScale), weight);
}

QFont handCaption(double size, Weight weight, std::optional<TextStyle> relativeTo,
                  double textScale) {
  return brandFont(Family::hand, scaled(size, relativeTo, textScale), weight);
}

QFont mono(double size, Weight weight) {
  return sized(QFontDatabase::systemFont(QFontDatabase::FixedFont), size, number(weight));
}

}  // namespace glintboard::DeckTypography
