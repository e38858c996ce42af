// SPDX-License-Identifier: MIT
// The deck that is being edited, and its way to the store and back.
#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "agent/decks/deck_drafts.h"
#include "agent/decks/deck_store.h"
#include "agent/editor/deck_edits.h"
#include "agent/editor/edit_history.h"

namespace glintboard {

// What undo and redo know of one deck. It outlives the window, so that a save that closed it can
// still be undone.
struct DeckHistory {
  EditHistory edits;
  // The unsaved deck that is shown. Loading the stored one in its place can be undone too.
  std::optional<DeckState> unsaved;
};
using DeckHistories = std::map<DeckCategoryID, DeckHistory>;

// What a session needs of the agent. References outlive every session.
struct DeckSessionParts {
  asio::any_io_executor mainThread;
  DeckStore& deckStore;
  DeckDrafts& drafts;
  std::shared_ptr<DeckHistories> histories;
  WorkspaceClient workspace;
  // Whether a phone is connected at this moment. Called on the main thread.
  std::function<bool()> isPhoneConnected;
  // Run after every change of the stored deck; throws when the phone could not be told.
  std::function<Awaitable<>()> onSaved;
};

// One deck at a time: as it is stored, as it is edited, and what the user is told about it. Only
// save(), reset() and undoing a reset change the stored deck. While a deck is loaded or reset,
// edits and saves are refused, so that no deck ends up in another's place. Unsaved edits are kept
// as a draft from the moment they are made until they are saved or undone.
//
// Lives on the main thread; its coroutines run there and share it, so that a save goes on when its
// window is closed.
class DeckSession : public QObject, public std::enable_shared_from_this<DeckSession> {
  Q_OBJECT

 public:
  using Tiles = DeckEdits::Tiles;
  using Direction = EditHistory::Direction;

  // Loads nothing yet.
  explicit DeckSession(DeckSessionParts parts) : parts_(std::move(parts)) {}

  DeckCategoryID category() const { return category_; }
  // Shows the stored deck of that category, and offers its draft. Unsaved edits of the present deck
  // stay its draft.
  void load(DeckCategoryID category);

  const DeckState& deck() const { return deck_; }
  const DeckState& saved() const { return saved_; }
  bool hasUnsavedChanges() const { return !(deck_ == saved_); }
  bool isLoading() const { return isLoading_; }
  bool isSaving() const { return isSaving_; }
  // Also while a reset is undone.
  bool isResetting() const { return isResetting_; }
  bool isEditable() const { return !isLoading_ && !isResetting_; }

  // Edits. They do nothing while the deck is not editable.
  void setName(const QString& name);
  void setTiles(Tiles tiles);
  bool canGo(Direction direction) const;
  // Undo or redo. What a reset did to the stored deck is undone there and on the phone too; if that
  // fails the deck comes back as an unsaved edit.
  void go(Direction direction);
  // The Shortcut keys bear these names from now on.
  void setCatalog(std::vector<CatalogShortcut> catalog);

  // Stores the deck and sends it to the phone.
  void save();
  // Puts the built-in deck in place of the stored one and sends it to the phone.
  void reset();

  // Unsaved changes of an earlier session; none when there are none to offer.
  const std::optional<DeckDraft>& offer() const { return offer_; }
  // Whether another deck has been stored since they were made.
  bool isOfferOutdated() const;
  void restoreOffer();
  void dismissOffer();

  bool isPhoneConnected() const { return isPhoneConnected_; }
  // Whether a phone is connected and was given the deck as it is shown.
  bool isLive() const;
  // Asks whether a phone is connected, and returns it.
  bool refreshPhone();

  // Null when absent.
  QString errorMessage() const { return errorMessage_; }
  QString infoMessage() const { return infoMessage_; }
  void setMessages(const QString& error, const QString& info);

 Q_SIGNALS:
  // The deck or what is stored of it.
  void deckChanged();
  // A stored deck is about to be shown instead.
  void deckReplaced();
  void busyChanged();
  void liveChanged();
  void offerChanged();
  void messagesChanged();
  // Saved to a connected phone.
  void closeRequested();

 private:
  using Self = std::shared_ptr<DeckSession>;
  // The deck that an operation began with.
  struct Begun {
    DeckCategoryID category;
    EditStep step;
    int generation;
  };
  Begun begun() const { return {category_, {deck_, saved_}, generation_}; }
  bool isShown(const Begun& begun) const { return begun.generation == generation_; }

  DeckHistory& history() { return (*parts_.histories)[category_]; }
  // An edit is about to change the deck.
  void record(bool ofName);
  void show(DeckState deck);
  void showStored(const DeckTemplate& stored, std::optional<DeckDraft> draft);
  // To be called after every change of the deck by the user, or of what is stored.
  void keepDraft();

  static Awaitable<> runLoad(Self self);
  static Awaitable<> runSave(Self self, Begun begun);
  // A step that has a stored deck, and the direction in which it lies.
  struct Travel {
    Direction direction;
    EditStep step;
  };
  // Stores the deck of the step, or the built-in one.
  void replaceStored(std::optional<Travel> travel);
  static Awaitable<> runReplace(Self self, std::optional<Travel> travel, Begun begun);
  static Awaitable<EditStep> storeInstead(Self self, DeckCategoryID category,
                                          std::optional<Travel> travel);
  void showReplaced(const EditStep& step);
  // Why the phone could not be told; null when it was.
  static Awaitable<QString> announceSaved(Self self);
  void storeChanged();

  DeckSessionParts parts_;
  DeckCategoryID category_ = DeckTemplates::categoryOrder.front();
  DeckState deck_;
  DeckState saved_;
  std::vector<CatalogShortcut> catalog_;
  int generation_ = 0;  // of the deck shown: a result for an earlier one is late
  bool isLoading_ = false;
  bool isSaving_ = false;
  bool isStoring_ = false;  // the part of saving or resetting that the store does
  bool isResetting_ = false;

  std::optional<DeckDraft> kept_;  // as it is on disk, or will be
  std::optional<DeckDraft> offer_;

  bool isPhoneConnected_ = false;
  // Whether the phone was given what is stored. One that comes asks for it by itself.
  bool isHandedOver_ = true;

  QString errorMessage_;
  QString infoMessage_;
  QString resetNote_;  // the information about a reset, which the next edit makes untrue
};

}  // namespace glintboard
