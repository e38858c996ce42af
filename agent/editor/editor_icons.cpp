// SPDX-License-Identifier: MIT
#include "agent/editor/editor_icons.h"

namespace glintboard {

QString EditorIcons::set(const QString& key, QImage icon) {
  remove(key);
  if (icon.isNull()) {
    return {};
  }
  const std::scoped_lock lock(mutex_);
  numbers_[key] = ++last_;
  icons_[last_] = std::move(icon);
  return QStringLiteral("image://%1/%2").arg(QLatin1String(providerName)).arg(last_);
}

void EditorIcons::remove(const QString& key) {
  const std::scoped_lock lock(mutex_);
  if (const auto number = numbers_.find(key); number != numbers_.end()) {
    icons_.erase(number->second);
    numbers_.erase(number);
  }
}

QImage EditorIcons::icon(const QString& number) const {
  const std::scoped_lock lock(mutex_);
  const auto found = icons_.find(number.toInt());
  return found == icons_.end() ? QImage() : found->second;
}

QImage EditorIconProvider::requestImage(const QString& id, QSize* size,
                                        const QSize& requestedSize) {
  QImage icon = icons_->icon(id);
  // The view scales the icon. Its own pixel ratio would scale it a second time.
  icon.setDevicePixelRatio(1);
  if (size != nullptr) {
    *size = icon.size();
  }
  const bool isSmaller = requestedSize.width() > 0 && requestedSize.height() > 0 &&
                         requestedSize.width() < icon.width();
  return isSmaller ? icon.scaled(requestedSize, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                   : icon;
}

}  // namespace glintboard
