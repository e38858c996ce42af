// SPDX-License-Identifier: MIT
// The installed applications in the editor.
#pragma once

#include <QObject>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "agent/editor/deck_library_model.h"
#include "agent/editor/editor_icons.h"
#include "agent/editor/installed_apps_catalog.h"

namespace glintboard {

// Lists the applications first, then adds their icons in batches as they are drawn. Main thread; a
// load under way shares ownership.
class AppsLibrary : public QObject, public std::enable_shared_from_this<AppsLibrary> {
  Q_OBJECT
  Q_PROPERTY(glintboard::DeckLibraryModel* cards READ cards CONSTANT)
  Q_PROPERTY(bool isLoaded READ isLoaded NOTIFY changed)

 public:
  AppsLibrary(asio::any_io_executor mainThread, InstalledAppsCatalog catalog,
              WorkspaceClient workspace, std::shared_ptr<EditorIcons> icons);

  DeckLibraryModel* cards() { return &cards_; }
  bool isLoaded() const { return isLoaded_; }
  const std::vector<InstalledApp>& installedApps() const { return apps_; }
  // Null when it is not listed. Valid until changed().
  const InstalledApp* app(const std::string& bundleId) const;
  // Empty without an icon.
  QString iconSource(const std::string& bundleId) const;
  // Whether an application's label contains the text, ignoring case.
  bool hasLabelWith(const QString& text) const;
  // See InstalledAppsCatalog.
  std::optional<std::string> bundleIdOf(const std::filesystem::path& launcher) const {
    return catalog_.bundleIdOf(launcher);
  }

  void load();
  // Ends a load.
  void stop() { ++load_; }
  // The applications whose icons are drawn before all others.
  void setDrawnFirst(std::set<std::string> bundleIds) { drawnFirst_ = std::move(bundleIds); }

 Q_SIGNALS:
  // The list has changed.
  void changed();
  // Some icons were added.
  void iconsChanged();

 private:
  static Awaitable<> runLoad(std::shared_ptr<AppsLibrary> self, int load);
  void show(std::vector<InstalledApp> apps);
  void showIcons(const std::vector<InstalledApp>& drawn);

  asio::any_io_executor mainThread_;
  InstalledAppsCatalog catalog_;
  WorkspaceClient workspace_;
  std::shared_ptr<EditorIcons> icons_;
  int load_ = 0;  // the current load; results of earlier ones are ignored
  bool isLoaded_ = false;
  std::vector<InstalledApp> apps_;
  std::unordered_map<std::string, std::size_t> indices_;  // by bundle identifier
  std::unordered_map<std::string, QString> sources_;
  std::set<std::string> drawnFirst_;
  DeckLibraryModel cards_;
};

}  // namespace glintboard
