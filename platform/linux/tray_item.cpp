#include "platform/linux/tray_item.h"

namespace glintboard {

TrayItem::TrayItem(const TrayLook& look, TrayHandlers handlers, bool onX11)
    : look_(look),
      handlers_(std::move(handlers)),
      onX11_(onX11),
      notifier_(std::make_shared<StatusNotifierItem>(
          look,
          TrayHandlers{handlers_.activated, [this](bool shown) { notifierChanged(shown); }})) {}

void TrayItem::end() {
  ended_ = true;
  legacy_.reset();
}

void TrayItem::notifierChanged(bool shown) {
  if (ended_) {
    return;
  }
  inNotifierTray_ = shown;
  if (shown) {
    legacy_.reset();
  } else if (onX11_ && !legacy_) {
    legacy_ = std::make_unique<X11TrayItem>(
        look_, TrayHandlers{handlers_.activated, [this](bool) { report(); }});
  }
  report();
}

void TrayItem::report() {
  const bool shown = inNotifierTray_ || (legacy_ && legacy_->isShown());
  if (reported_ != shown) {
    reported_ = shown;
    handlers_.shownChanged(shown);
  }
}

}  // namespace glintboard
