// SPDX-License-Identifier: MIT
// Loading, saving and resetting in a session.
#include "agent/editor/deck_session.h"
#include "agent/language/error_text.h"
#include "platform/log.h"
#include "platform/spawn.h"

namespace glintboard {

void DeckSession::load(DeckCategoryID category) {
  category_ = category;
  ++generation_;
  isLoading_ = true;
  offer_.reset();
  // Cleared first: a message set during the load belongs to the new deck.
  setMessages(QString(), QString());
  Q_EMIT busyChanged();
  Q_EMIT liveChanged();
  Q_EMIT offerChanged();
  // The file is read once the change under way has been written.
  if (!isStoring_) {
    spawn(parts_.mainThread, runLoad(shared_from_this()), "loading the deck");
  }
}

Awaitable<> DeckSession::runLoad(Self self) {
  const int generation = self->generation_;
  const DeckCategoryID category = self->category_;
  auto loading = self->parts_.deckStore.loadDeck(category, self->parts_.workspace);
  const DeckTemplate deck = co_await std::move(loading);
  auto drafting = self->parts_.drafts.load(category);
  auto draft = co_await std::move(drafting);
  if (generation != self->generation_) {
    co_return;
  }
  self->isLoading_ = false;
  self->showStored(deck, std::move(draft));
  Q_EMIT self->busyChanged();
}

void DeckSession::save() {
  if (!isEditable() || isSaving_) {
    return;
  }
  isSaving_ = true;
  isStoring_ = true;
  Q_EMIT busyChanged();
  Q_EMIT liveChanged();
  spawn(parts_.mainThread, runSave(shared_from_this(), begun()), "saving the deck");
}

// The user may edit on, or select another deck, during the save.
Awaitable<> DeckSession::runSave(Self self, Begun begun) {
  const DeckState& deck = begun.step.shown;
  QString name = deck.name.trimmed();
  if (name.isEmpty()) {
    name = QString::fromStdString(std::string(displayName(begun.category)));
  }
  QString failure;
  try {
    auto saving = self->parts_.deckStore.saveDeck(begun.category, name.toStdString(), deck.tiles,
                                                  self->parts_.workspace);
    co_await std::move(saving);
  } catch (const std::exception& error) {
    log::warning("saving the deck: ", error.what());
    failure = errorText(error);
  }
  self->storeChanged();
  const bool isStored = failure.isNull();
  if (isStored) {
    if (self->isShown(begun)) {
      self->saved_ = {name, deck.tiles};
      if (self->deck_.name == deck.name) {
        self->deck_.name = name;
      }
      self->history().edits.endNameEdit();
      self->offer_.reset();
      self->keepDraft();
      Q_EMIT self->deckChanged();
      Q_EMIT self->offerChanged();
    }
    failure = co_await announceSaved(self);
  }
  const bool isAway = !self->refreshPhone();
  // The result is shown with its own deck only.
  if (self->isShown(begun)) {
    if (isStored && isAway) {
      self->setMessages(QString(), tr("Saved on Mac \u2014 connect iPhone to update."));
    } else if (!failure.isNull()) {
      self->setMessages(failure, self->infoMessage_);
    } else if (!self->hasUnsavedChanges()) {
      Q_EMIT self->closeRequested();
    }
  }
  self->isSaving_ = false;
  Q_EMIT self->busyChanged();
  Q_EMIT self->liveChanged();
}

void DeckSession::reset() {
  if (isEditable() && !isSaving_) {
    replaceStored(std::nullopt);
  }
}

void DeckSession::replaceStored(std::optional<Travel> travel) {
  isResetting_ = true;
  isStoring_ = true;
  Q_EMIT busyChanged();
  Q_EMIT liveChanged();
  spawn(parts_.mainThread, runReplace(shared_from_this(), std::move(travel), begun()),
        "resetting the deck");
}

Awaitable<EditStep> DeckSession::storeInstead(Self self, DeckCategoryID category,
                                              std::optional<Travel> travel) {
  DeckStore& store = self->parts_.deckStore;
  if (travel) {
    const DeckState& deck = *travel->step.stored;
    auto saving =
        store.saveDeck(category, deck.name.toStdString(), deck.tiles, self->parts_.workspace);
    co_await std::move(saving);
    co_return travel->step;
  }
  auto resetting = store.resetDeck(category, self->parts_.workspace);
  const DeckTemplate deck = co_await std::move(resetting);
  const DeckState state{QString::fromStdString(deck.name), deck.tiles};
  co_return EditStep{state, state};
}

Awaitable<> DeckSession::runReplace(Self self, std::optional<Travel> travel, Begun begun) {
  std::optional<EditStep> after;
  QString failure;
  try {
    auto storing = storeInstead(self, begun.category, travel);
    after = co_await std::move(storing);
  } catch (const std::exception& error) {
    log::warning("resetting the deck: ", error.what());
    failure = errorText(error);
  }
  const bool isStored = after.has_value();
  DeckHistory& history = (*self->parts_.histories)[begun.category];
  if (travel) {
    history.edits.go(travel->direction, begun.step);
    after = {travel->step.shown, isStored ? travel->step.stored : begun.step.stored};
  } else if (isStored && *after != begun.step) {
    history.edits.record(begun.step);
  }
  self->isResetting_ = false;
  self->storeChanged();
  self->isHandedOver_ = self->isHandedOver_ && !isStored;
  if (!self->isShown(begun)) {
    history.unsaved.reset();  // the history has recorded it
  } else if (after) {
    self->showReplaced(*after);
  }
  const auto tell = [&](const QString& note) {
    if (self->isShown(begun)) {
      self->setMessages(failure, note);
    }
  };
  const bool isUndo = travel && travel->direction == Direction::undo;
  if (isStored && !isUndo) {
    self->resetNote_ = tr("The default deck is in place. Undo brings yours back.");
    tell(self->resetNote_);
  } else {
    tell(self->infoMessage_);
  }
  Q_EMIT self->busyChanged();
  if (isStored) {
    failure = co_await announceSaved(self);
    const bool isAway = !self->refreshPhone();
    if (isUndo) {
      self->resetNote_ =
          isAway || !failure.isNull()
              ? tr("The reset is undone: your deck is saved. Connect iPhone to update.")
              : tr("The reset is undone: your deck is saved and on the iPhone again.");
      failure = isAway ? QString() : failure;
      tell(self->resetNote_);
    } else if (!isAway && !failure.isNull()) {
      tell(self->infoMessage_);
    }
  }
  Q_EMIT self->liveChanged();
}

void DeckSession::showReplaced(const EditStep& step) {
  saved_ = *step.stored;
  Q_EMIT deckReplaced();
  show(step.shown);
  keepDraft();
  Q_EMIT offerChanged();
}

// A failure to send leaves the deck saved.
Awaitable<QString> DeckSession::announceSaved(Self self) {
  QString failure;
  self->isHandedOver_ = false;
  try {
    auto announcing = self->parts_.onSaved();
    co_await std::move(announcing);
    self->isHandedOver_ = true;
  } catch (const std::exception& error) {
    log::warning("after saving the deck: ", error.what());
    failure = errorText(error);
  }
  co_return failure;
}

void DeckSession::storeChanged() {
  isStoring_ = false;
  if (isLoading_) {
    spawn(parts_.mainThread, runLoad(shared_from_this()), "loading the deck");
  }
}

}  // namespace glintboard
