// SPDX-License-Identifier: MIT
#include "agent/menu/menu_window.h"

#include <malloc.h>

#include "platform/compositing.h"
#include "platform/log.h"

namespace glintboard {
namespace {

// A click on the tray's item takes the focus from an open popover before it arrives as the wish to
// toggle it.
constexpr qint64 sameClick = 300;  // milliseconds

}  // namespace

MenuWindow::MenuWindow(MenuBarModel& model, const Appearance& appearance,
                       std::chrono::milliseconds releaseAfter)
    : model_(model), appearance_(appearance) {
  release_.setSingleShot(true);
  release_.setInterval(releaseAfter);
  release_.callOnTimeout([this] {
    view_.reset();
    ::malloc_trim(0);
  });
}

MenuWindow::~MenuWindow() = default;

void MenuWindow::toggle(std::optional<QPoint> anchor) {
  if (view_ && view_->isVisible()) {
    view_->hide();
  } else if (!sinceFocusLoss_.isValid() || sinceFocusLoss_.elapsed() > sameClick) {
    open(compositesWindows() ? MenuStyle::translucentPopover : MenuStyle::opaquePopover, anchor);
  }
}

void MenuWindow::show() {
  open(MenuStyle::window, std::nullopt);
}

void MenuWindow::open(MenuStyle style, std::optional<QPoint> anchor) {
  try {
    if (!view_ || view_->style() != style) {
      view_ = std::make_unique<MenuView>(model_, style, appearance_);
      connect(view_.get(), &MenuView::closed, this, &MenuWindow::closed);
      connect(view_.get(), &MenuView::focusLost, this, [this] { sinceFocusLoss_.start(); });
    }
    release_.stop();
    sinceFocusLoss_.invalidate();
    view_->open(anchor);
  } catch (const std::exception& error) {
    log::error(error.what());
  }
}

void MenuWindow::closed() {
  release_.start();
}

void MenuWindow::setAppearance(const Appearance& appearance) {
  appearance_ = appearance;
  if (view_) {
    view_->setAppearance(appearance);
  }
}

}  // namespace glintboard
