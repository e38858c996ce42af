// How decks come to the editor and go from it.
#include "agent/editor/deck_editor_model.h"
#include "agent/editor/deck_edits.h"
#include "agent/language/error_text.h"
#include "platform/log.h"
#include "platform/spawn.h"

namespace glintboard {

void DeckEditorModel::loadDeck() {
  ++generation_;
  isLoading_ = true;
  // Now, since what comes up meanwhile is not about the deck that goes.
  setMessages(QString(), QString());
  Q_EMIT busyChanged();
  Q_EMIT liveChanged();
  // The file is read once the change under way has been written.
  if (!isStoring_) {
    spawn(inputs_.mainThread, runLoad(shared_from_this()), "loading the deck");
  }
}

Awaitable<> DeckEditorModel::runLoad(Self self) {
  const int generation = self->generation_;
  auto loading = self->inputs_.deckStore.loadDeck(self->selectedCategory_, self->inputs_.workspace);
  const DeckTemplate deck = co_await std::move(loading);
  if (generation != self->generation_) {
    co_return;
  }
  self->isLoading_ = false;
  self->showStored(deck);
  Q_EMIT self->busyChanged();
}

void DeckEditorModel::showStored(const DeckTemplate& deck) {
  saved_ = {QString::fromStdString(deck.name), DeckEdits::orderedBySlot(deck.tiles)};
  deck_ = saved_;
  history_.clear();
  dismissFirstShortcutTip();
  refreshShortcutLabels();
  showDeck();
}

void DeckEditorModel::save() {
  if (!isEditable() || isSaving_) {
    return;
  }
  isSaving_ = true;
  isStoring_ = true;
  Q_EMIT busyChanged();
  Q_EMIT liveChanged();
  spawn(inputs_.mainThread, runSave(shared_from_this(), {selectedCategory_, deck_, generation_}),
        "saving the deck");
}

// The user may go on editing, or choose another deck, while this one is written.
Awaitable<> DeckEditorModel::runSave(Self self, Shown shown) {
  QString name = shown.deck.name.trimmed();
  if (name.isEmpty()) {
    name = QString::fromStdString(std::string(displayName(shown.category)));
  }
  QString failure;
  try {
    auto saving = self->inputs_.deckStore.saveDeck(shown.category, name.toStdString(),
                                                   shown.deck.tiles, self->inputs_.workspace);
    co_await std::move(saving);
  } catch (const std::exception& error) {
    log::warning("saving the deck: ", error.what());
    failure = errorText(error);
  }
  self->storeChanged();
  const bool isStored = failure.isNull();
  if (isStored) {
    if (shown.generation == self->generation_) {
      self->saved_ = {name, shown.deck.tiles};
      if (self->deck_.name == shown.deck.name) {
        self->deck_.name = name;
      }
      self->history_.endNameEdit();
      Q_EMIT self->deckChanged();
    }
    failure = co_await announceSaved(self);
  }
  const bool isAway = !self->refreshPhone();
  // What became of a deck is said over that deck alone.
  if (shown.generation == self->generation_) {
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

void DeckEditorModel::reset() {
  if (!isEditable() || isSaving_) {
    return;
  }
  isResetting_ = true;
  isStoring_ = true;
  Q_EMIT busyChanged();
  Q_EMIT liveChanged();
  spawn(inputs_.mainThread, runReset(shared_from_this(), selectedCategory_, generation_),
        "resetting the deck");
}

Awaitable<> DeckEditorModel::runReset(Self self, DeckCategoryID category, int generation) {
  QString failure;
  std::optional<DeckTemplate> deck;
  try {
    auto resetting = self->inputs_.deckStore.resetDeck(category, self->inputs_.workspace);
    deck = co_await std::move(resetting);
  } catch (const std::exception& error) {
    log::warning("resetting the deck: ", error.what());
    failure = errorText(error);
  }
  self->isResetting_ = false;
  self->storeChanged();
  self->isHandedOver_ = self->isHandedOver_ && !deck;
  const auto tell = [&] {
    if (generation == self->generation_) {
      self->setMessages(failure, self->infoMessage_);
    }
  };
  if (deck && generation == self->generation_) {
    self->showStored(*deck);
  }
  tell();
  Q_EMIT self->busyChanged();
  if (deck) {
    failure = co_await announceSaved(self);
    if (self->refreshPhone() && !failure.isNull()) {
      tell();
    }
  }
  Q_EMIT self->liveChanged();
}

// The deck is saved, whatever becomes of telling it.
Awaitable<QString> DeckEditorModel::announceSaved(Self self) {
  QString failure;
  self->isHandedOver_ = false;
  try {
    auto announcing = self->inputs_.onSaved();
    co_await std::move(announcing);
    self->isHandedOver_ = true;
  } catch (const std::exception& error) {
    log::warning("after saving the deck: ", error.what());
    failure = errorText(error);
  }
  co_return failure;
}

void DeckEditorModel::storeChanged() {
  isStoring_ = false;
  if (isLoading_) {
    spawn(inputs_.mainThread, runLoad(shared_from_this()), "loading the deck");
  }
}

}  // namespace glintboard
