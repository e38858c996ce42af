// SPDX-License-Identifier: MIT
#include "agent/editor/deck_session.h"

namespace glintboard {
namespace {

DeckTemplate templateOf(DeckCategoryID category, const DeckState& state) {
  return {std::string(rawValue(category)), state.name.toStdString(), state.tiles};
}

DeckState stateOf(const DeckTemplate& deck) {
  return {QString::fromStdString(deck.name), DeckEdits::orderedBySlot(deck.tiles)};
}

// Compares the decks as the store writes them, with renumbered keys.
bool isSameDeck(const DeckTemplate& one, const DeckState& other) {
  const DeckState state = stateOf(one);
  return state.name == other.name &&
         DeckEdits::renumbered(state.tiles) == DeckEdits::renumbered(other.tiles);
}

}  // namespace

void DeckSession::setName(const QString& name) {
  if (name == deck_.name) {
    return;
  }
  if (isEditable()) {
    record(true);
    deck_.name = name;
    keepDraft();
  }
  // Emitted also for a refused name, so that the text field reverts.
  Q_EMIT deckChanged();
}

void DeckSession::setTiles(Tiles tiles) {
  if (tiles == deck_.tiles || !isEditable()) {
    return;
  }
  record(false);
  show({deck_.name, std::move(tiles)});
  keepDraft();
}

void DeckSession::record(bool ofName) {
  history().edits.record({deck_, std::nullopt}, ofName);
  if (!resetNote_.isNull() && infoMessage_ == resetNote_) {
    setMessages(errorMessage_, QString());
  }
}

void DeckSession::show(DeckState deck) {
  deck_ = std::move(deck);
  deck_.tiles = DeckEdits::withShortcutNames(std::move(deck_.tiles), catalog_);
  Q_EMIT deckChanged();
}

void DeckSession::setCatalog(std::vector<CatalogShortcut> catalog) {
  catalog_ = std::move(catalog);
  show(std::move(deck_));
}

bool DeckSession::canGo(Direction direction) const {
  const auto found = parts_.histories->find(category_);
  const EditStep* const next =
      found == parts_.histories->end() ? nullptr : found->second.edits.next(direction);
  return next != nullptr && isEditable() && !(next->stored && isSaving_);
}

void DeckSession::go(Direction direction) {
  if (!canGo(direction)) {
    return;
  }
  if (const EditStep& next = *history().edits.next(direction); next.stored) {
    replaceStored(Travel{direction, next});
    return;
  }
  // The message was about the undone edit.
  setMessages(QString(), infoMessage_);
  show(history().edits.go(direction, {deck_, saved_})->shown);
  keepDraft();
}

void DeckSession::showStored(const DeckTemplate& stored, std::optional<DeckDraft> draft) {
  DeckHistory& known = history();
  known.edits.endNameEdit();
  if (known.unsaved) {
    known.edits.record({*known.unsaved, std::nullopt});
  }
  saved_ = stateOf(stored);
  kept_ = std::move(draft);
  // It may have been saved meanwhile.
  offer_ = kept_ && !isSameDeck(kept_->deck, saved_) ? kept_ : std::nullopt;
  Q_EMIT deckReplaced();
  show(saved_);
  keepDraft();
  Q_EMIT offerChanged();
}

void DeckSession::keepDraft() {
  // A renamed Shortcut is not an edit.
  const DeckState unedited{saved_.name, DeckEdits::withShortcutNames(saved_.tiles, catalog_)};
  const bool isEdited = !(deck_ == unedited);
  history().unsaved = isEdited ? std::optional(deck_) : std::nullopt;
  std::optional<DeckDraft> wanted = offer_;
  if (isEdited) {
    wanted =
        DeckDraft{templateOf(category_, deck_), templateOf(category_, saved_), WireDate::now()};
    if (kept_ && kept_->deck == wanted->deck && kept_->base == wanted->base) {
      return;
    }
  }
  if (wanted != kept_) {
    kept_ = wanted;
    parts_.drafts.keep(category_, std::move(wanted));
  }
}

bool DeckSession::isOfferOutdated() const {
  return offer_ && !isSameDeck(offer_->base, saved_);
}

void DeckSession::restoreOffer() {
  if (!offer_ || !isEditable()) {
    return;
  }
  record(false);
  const DeckState restored = stateOf(offer_->deck);
  offer_.reset();
  show(restored);
  keepDraft();
  Q_EMIT offerChanged();
}

void DeckSession::dismissOffer() {
  if (offer_) {
    offer_.reset();
    keepDraft();
    Q_EMIT offerChanged();
  }
}

bool DeckSession::isLive() const {
  return isPhoneConnected_ && isHandedOver_ && !isLoading_ && !isSaving_ && !isResetting_ &&
         !hasUnsavedChanges();
}

bool DeckSession::refreshPhone() {
  const bool connected = parts_.isPhoneConnected();
  isHandedOver_ = isHandedOver_ || !connected;
  if (connected != isPhoneConnected_) {
    isPhoneConnected_ = connected;
    Q_EMIT liveChanged();
  }
  return isPhoneConnected_;
}

void DeckSession::setMessages(const QString& error, const QString& info) {
  if (error != errorMessage_ || info != infoMessage_) {
    errorMessage_ = error;
    infoMessage_ = info;
    Q_EMIT messagesChanged();
  }
}

}  // namespace glintboard
