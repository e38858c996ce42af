// SPDX-License-Identifier: MIT
// Derives the colour of a card and a key from their icon.
#include "agent/editor/icon_accent.h"

#include <algorithm>
#include <array>

#include "agent/editor/installed_apps_catalog.h"

namespace glintboard {
namespace {

constexpr int side = 8;
// The weight of a grey pixel.
constexpr double leastWeight = 0.15;
constexpr float leastSaturation = 0.55F;
constexpr float leastBrightness = 0.75F;

}  // namespace

QColor fallbackAccent() {
  return QColor::fromRgbF(0.43F, 0.91F, 0.96F);
}

std::optional<QColor> InstalledAppsCatalog::accentColor(const QImage& image) {
  if (image.isNull()) {
    return std::nullopt;
  }
  const QImage small = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied)
                           .scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                           .convertToFormat(QImage::Format_RGBA8888_Premultiplied);
  std::array<double, 3> sums{};
  double total = 0;
  for (int y = 0; y < side; ++y) {
    const uchar* pixel = small.constScanLine(y);
    for (int x = 0; x < side; ++x, pixel += 4) {
      const double alpha = pixel[3] / 255.0;
      if (alpha <= 0.5) {
        continue;
      }
      std::array<double, 3> channels{};
      for (std::size_t i = 0; i < channels.size(); ++i) {
        channels[i] = pixel[i] / 255.0 / alpha;
      }
      const auto [least, most] = std::minmax_element(channels.begin(), channels.end());
      const double weight = leastWeight + (*most > 0 ? (*most - *least) / *most : 0);
      for (std::size_t i = 0; i < channels.size(); ++i) {
        sums[i] += weight * channels[i];
      }
      total += weight;
    }
  }
  if (total == 0) {
    return std::nullopt;
  }
  const auto average = [&](std::size_t channel) {
    return static_cast<float>(std::min(sums[channel] / total, 1.0));
  };
  const QColor color = QColor::fromRgbF(average(0), average(1), average(2));
  // Qt reports the hue -1 for a grey.
  return QColor::fromHsvF(std::max(color.hsvHueF(), 0.0F),
                          std::max(color.hsvSaturationF(), leastSaturation),
                          std::max(color.valueF(), leastBrightness))
      .toRgb();
}

}  // namespace glintboard
