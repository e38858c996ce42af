// SPDX-License-Identifier: MIT
// Undo and redo of the changes of a deck.
#pragma once

#include <QString>
#include <deque>
#include <optional>
#include <vector>

#include "protocol/deck_tile.h"

namespace glintboard {

// The part of a deck that edits change.
struct DeckState {
  QString name;
  std::vector<DeckTile> tiles;
  bool operator==(const DeckState&) const = default;
};

// One step of a history.
struct EditStep {
  DeckState shown;
  // The stored deck of this step; none for an edit, which does not change the stored deck.
  std::optional<DeckState> stored;
  bool operator==(const EditStep&) const = default;
};

// The steps to undo and the steps to redo. Main thread.
class EditHistory {
 public:
  enum class Direction { undo, redo };
  // The maximum of steps to undo. Older ones are dropped.
  static constexpr std::size_t capacity = 100;

  // Records the step before a change. Consecutive changes of the name are one step.
  void record(EditStep step, bool ofName = false);
  // The next change of the name is a step of its own.
  void endNameEdit() { editsName_ = false; }
  // The next step in that direction, or null. Valid until the next change.
  const EditStep* next(Direction direction) const;
  // Removes and returns the next step in that direction, and adds `current` to the other direction,
  // with its stored deck if the returned step has one. None when there is no such step.
  std::optional<EditStep> go(Direction direction, EditStep current);

 private:
  using Steps = std::deque<EditStep>;

  Steps undone_;
  Steps redone_;
  bool editsName_ = false;
};

}  // namespace glintboard
