// Undo and redo of edits.
#pragma once

#include <QString>
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

// The states before each edit, and those that undoing left behind.
class EditHistory {
 public:
  // An edit is about to change `state`. Edits of the name that follow one another are one.
  void record(DeckState state, bool ofName);
  // The next edit of the name stands for itself.
  void endNameEdit() { editsName_ = false; }
  // The state before the last edit, or none; `current` is what redo() will bring back.
  std::optional<DeckState> undo(DeckState current);
  std::optional<DeckState> redo(DeckState current);
  void clear();

  bool canUndo() const { return !undone_.empty(); }
  bool canRedo() const { return !redone_.empty(); }

 private:
  using States = std::vector<DeckState>;
  std::optional<DeckState> step(States& from, States& to, DeckState current);

  States undone_;
  States redone_;
  bool editsName_ = false;
};

}  // namespace glintboard
