// SPDX-License-Identifier: MIT
#include "platform/linux/desktop/tray_item.h"

namespace glintboard {

TrayItem::TrayItem(const TrayLook& look, TrayActivated activated, bool onX11)
    : look_(look),
      activated_(std::move(activated)),
      onX11_(onX11),
      notifier_(std::make_shared<StatusNotifierItem>(
          look, activated_, [this](bool shown) { notifierChanged(shown); })) {}

bool TrayItem::isShown() const {
  return notifierShown_ || (legacy_ && legacy_->isShown());
}

void TrayItem::end() {
  ended_ = true;
  legacy_.reset();
}

void TrayItem::notifierChanged(bool shown) {
  if (ended_) {
    return;
  }
  notifierShown_ = shown;
  if (shown) {
    legacy_.reset();
  } else if (onX11_ && !legacy_) {
    legacy_ = std::make_unique<X11TrayItem>(look_, activated_);
  }
}

}  // namespace glintboard
