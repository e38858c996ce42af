// SPDX-License-Identifier: MIT
#include "agent/editor/edit_history.h"

#include <utility>

namespace glintboard {

void EditHistory::record(EditStep step, bool ofName) {
  if (!(ofName && editsName_)) {
    undone_.push_back(std::move(step));
    if (undone_.size() > capacity) {
      undone_.pop_front();
    }
  }
  redone_.clear();
  editsName_ = ofName;
}

const EditStep* EditHistory::next(Direction direction) const {
  const Steps& steps = direction == Direction::undo ? undone_ : redone_;
  return steps.empty() ? nullptr : &steps.back();
}

std::optional<EditStep> EditHistory::go(Direction direction, EditStep current) {
  Steps& from = direction == Direction::undo ? undone_ : redone_;
  Steps& to = direction == Direction::undo ? redone_ : undone_;
  editsName_ = false;
  if (from.empty()) {
    return std::nullopt;
  }
  EditStep step = std::move(from.back());
  from.pop_back();
  if (!step.stored) {
    current.stored.reset();
  }
  to.push_back(std::move(current));
  return step;
}

}  // namespace glintboard
