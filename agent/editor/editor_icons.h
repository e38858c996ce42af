// SPDX-License-Identifier: MIT
// The icons that the editor's views show.
#pragma once

#include <QImage>
#include <QQuickImageProvider>
#include <QString>
#include <map>
#include <memory>
#include <mutex>

namespace glintboard {

// Icons under numbers that are never used twice, so that another icon has another source and no
// view keeps an old one. Safe on any thread: views load images on threads of their own.
class EditorIcons {
 public:
  // The name under which a QML engine is given the provider below.
  static constexpr const char* providerName = "editor-icons";

  // Keeps the icon of `key` and forgets the one before. Returns what an Image element takes as its
  // source, empty for a null icon.
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

// Serves the icons to a QML engine, which owns it; the icons may outlive it or it them.
class EditorIconProvider : public QQuickImageProvider {
 public:
  explicit EditorIconProvider(std::shared_ptr<const EditorIcons> icons)
      : QQuickImageProvider(Image), icons_(std::move(icons)) {}

  QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

 private:
  std::shared_ptr<const EditorIcons> icons_;
};

}  // namespace glintboard
