// SPDX-License-Identifier: MIT
// One window with the menu in it.
#pragma once

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <memory>
#include <optional>

#include "agent/menu/menu_bar_model.h"
#include "agent/menu/menu_panel.h"
#include "ui/design/appearance.h"

namespace glintboard {

enum class MenuStyle {
  translucentPopover,  // rounded, with a shadow; wants a desktop that composites
  opaquePopover,
  window,  // with the desktop's frame
};

// Owns its QML engine. A popover closes on Escape and when it loses the focus. Closing only hides.
// Main thread.
class MenuView : public QQuickWindow {
  Q_OBJECT

 public:
  // `model` must outlive this. Throws std::runtime_error when the view cannot be loaded.
  MenuView(MenuBarModel& model, MenuStyle style, const Appearance& appearance);
  ~MenuView() override;

  MenuStyle style() const { return style_; }
  void setAppearance(const Appearance& appearance);
  // Shows the view and asks for the focus. A popover opens beside `anchor`, in the window system's
  // pixels, where that lets windows choose their place.
  void open(std::optional<QPoint> anchor);
  // The item that draws everything.
  QQuickItem& root() { return *root_; }

 Q_SIGNALS:
  // It was open, and is hidden now.
  void closed();
  // The popover is about to close because the focus went elsewhere.
  void focusLost();

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fit();
  bool isPopover() const { return style_ != MenuStyle::window; }

  MenuStyle style_;
  std::optional<QPoint> anchor_;  // on the window's screen
  bool hasHadFocus_ = false;      // since it was opened
  QQmlEngine engine_;
  std::unique_ptr<MenuPanel> root_;
};

}  // namespace glintboard
