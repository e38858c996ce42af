// SPDX-License-Identifier: MIT
#include "ui/design/symbols.h"

#include <QCache>
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
  // The file whose drawing is fitted to the area, so that related symbols share scale and position.
  const char* fittedAs = file;
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
    {"speaker.slash.fill", "speaker-slash", "speaker-high"},
    {"speaker.wave.1.fill", "speaker-low", "speaker-high"},
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

// Enough for the symbols of all windows in their colours. Colours that are animated pass through.
constexpr int keptDrawings = 64;

// The drawing in a colour, parsed once as long as it is in use. Its only path has the id "drawn".
// Null when the file cannot be read. Valid until the next call on the same thread.
QSvgRenderer* parsedDrawing(const char* file, const QColor& color) {
  thread_local QCache<QString, QSvgRenderer> parsed(keptDrawings);
  const QString key = file + color.name();
  if (auto* const known = parsed.object(key)) {
    return known;
  }
  QFile source(BundleFinder::resourceBundle() + "/Symbols/" + file + ".svg");
  if (!source.open(QIODevice::ReadOnly)) {
    return nullptr;
  }
  auto* const drawing = new QSvgRenderer(source.readAll()
                                             .replace("currentColor", color.name().toLatin1())
                                             .replace("<path ", "<path id=\"drawn\" "));
  parsed.insert(key, drawing);
  return drawing;
}

// The bounds of the drawing itself in its view box; empty when the file cannot be read.
QRectF boundsOf(const char* file, const QColor& color) {
  const auto* const svg = parsedDrawing(file, color);
  return svg != nullptr ? svg->boundsOnElement(QStringLiteral("drawn")) : QRectF();
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
  static constexpr Drawing unknown{"", "question"};
  const Drawing* const known = find(name);
  const Drawing& drawing = known != nullptr ? *known : unknown;
  const QRectF fitted = fit == Fit::drawing ? boundsOf(drawing.fittedAs, color) : QRectF();
  QSvgRenderer* const svg = parsedDrawing(drawing.file, color);
  if (svg == nullptr) {
    return;
  }
  const QRectF whole = svg->viewBoxF();
  const QRectF& part = fitted.isEmpty() ? whole : fitted;
  const qreal scale = std::min(area.width(), area.height()) / std::max(part.width(), part.height());
  QRectF square(QPointF(), whole.size() * scale);
  square.moveCenter(area.center() + (whole.center() - part.center()) * scale);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(painter.opacity() * color.alphaF());
  svg->render(&painter, square);
  painter.restore();
}

}  // namespace glintboard::Symbols
