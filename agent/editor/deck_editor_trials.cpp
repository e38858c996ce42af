// SPDX-License-Identifier: MIT
// Trying keys out.
#include <QCoreApplication>
#include <array>

#include "agent/editor/deck_editor_model.h"
#include "platform/log.h"
#include "platform/spawn.h"

namespace glintboard {
namespace {

// For which the check is drawn and held.
constexpr std::chrono::milliseconds successDuration{800};

// The reason, which phones get in English, in the user's language.
QString shownReason(const std::string& reason) {
  [[maybe_unused]] constexpr std::array known = {
      QT_TRANSLATE_NOOP("UserError", "Failed to activate application"),
      QT_TRANSLATE_NOOP("UserError", "Failed to launch application"),
      QT_TRANSLATE_NOOP("UserError", "No application found for bundle identifier"),
      QT_TRANSLATE_NOOP("UserError", "No audio output device found."),
      QT_TRANSLATE_NOOP("UserError", "Shortcut missing \u2014 replace it in Edit Deck."),
      QT_TRANSLATE_NOOP("UserError", "Needs permission or input on your Mac."),
      QT_TRANSLATE_NOOP("UserError", "Still waiting on your Mac \u2014 check for a dialog."),
      QT_TRANSLATE_NOOP("UserError", "Could not run Shortcut on Mac.")};
  return QCoreApplication::translate("UserError", reason.c_str());
}

}  // namespace

void DeckEditorModel::tryKey(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= tiles().size()) {
    return;
  }
  const DeckTile& tile = tiles()[static_cast<std::size_t>(index)];
  if (trials_.emplace(DeckKeyIdentity(tile.kind, tile.derivedId()), KeyTrial::launching).second) {
    showKeys();
    spawn(inputs_.mainThread, runTrial(shared_from_this(), tile), "trying a key");
  }
}

Awaitable<> DeckEditorModel::runTrial(std::shared_ptr<DeckEditorModel> self, DeckTile tile) {
  const DeckKeyIdentity key{tile.kind, tile.derivedId()};
  auto trying = self->inputs_.tryKey(tile);
  const std::optional<std::string> failure = co_await std::move(trying);
  if (failure) {
    log::info("trying the key ", key.second, ": ", *failure);
    self->setError(QString::fromStdString(tile.label) + QStringLiteral(": ") +
                   shownReason(*failure));
  } else {
    self->trials_[key] = KeyTrial::succeeded;
    self->setError(QString());
    self->showKeys();
    // Timers do not run on the main thread.
    auto showing =
        asio::co_spawn(self->inputs_.timers, sleepFor(successDuration), asio::use_awaitable);
    co_await std::move(showing);
  }
  self->trials_.erase(key);
  self->showKeys();
}

}  // namespace glintboard
