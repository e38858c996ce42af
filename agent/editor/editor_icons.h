// SPDX-License-Identifier: MIT
// The icons of the editor's views.
#pragma once

#include <QImage>
#include <QQuickImageProvider>
#include <QString>
#include <map>
#include <memory>
#include <mutex>

namespace glintboard {

// Each icon has a number that is never used again, so that a changed icon has a new source and
// views do not show a cached one. Any thread, since views load images on threads of their own.
class EditorIcons {
 public:
  // The name of the provider below in a QML engine.
  static constexpr const char* providerName = "editor-icons";

  // Stores the icon of `key` instead of an earlier one. Returns its source for an Image element,
  // empty for a null icon.
  QString set(const QString& key, QImage icon);
  void remove(const QString& key);
  // The icon of a number, or a null image.
  QImage icon(const QString& number) const;

 private:
  mutable std::mutex mutex_;
  int last_ = 0;
  std::map<QString, int> numbers_;
  std::map<int, QImage> icons_;
};

// Provides the icons to a QML engine, which owns the provider.
class EditorIconProvider : public QQuickImageProvider {
 public:
  explicit EditorIconProvider(std::shared_ptr<const EditorIcons> icons)
      : QQuickImageProvider(Image), icons_(std::move(icons)) {}

  QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

 private:
  std::shared_ptr<const EditorIcons> icons_;
};

}  // namespace glintboard
