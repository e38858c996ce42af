#include "agent/editor/edit_history.h"

#include <utility>

namespace glintboard {

void EditHistory::record(DeckState state, bool ofName) {
  if (!(ofName && editsName_)) {
    undone_.push_back(std::move(state));
  }
  redone_.clear();
  editsName_ = ofName;
}

std::optional<DeckState> EditHistory::undo(DeckState current) {
  return step(undone_, redone_, std::move(current));
}

std::optional<DeckState> EditHistory::redo(DeckState current) {
  return step(redone_, undone_, std::move(current));
}

void EditHistory::clear() {
  undone_.clear();
  redone_.clear();
  editsName_ = false;
}

std::optional<DeckState> EditHistory::step(States& from, States& to, DeckState current) {
  editsName_ = false;
  if (from.empty()) {
    return std::nullopt;
  }
  to.push_back(std::move(current));
  DeckState state = std::move(from.back());
  from.pop_back();
  return state;
}

}  // namespace glintboard
