// SPDX-License-Identifier: MIT
#include "agent/editor/installed_apps_catalog.h"

#include <QCollator>
#include <QString>
#include <algorithm>
#include <set>

#include "platform/run_on.h"

namespace glintboard {
namespace {

// In points; drawn at twice the pixels, so that it is sharp on a fine screen too.
constexpr int iconPoints = 64;
constexpr int iconScale = 2;

InstalledAppsCatalog::Drawn draw(const ApplicationIconClient& icons,
                                 const ApplicationLocation& location) {
  QImage icon = icons.image(location, iconPoints * iconScale);
  QColor accent = InstalledAppsCatalog::accentColor(icon).value_or(fallbackAccent());
  icon.setDevicePixelRatio(iconScale);
  return {std::move(icon), accent};
}

}  // namespace

std::optional<AppBundleInfo> appBundleInfo(const ListedApplication& application) {
  if (application.bundleId.empty()) {
    return std::nullopt;
  }
  QString iconName = QString::fromStdString(application.label).toLower();
  iconName.remove(QLatin1Char(' '));
  return AppBundleInfo{application.label, application.bundleId, iconName.toStdString()};
}

std::vector<AppBundleInfo> InstalledAppsCatalog::scanBundles() const {
  struct Found {
    AppBundleInfo info;
    QCollatorSortKey key;
  };
  QCollator collator;
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  std::set<std::string> seen;
  std::vector<Found> found;
  for (const auto& application : applications_.applications()) {
    auto info = appBundleInfo(application);
    if (info && seen.insert(info->bundleId).second) {
      // The C locale compares with regard to case unless the case is gone.
      auto key = collator.sortKey(QString::fromStdString(info->label).toCaseFolded());
      found.push_back({std::move(*info), std::move(key)});
    }
  }
  std::ranges::stable_sort(found,
                           [](const Found& a, const Found& b) { return a.key.compare(b.key) < 0; });
  std::vector<AppBundleInfo> sorted;
  sorted.reserve(found.size());
  for (auto& each : found) {
    sorted.push_back(std::move(each.info));
  }
  return sorted;
}

Awaitable<std::vector<InstalledApp>> InstalledAppsCatalog::list(WorkspaceClient workspace) const {
  auto scan = runOn(workers_, [catalog = *this, workspace] {
    std::vector<InstalledApp> apps;
    for (auto& info : catalog.scanBundles()) {
      if (workspace.isInstalled(info.bundleId)) {
        apps.push_back({std::move(info.label), std::move(info.bundleId), std::move(info.iconName)});
      }
    }
    return apps;
  });
  co_return co_await std::move(scan);
}

Awaitable<std::vector<InstalledApp>> InstalledAppsCatalog::withIcons(std::vector<InstalledApp> apps,
                                                                     WorkspaceClient workspace,
                                                                     DrawnIcons drawn) const {
  auto drawing =
      runOn(workers_, [icons = icons_, apps = std::move(apps), workspace, drawn]() mutable {
        for (auto& app : apps) {
          const auto location = workspace.urlForApplication(app.bundleId);
          const auto modification = location ? icons.contentModification(*location) : std::nullopt;
          if (!modification) {
            continue;
          }
          const auto [known, isNew] = drawn->try_emplace(modification->iconFile);
          if (isNew) {
            known->second = draw(icons, *location);
          }
          app.icon = known->second.icon;
          app.accent = known->second.accent;
        }
        return std::move(apps);
      });
  co_return co_await std::move(drawing);
}

Awaitable<std::vector<InstalledApp>> InstalledAppsCatalog::load(WorkspaceClient workspace) const {
  auto listed = co_await list(workspace);
  auto drawing = withIcons(std::move(listed), workspace,
                           std::make_shared<std::map<std::filesystem::path, Drawn>>());
  co_return co_await std::move(drawing);
}

}  // namespace glintboard
