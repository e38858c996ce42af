// SPDX-License-Identifier: MIT
// Undo and redo of what happens to a deck.
#pragma once

#include <QString>
#include <deque>
#include <optional>
#include <vector>

#include "protocol/deck_tile.h"

namespace glintboard {

// What an edit changes.
struct DeckState {
  QString name;
  std::vector<DeckTile> tiles;
  bool operator==(const DeckState&) const = default;
};

// One place in a history.
struct EditStep {
  DeckState shown;
  // The stored deck that belongs to it; none for an edit, which stores nothing.
  std::optional<DeckState> stored;
  bool operator==(const EditStep&) const = default;
};

// The steps before each change, and those that undoing left behind.
class EditHistory {
 public:
  enum class Direction { undo, redo };
  // The oldest steps beyond these are forgotten.
  static constexpr std::size_t capacity = 100;

  // A change is about to leave this step. Changes of the name that follow one another are one.
  void record(EditStep step, bool ofName = false);
  // The next change of the name stands for itself.
  void endNameEdit() { editsName_ = false; }
  // Where that direction leads, or null. Valid until the next change.
  const EditStep* next(Direction direction) const;
  // Goes there from `current`, to which the other direction leads from now on: to its stored deck
  // too if the step has one. None when there is no such step.
  std::optional<EditStep> go(Direction direction, EditStep current);

 private:
  using Steps = std::deque<EditStep>;

  Steps undone_;
  Steps redone_;
  bool editsName_ = false;
};

}  // namespace glintboard
