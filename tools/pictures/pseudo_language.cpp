// SPDX-License-Identifier: MIT
#include "tools/pictures/pseudo_language.h"

#include <QQuickItem>
#include <QQuickWindow>

namespace glintboard {
namespace {

constexpr QChar opening(0x27E6);
constexpr QChar closing(0x27E7);

QString accented(const QString& english) {
  static const QString plain = QStringLiteral("AEIOUaeioucnsyz");
  static const QString accents = QString::fromUtf8("ÅÉÎÖÜåéîöüçñšýž");
  QString text;
  for (qsizetype at = 0; at < english.size(); ++at) {
    const QChar letter = english[at];
    // Placeholders and their numbers stay unchanged.
    if (letter == QLatin1Char('%') && at + 1 < english.size()) {
      text += english.mid(at++, 2);
      continue;
    }
    const auto index = plain.indexOf(letter);
    text += index < 0 ? letter : accents[index];
    if (QStringLiteral("aeiou").contains(letter)) {
      text += text.back();
    }
  }
  while (text.size() * 5 < english.size() * 7) {
    text += QLatin1String(text.size() % 8 == 7 ? " " : "~");
  }
  return text;
}

struct ShownText {
  QString text;
  QRectF bounds;  // of the drawn lines, in the window
  QQuickItem* item;
};

QRectF boundsOf(const QQuickItem& item) {
  return item.mapRectToScene({0, 0, item.width(), item.height()});
}

// The rectangle that the lines cover, by their alignment.
QRectF drawn(const QQuickItem& item) {
  const double width = item.property("contentWidth").toDouble();
  const double height = item.property("contentHeight").toDouble();
  const int across = item.property("effectiveHorizontalAlignment").toInt();
  const int down = item.property("verticalAlignment").toInt();
  const double left = item.property("leftPadding").toDouble();
  const double top = item.property("topPadding").toDouble();
  const double room = item.width() - left - item.property("rightPadding").toDouble();
  const double x = (across & Qt::AlignHCenter) != 0 ? (room - width) / 2
                   : (across & Qt::AlignRight) != 0 ? room - width
                                                    : 0;
  const double y = (down & Qt::AlignVCenter) != 0  ? (item.height() - height) / 2
                   : (down & Qt::AlignBottom) != 0 ? item.height() - height
                                                   : 0;
  return item.mapRectToScene({left + x, top + y, width, height});
}

void collect(QQuickItem& root, QList<ShownText>& texts) {
  for (auto* child : root.childItems()) {
    if (!child->isVisible() || child->opacity() == 0) {
      continue;
    }
    const QString text = child->property("text").toString();
    if (child->inherits("QQuickText") && !text.isEmpty()) {
      texts.append({text, drawn(*child), child});
    }
    collect(*child, texts);
  }
}

// Whether the item is in front of the window's content: tooltips, menus, a dragged key.
bool isAbove(const QQuickItem* item) {
  for (; item != nullptr; item = item->parentItem()) {
    if (item->z() > 0 || item->inherits("QQuickPopupItem")) {
      return true;
    }
  }
  return false;
}

bool scrolls(const QQuickItem* item) {
  while (item != nullptr && !item->inherits("QQuickFlickable")) {
    item = item->parentItem();
  }
  return item != nullptr;
}

QString fault(const ShownText& shown, const QQuickWindow& window) {
  constexpr QMarginsF tolerance(1, 1, 1, 1);
  if (shown.item->property("truncated").toBool()) {
    return QStringLiteral("is cut short");
  }
  if (!(boundsOf(*shown.item) + tolerance).contains(shown.bounds)) {
    return QStringLiteral("is larger than its item");
  }
  const QRectF whole({0, 0}, window.size());
  if (!scrolls(shown.item) && !(whole + tolerance).contains(shown.bounds)) {
    return QStringLiteral("reaches out of the window");
  }
  for (const auto* item = shown.item->parentItem(); item != nullptr; item = item->parentItem()) {
    const QRectF room = boundsOf(*item) + tolerance;
    if (item->inherits("QQuickControl") &&
        (room.left() > shown.bounds.left() || room.right() < shown.bounds.right() ||
         room.height() < shown.bounds.height())) {
      return QStringLiteral("reaches out of its control");
    }
  }
  return {};
}

}  // namespace

PseudoLanguage::PseudoLanguage() {
  const bool loaded = load(QStringLiteral(":/translations/glintboard_de.qm"));
  Q_ASSERT(loaded);
}

QString PseudoLanguage::translate(const char* context, const char* source,
                                  const char* disambiguation, int count) const {
  const bool isKnown = !QTranslator::translate(context, source, disambiguation, count).isNull();
  return isKnown ? opening + accented(QString::fromUtf8(source)) + closing : QString();
}

int faultyTexts(QQuickWindow& window, const QStringList& own) {
  QList<ShownText> texts;
  collect(*window.contentItem(), texts);
  int faults = 0;
  const auto report = [&](const QString& text, const QString& what) {
    ++faults;
    qWarning().noquote() << '"' + text + '"' << what;
  };
  for (const auto& shown : texts) {
    if (own.contains(shown.text)) {
      continue;
    }
    if (!shown.text.contains(opening)) {
      report(shown.text, QStringLiteral("is not translated"));
    }
    if (const QString what = fault(shown, window); !what.isEmpty()) {
      report(shown.text, what);
    }
    for (const auto& other : texts) {
      if (other.item != shown.item && !isAbove(other.item) && !isAbove(shown.item) &&
          other.bounds.intersects(shown.bounds - QMarginsF(1, 1, 1, 1))) {
        report(shown.text, "lies on \"" + other.text + '"');
      }
    }
  }
  return faults;
}

}  // namespace glintboard
