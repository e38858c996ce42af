// SPDX-License-Identifier: MIT
#include "agent/decks/deck_store_error.h"

#include <QtGlobal>

namespace glintboard {
namespace {

UserError described(DeckStoreError::Code code, const std::string& payload) {
  using Code = DeckStoreError::Code;
  switch (code) {
    case Code::tooManyTiles:
      return UserError(QT_TRANSLATE_NOOP("UserError", "A deck can have at most %1 tiles."),
                       {payload});
    case Code::duplicateBundleId:
    case Code::duplicateAction:
      return UserError(QT_TRANSLATE_NOOP("UserError", "%1 is already on the deck."), {payload});
    case Code::duplicateShortcut:
      return UserError(QT_TRANSLATE_NOOP("UserError", "That Shortcut is already on the deck."));
    case Code::unknownCategory:
      return UserError(QT_TRANSLATE_NOOP("UserError", "Unknown deck category: %1."), {payload});
    case Code::encodingFailed:
      return UserError(QT_TRANSLATE_NOOP("UserError", "Could not save the deck."));
    case Code::decodingFailed:
      break;
  }
  return UserError(QT_TRANSLATE_NOOP("UserError", "Could not read the saved deck."));
}

}  // namespace

DeckStoreError::DeckStoreError(Code givenCode, std::string givenPayload)
    : UserError(described(givenCode, givenPayload)),
      code(givenCode),
      payload(std::move(givenPayload)) {}

}  // namespace glintboard
