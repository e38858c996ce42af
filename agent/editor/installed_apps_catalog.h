// SPDX-License-Identifier: MIT
// The applications that can be put on a deck.
#pragma once

#include <QColor>
#include <QImage>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "agent/editor/icon_accent.h"
#include "platform/application_icon_client.h"
#include "platform/application_list_client.h"

namespace glintboard {

// An application's own metadata.
struct AppBundleInfo {
  std::string label;
  std::string bundleId;  // never empty
  // The label in lower case and without spaces: the name of artwork known to the phone.
  std::optional<std::string> iconName;
  bool operator==(const AppBundleInfo&) const = default;
};

// None for an application without an identifier.
std::optional<AppBundleInfo> appBundleInfo(const ListedApplication& application);

// One application as the editor shows it.
struct InstalledApp {
  std::string label;
  std::string bundleId;
  std::optional<std::string> iconName;
  // 64 × 64 points at twice the pixels; null while it is not drawn or when there is none.
  QImage icon = {};
  QColor accent = fallbackAccent();
};

// Keeps no cache: every call lists the applications again. Any thread.
class InstalledAppsCatalog {
 public:
  // `workers` draw the icons.
  InstalledAppsCatalog(asio::any_io_executor workers, ApplicationListClient applications,
                       ApplicationIconClient icons)
      : workers_(std::move(workers)),
        applications_(std::move(applications)),
        icons_(std::move(icons)) {}

  // The offered applications, each identifier once, sorted by label as the user's language sorts,
  // without regard to case. Takes a few milliseconds: call it on a worker.
  std::vector<AppBundleInfo> scanBundles() const;

  // Everything at once, in the order of scanBundles(); applications that `workspace` cannot find
  // are left out. Icons are drawn on a worker.
  Awaitable<std::vector<InstalledApp>> load(WorkspaceClient workspace) const;

  // load() in two steps, to show the applications before their icons are drawn. First the
  // applications, without icons and with the fallback accent.
  Awaitable<std::vector<InstalledApp>> list(WorkspaceClient workspace) const;
  // Then the icons and accents of a batch. `drawn` caches the icons of earlier calls of the same
  // load, so that applications with the same icon share its pixels. Concurrent calls need different
  // `drawn`.
  struct Drawn {
    QImage icon;
    QColor accent;
  };
  using DrawnIcons = std::shared_ptr<std::map<std::filesystem::path, Drawn>>;
  Awaitable<std::vector<InstalledApp>> withIcons(std::vector<InstalledApp> apps,
                                                 WorkspaceClient workspace, DrawnIcons drawn) const;

  // The image's average colour, in which colourful pixels count for more than grey ones, made
  // saturated and bright enough to tint glass. None for an image without an opaque pixel. Looks at
  // an 8 × 8 copy only.
  static std::optional<QColor> accentColor(const QImage& image);

  // The identifier of the application that a dropped launcher file starts, or none.
  std::optional<std::string> bundleIdOf(const std::filesystem::path& launcher) const {
    return applications_.bundleIdOf(launcher);
  }

 private:
  asio::any_io_executor workers_;
  ApplicationListClient applications_;
  ApplicationIconClient icons_;
};

}  // namespace glintboard
