// SPDX-License-Identifier: MIT
#include "agent/editor/apps_library.h"

#include <algorithm>

#include "platform/spawn.h"

namespace glintboard {
namespace {

// Small enough that showing a batch delays no frame, and other work runs between batches.
constexpr std::size_t iconsAtOnce = 16;

QString text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

}  // namespace

AppsLibrary::AppsLibrary(asio::any_io_executor mainThread, InstalledAppsCatalog catalog,
                         WorkspaceClient workspace, std::shared_ptr<EditorIcons> icons)
    : mainThread_(std::move(mainThread)),
      catalog_(std::move(catalog)),
      workspace_(std::move(workspace)),
      icons_(std::move(icons)) {}

const InstalledApp* AppsLibrary::app(const std::string& bundleId) const {
  const auto index = indices_.find(bundleId);
  return index == indices_.end() ? nullptr : &apps_[index->second];
}

QString AppsLibrary::iconSource(const std::string& bundleId) const {
  const auto source = sources_.find(bundleId);
  return source == sources_.end() ? QString() : source->second;
}

bool AppsLibrary::hasLabelWith(const QString& wanted) const {
  return std::ranges::any_of(apps_, [&](const InstalledApp& app) {
    return text(app.label).contains(wanted, Qt::CaseInsensitive);
  });
}

void AppsLibrary::load() {
  spawn(mainThread_, runLoad(shared_from_this(), ++load_), "installed applications");
}

Awaitable<> AppsLibrary::runLoad(std::shared_ptr<AppsLibrary> self, int load) {
  auto listing = self->catalog_.list(self->workspace_);
  auto listed = co_await std::move(listing);
  if (load != self->load_) {
    co_return;
  }
  self->show(listed);
  std::ranges::stable_partition(
      listed, [&](const InstalledApp& app) { return self->drawnFirst_.contains(app.bundleId); });
  const auto drawn = std::make_shared<InstalledAppsCatalog::DrawnIcons::element_type>();
  for (std::size_t begin = 0; begin < listed.size(); begin += iconsAtOnce) {
    const auto end = std::min(begin + iconsAtOnce, listed.size());
    std::vector<InstalledApp> some(listed.begin() + static_cast<std::ptrdiff_t>(begin),
                                   listed.begin() + static_cast<std::ptrdiff_t>(end));
    auto drawing = self->catalog_.withIcons(std::move(some), self->workspace_, drawn);
    const auto complete = co_await std::move(drawing);
    if (load != self->load_) {
      co_return;
    }
    self->showIcons(complete);
  }
}

void AppsLibrary::show(std::vector<InstalledApp> apps) {
  apps_ = std::move(apps);
  indices_.clear();
  std::vector<LibraryEntry> entries;
  entries.reserve(apps_.size());
  for (const auto& app : apps_) {
    indices_.emplace(app.bundleId, entries.size());
    entries.push_back({.payload = text(app.bundleId), .label = text(app.label)});
  }
  isLoaded_ = true;
  cards_.setEntries(std::move(entries));
  Q_EMIT changed();
}

void AppsLibrary::showIcons(const std::vector<InstalledApp>& drawn) {
  for (const auto& app : drawn) {
    const QString payload = text(app.bundleId);
    const QString source = icons_->set(QStringLiteral("app:") + payload, app.icon);
    auto& shown = apps_[indices_.at(app.bundleId)];
    shown.icon = app.icon;
    shown.accent = app.accent;
    sources_[app.bundleId] = source;
    cards_.setIcon(payload, source, app.accent);
  }
  Q_EMIT iconsChanged();
}

}  // namespace glintboard
