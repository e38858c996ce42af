// SPDX-License-Identifier: MIT
// What the menu's buttons do, whatever draws them.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "agent/menu/menu_content.h"

namespace glintboard {

// What the menu asks of the application.
struct MenuActions {
  std::function<void()> editDeck;
  std::function<void()> quit;
};

// Starts what is pressed without waiting for it, and reports when a menu has something new to show.
// Main thread.
class MenuCommands : public QObject {
  Q_OBJECT

 public:
  // `viewModel` must outlive this, and what was started.
  MenuCommands(AgentViewModel& viewModel, MenuActions actions);

  void press(MenuCommand command);
  // Something that was pressed is under way: the fields need not fit together.
  bool isBusy() const { return underWay_ != 0; }

 Q_SIGNALS:
  // A field of the view model or `isBusy` has changed; once for all the changes of a turn.
  void changed();

 private:
  void scheduleChange();
  void perform(Awaitable<> operation);
  static Awaitable<> performed(QPointer<MenuCommands> commands, Awaitable<> operation);

  AgentViewModel& viewModel_;
  MenuActions actions_;
  bool isScheduled_ = false;
  int underWay_ = 0;
};

}  // namespace glintboard
