// SPDX-License-Identifier: MIT
#include "platform/linux/applications/application_icons.h"

#include <sys/stat.h>

#include <QFile>
#include <QGuiApplication>
#include <QImageReader>
#include <QPainter>
#include <chrono>

#include "platform/linux/applications/icon_lookup.h"

namespace glintboard {

namespace {

std::filesystem::file_time_type modifiedAt(const struct stat& status) {
  const auto since = std::chrono::seconds(status.st_mtim.tv_sec) +
                     std::chrono::nanoseconds(status.st_mtim.tv_nsec);
  return std::chrono::file_clock::from_sys(std::chrono::sys_time<std::chrono::nanoseconds>(since));
}

class ApplicationIcons {
 public:
  ApplicationIcons(std::shared_ptr<const ApplicationIndex> index, const XdgFolders& folders)
      : index_(std::move(index)), lookup_(folders) {}

  std::optional<ContentModification> contentModification(const ApplicationLocation& location) {
    // The index reads an entry again when it changes.
    const auto installed = index_->current();
    const auto* entry = installed->atPath(location.path);
    if (entry == nullptr) {
      return std::nullopt;
    }
    struct stat status{};
    ContentModification modification;
    modification.entryModified = entry->modified;
    modification.iconFile = fileOf(*entry, status);
    if (!modification.iconFile.empty()) {
      modification.iconModified = modifiedAt(status);
      modification.iconInode = status.st_ino;
    }
    return modification;
  }

  QImage image(const ApplicationLocation& location, int side) {
    const auto installed = index_->current();
    const auto* entry = installed->atPath(location.path);
    struct stat ignored{};
    const auto own = entry == nullptr ? QImage() : drawIcon(fileOf(*entry, ignored), side);
    return own.isNull() ? drawIcon(lookup_.find(genericIcon), side) : own;
  }

 private:
  static constexpr const char* genericIcon = "application-x-executable";

  std::filesystem::path fileOf(const DesktopEntry& entry, struct stat& status) {
    auto file = lookup_.find(entry.icon, status);
    return file.empty() ? lookup_.find(genericIcon, status) : file;
  }

  std::shared_ptr<const ApplicationIndex> index_;
  IconLookup lookup_;
};

// Reads an image and scales it to fit into the square.
QImage readFitted(const std::filesystem::path& file, const QSize& square) {
  constexpr int largestSide = 4096;
  QImageReader reader(QFile::decodeName(file.c_str()));
  const QSize natural = reader.size();
  const QSize fitted = natural.isEmpty()
                           ? square
                           : natural.scaled(square, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
  if (reader.format().startsWith("svg")) {
    // Qt aborts a process that draws text without a QGuiApplication.
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) {
      return {};
    }
    reader.setScaledSize(fitted);
    return reader.read();
  }
  if (natural.width() > largestSide || natural.height() > largestSide) {
    return {};
  }
  const QImage image = reader.read();
  return image.isNull() ? image
                        : image.scaled(square, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

QImage drawIcon(const std::filesystem::path& file, int side) {
  constexpr std::uintmax_t largestFile = 16u << 20u;
  std::error_code error;
  // Opening a named pipe would block until it has a writer.
  if (!std::filesystem::is_regular_file(file, error) ||
      std::filesystem::file_size(file, error) > largestFile) {
    return {};
  }
  const QImage fitted = readFitted(file, QSize(side, side));
  if (fitted.isNull()) {
    return {};
  }
  QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
  square.fill(Qt::transparent);
  QPainter painter(&square);
  painter.drawImage((side - fitted.width()) / 2, (side - fitted.height()) / 2, fitted);
  painter.end();
  return square;
}

ApplicationIconClient applicationIcons(std::shared_ptr<const ApplicationIndex> index,
                                       const XdgFolders& folders) {
  const auto icons = std::make_shared<ApplicationIcons>(std::move(index), folders);
  ApplicationIconClient client;
  client.contentModification = [icons](const ApplicationLocation& location) {
    return icons->contentModification(location);
  };
  client.image = [icons](const ApplicationLocation& location, int side) {
    return icons->image(location, side);
  };
  return client;
}

}  // namespace glintboard
