// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <filesystem>

#include "platform/desktop_session.h"
#include "platform/linux/base/desktop_bus.h"
#include "platform/linux/base/xdg_folders.h"
#include "platform/linux/desktop/desktop_appearance.h"
#include "platform/linux/desktop/tray_item.h"

namespace glintboard {
namespace {

// Whether trays find the icon: they show a placeholder for an unknown name.
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

  ~Parts() {
    bus.post([this] {
      if (trayItem) {
        trayItem->end();
      }
    });
  }

  const XdgFolders folders;
  const std::shared_ptr<DesktopAppearanceMonitor> appearance;
  std::unique_ptr<TrayItem> trayItem;
  DesktopBus bus;  // last: its thread uses the members above
};

DesktopSession::DesktopSession(std::function<void(DesktopAppearance)> appearanceChanged)
    : parts_(std::make_unique<Parts>(std::move(appearanceChanged))) {}

DesktopSession::~DesktopSession() = default;

DesktopAppearance DesktopSession::appearance() const {
  return parts_->appearance->current();
}

void DesktopSession::showTrayItem(TrayLook look, TrayActivated activated) {
  if (!isInstalled(look.iconName, parts_->folders)) {
    look.iconName.clear();
  }
  const bool onX11 = QGuiApplication::platformName() == QLatin1String("xcb");
  parts_->trayItem = std::make_unique<TrayItem>(look, std::move(activated), onX11);
  parts_->bus.add(parts_->trayItem->client());
}

void DesktopSession::setTrayToolTip(std::string text) {
  parts_->bus.post(
      [item = parts_->trayItem.get(), text = std::move(text)] { item->setToolTip(text); });
}

void DesktopSession::askForTray(std::function<void(bool shown)> answer) {
  parts_->bus.post(
      [item = parts_->trayItem.get(), answer = std::move(answer)] { answer(item->isShown()); });
}

}  // namespace glintboard
