// SPDX-License-Identifier: MIT
// Joins the menu to the agent.
#pragma once

#include "agent/menu/menu_bar_model.h"
#include "agent/menu/menu_commands.h"

namespace glintboard {

// Copies the view model's fields into the menu's model, and starts what is pressed there. Main
// thread.
class MenuBarController {
 public:
  // `viewModel` must outlive this, and what the menu has started.
  MenuBarController(AgentViewModel& viewModel, MenuActions actions);

  MenuBarModel& model() { return model_; }

 private:
  void update();

  AgentViewModel& viewModel_;
  MenuCommands commands_;
  MenuBarModel model_;
};

}  // namespace glintboard
