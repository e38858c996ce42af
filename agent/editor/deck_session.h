// SPDX-License-Identifier: MIT
// Loads, edits and saves one deck.
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

// The undo and redo history of one deck. It outlives the window, so that the edits before a save
// can still be undone in the next window.
struct DeckHistory {
  EditHistory edits;
  // The unsaved deck that is shown. Undo restores it after the stored deck was loaded.
  std::optional<DeckState> unsaved;
};
using DeckHistories = std::map<DeckCategoryID, DeckHistory>;

// The dependencies of a session. References must outlive every session.
struct DeckSessionParts {
  asio::any_io_executor mainThread;
  DeckStore& deckStore;
  DeckDrafts& drafts;
  std::shared_ptr<DeckHistories> histories;
  WorkspaceClient workspace;
  // Whether a phone is connected now. Called on the main thread.
  std::function<bool()> isPhoneConnected;
  // Runs after every change of the stored deck. Throws when the deck could not be sent to the
  // phone.
  std::function<Awaitable<>()> onSaved;
};

// Holds one deck at a time: its stored and its edited state, and the messages about it. Only
// save(), reset() and undoing a reset change the stored deck. Edits and saves are refused while a
// deck is loaded or reset, so that no deck overwrites another. Every unsaved edit is kept as a
// draft until it is saved or undone.
//
// Main thread. Its coroutines run there and share ownership, so that a save continues after the
// window is closed.
class DeckSession : public QObject, public std::enable_shared_from_this<DeckSession> {
  Q_OBJECT

 public:
  using Tiles = DeckEdits::Tiles;
  using Direction = EditHistory::Direction;

  // Loads nothing yet.
  explicit DeckSession(DeckSessionParts parts) : parts_(std::move(parts)) {}

  DeckCategoryID category() const { return category_; }
  // Shows the stored deck of that category, and offers its draft. Unsaved edits of the current deck
  // stay in its draft.
  void load(DeckCategoryID category);

  const DeckState& deck() const { return deck_; }
  const DeckState& saved() const { return saved_; }
  bool hasUnsavedChanges() const { return !(deck_ == saved_); }
  bool isLoading() const { return isLoading_; }
  bool isSaving() const { return isSaving_; }
  // True also while a reset is undone.
  bool isResetting() const { return isResetting_; }
  bool isEditable() const { return !isLoading_ && !isResetting_; }

  // Edits. They do nothing while the deck is not editable.
  void setName(const QString& name);
  void setTiles(Tiles tiles);
  bool canGo(Direction direction) const;
  // Undo or redo. Undoing a reset also restores the stored deck and sends it to the phone; if that
  // fails, the deck is restored as an unsaved edit.
  void go(Direction direction);
  // Sets the current names of the Shortcuts, which their keys show.
  void setCatalog(std::vector<CatalogShortcut> catalog);

  // Stores the deck and sends it to the phone.
  void save();
  // Replaces the stored deck with the built-in one and sends it to the phone.
  void reset();

  // Unsaved changes of an earlier session; none when there are none to offer.
  const std::optional<DeckDraft>& offer() const { return offer_; }
  // Whether another deck has been stored since they were made.
  bool isOfferOutdated() const;
  void restoreOffer();
  void dismissOffer();

  bool isPhoneConnected() const { return isPhoneConnected_; }
  // Whether a phone is connected and has the deck as it is shown.
  bool isLive() const;
  // Updates isPhoneConnected and returns it.
  bool refreshPhone();

  // Null when absent.
  QString errorMessage() const { return errorMessage_; }
  QString infoMessage() const { return infoMessage_; }
  void setMessages(const QString& error, const QString& info);

 Q_SIGNALS:
  // The shown or the stored deck has changed.
  void deckChanged();
  // A stored deck is about to replace the shown one.
  void deckReplaced();
  void busyChanged();
  void liveChanged();
  void offerChanged();
  void messagesChanged();
  // The deck was saved and sent to a connected phone.
  void closeRequested();

 private:
  using Self = std::shared_ptr<DeckSession>;
  // The state at the start of an operation.
  struct Begun {
    DeckCategoryID category;
    EditStep step;
    int generation;
  };
  Begun begun() const { return {category_, {deck_, saved_}, generation_}; }
  bool isShown(const Begun& begun) const { return begun.generation == generation_; }

  DeckHistory& history() { return (*parts_.histories)[category_]; }
  // Call it before an edit changes the deck.
  void record(bool ofName);
  void show(DeckState deck);
  void showStored(const DeckTemplate& stored, std::optional<DeckDraft> draft);
  // Call it after every edit and every change of the stored deck.
  void keepDraft();

  static Awaitable<> runLoad(Self self);
  static Awaitable<> runSave(Self self, Begun begun);
  // A step with a stored deck, and the direction that leads to it.
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
  // The error of sending the deck to the phone; null without one.
  static Awaitable<QString> announceSaved(Self self);
  void storeChanged();

  DeckSessionParts parts_;
  DeckCategoryID category_ = DeckTemplates::categoryOrder.front();
  DeckState deck_;
  DeckState saved_;
  std::vector<CatalogShortcut> catalog_;
  int generation_ = 0;  // of the shown deck; results for earlier ones are ignored
  bool isLoading_ = false;
  bool isSaving_ = false;
  bool isStoring_ = false;  // the part of saving or resetting that the store does
  bool isResetting_ = false;

  std::optional<DeckDraft> kept_;  // as it is on disk, or will be
  std::optional<DeckDraft> offer_;

  bool isPhoneConnected_ = false;
  // Whether the stored deck was sent. A phone that connects requests it.
  bool isHandedOver_ = true;

  QString errorMessage_;
  QString infoMessage_;
  QString resetNote_;  // the message about a reset, cleared by the next edit
};

}  // namespace glintboard
