// SPDX-License-Identifier: MIT
// The menu on a desktop with a display.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <chrono>
#include <memory>

#include "agent/menu/menu_presenter.h"
#include "agent/menu/menu_view.h"

namespace glintboard {

// Makes the view and its QML engine when the menu is opened, and releases them when it has been
// closed for a while. Main thread.
class MenuWindow : public QObject, public MenuPresenter {
  Q_OBJECT

 public:
  // `model` must outlive this.
  explicit MenuWindow(MenuBarModel& model, const Appearance& appearance = {},
                      std::chrono::milliseconds releaseAfter = std::chrono::minutes(1));
  ~MenuWindow() override;

  void toggle(std::optional<QPoint> anchor) override;
  void show() override;
  void setAppearance(const Appearance& appearance);

  // Null while there is no engine. Valid until the event loop runs again.
  MenuView* view() { return view_.get(); }

 private:
  void open(MenuStyle style, std::optional<QPoint> anchor);
  void closed();

  MenuBarModel& model_;
  Appearance appearance_;
  std::unique_ptr<MenuView> view_;
  QElapsedTimer sinceFocusLoss_;
  QTimer release_;
};

}  // namespace glintboard
