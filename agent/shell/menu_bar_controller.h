// Joins the menu to the agent.
#pragma once

#include <QPointer>

#include "agent/shell/menu_bar_model.h"

namespace glintboard {

// What the menu asks of the application.
struct MenuActions {
  std::function<void()> editDeck;
  std::function<void()> quit;
};

// Copies the view model's fields into the menu's model, and starts what is pressed without waiting
// for it. Main thread.
class MenuBarController : public QObject {
  Q_OBJECT

 public:
  // `viewModel` must outlive this, and what the menu has started.
  MenuBarController(AgentViewModel& viewModel, MenuActions actions);

  MenuBarModel& model() { return model_; }
  void press(MenuCommand command);

 private:
  void scheduleUpdate();
  void update();
  void perform(Awaitable<> operation);
  static Awaitable<> performed(QPointer<MenuBarController> controller, Awaitable<> operation);

  AgentViewModel& viewModel_;
  MenuActions actions_;
  MenuBarModel model_;
  bool updateScheduled_ = false;
  int commandsUnderWay_ = 0;
};

}  // namespace glintboard
