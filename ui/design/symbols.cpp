// SPDX-License-Identifier: MIT
#include "ui/design/symbols.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <iterator>

#include "ui/design/bundle_finder.h"

namespace glintboard::Symbols {

namespace {

struct Drawing {
  const char* symbol;
  const char* file;
};

constexpr Drawing drawings[] = {
    {"arrow.clockwise", "arrow-clockwise"},
    {"arrow.counterclockwise", "arrow-counter-clockwise"},
    {"arrow.triangle.turn.up.right.diamond.fill", "sign-turn-right"},
    {"arrow.up.forward.app", "arrow-square-out"},
    {"bubble.left.and.bubble.right.fill", "chats"},
    {"checkmark", "check"},
    {"chevron.down", "caret-down"},
    {"desktopcomputer", "desktop"},
    {"exclamationmark.shield", "shield-warning"},
    {"exclamationmark.triangle.fill", "warning"},
    {"folder.fill", "folder"},
    {"gearshape.fill", "gear-six"},
    {"globe", "globe"},
    {"info.circle.fill", "info"},
    {"iphone.gen3", "device-mobile"},
    {"lock.fill", "lock"},
    {"magnifyingglass", "magnifying-glass"},
    {"message.fill", "chat"},
    {"mic.fill", "microphone"},
    {"minus", "minus"},
    {"music.note", "music-note"},
    {"music.note.list", "playlist"},
    {"pencil", "pencil-simple"},
    {"personalhotspot.slash", "link-break"},
    {"play.tv.fill", "monitor-play"},
    {"plus", "plus"},
    {"power", "power"},
    {"qrcode", "qr-code"},
    {"questionmark", "question"},
    {"rectangle.grid.2x2", "squares-four"},
    {"safari.fill", "compass"},
    {"slider.horizontal.3", "sliders-horizontal"},
    {"speaker.slash.fill", "speaker-slash"},
    {"speaker.wave.1.fill", "speaker-low"},
    {"speaker.wave.3.fill", "speaker-high"},
    {"terminal.fill", "terminal-window"},
    {"video.fill", "video-camera"},
    {"waveform", "waveform"},
    {"xmark", "x"},
};

const Drawing* find(const QString& name) {
  const auto* found = std::ranges::find_if(
      drawings, [&](const Drawing& one) { return name == QLatin1String(one.symbol); });
  return found == std::end(drawings) ? nullptr : found;
}

}  // namespace

QStringList names() {
  QStringList all;
  for (const auto& drawing : drawings) {
    all.append(QLatin1String(drawing.symbol));
  }
  return all;
}

bool isKnown(const QString& name) {
  return find(name) != nullptr;
}

void draw(QPainter& painter, const QString& name, const QRectF& area, const QColor& color,
          Fit fit) {
  const Drawing* drawing = find(name);
  const QString file = QLatin1String(drawing != nullptr ? drawing->file : "question");
  QFile source(BundleFinder::resourceBundle() + "/Symbols/" + file + ".svg");
  if (!source.open(QIODevice::ReadOnly)) {
    return;
  }
  // Each drawing is one path.
  QSvgRenderer svg(source.readAll()
                       .replace("currentColor", color.name().toLatin1())
                       .replace("<path ", "<path id=\"drawn\" "));
  const QRectF whole = svg.viewBoxF();
  const QRectF fitted = fit == Fit::square ? whole : svg.boundsOnElement(QStringLiteral("drawn"));
  const qreal scale =
      std::min(area.width(), area.height()) / std::max(fitted.width(), fitted.height());
  QRectF square(QPointF(), whole.size() * scale);
  square.moveCenter(area.center() + (whole.center() - fitted.center()) * scale);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(painter.opacity() * color.alphaF());
  svg.render(&painter, square);
  painter.restore();
}

}  // namespace glintboard::Symbols
