#include <filesystem>

#include "platform/desktop_session.h"
#include "platform/linux/desktop_appearance.h"
#include "platform/linux/desktop_bus.h"
#include "platform/linux/status_notifier_item.h"
#include "platform/linux/xdg_folders.h"

namespace glintboard {
namespace {

// A tray shows a placeholder for a name that it does not find.
bool isInstalled(const std::string& icon, const XdgFolders& folders) {
  for (const auto& folder : folders.dataFolders("icons/hicolor/symbolic/apps")) {
    std::error_code ignored;
    if (std::filesystem::exists(folder / (icon + ".svg"), ignored)) {
      return true;
    }
  }
  return false;
}

}  // namespace

struct DesktopSession::Parts {
  explicit Parts(std::function<void(DesktopAppearance)> changed)
      : folders(xdgFoldersOfEnvironment()),
        appearance(std::make_shared<DesktopAppearanceMonitor>(folders, std::move(changed))) {
    bus.add(appearance);
  }

  const XdgFolders folders;
  const std::shared_ptr<DesktopAppearanceMonitor> appearance;
  std::shared_ptr<StatusNotifierItem> trayItem;
  DesktopBus bus;  // last, for it calls the others
};

DesktopSession::DesktopSession(std::function<void(DesktopAppearance)> appearanceChanged)
    : parts_(std::make_unique<Parts>(std::move(appearanceChanged))) {}

DesktopSession::~DesktopSession() = default;

DesktopAppearance DesktopSession::appearance() const {
  return parts_->appearance->current();
}

void DesktopSession::showTrayItem(TrayLook look, TrayHandlers handlers) {
  if (!isInstalled(look.iconName, parts_->folders)) {
    look.iconName.clear();
  }
  parts_->trayItem = std::make_shared<StatusNotifierItem>(std::move(look), std::move(handlers));
  parts_->bus.add(parts_->trayItem);
}

void DesktopSession::setTrayToolTip(std::string text) {
  parts_->bus.post([item = parts_->trayItem, text = std::move(text)] { item->setToolTip(text); });
}

}  // namespace glintboard
