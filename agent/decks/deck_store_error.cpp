#include "agent/decks/deck_store_error.h"

#include <QCoreApplication>

namespace glintboard {
namespace {

std::string localized(const char* text) {
  return QCoreApplication::translate("DeckStore", text).toStdString();
}

std::string description(DeckStoreError::Code code, const std::string& payload) {
  using Code = DeckStoreError::Code;
  switch (code) {
    case Code::tooManyTiles: {
      std::string text = localized("A deck can have at most %lld tiles.");
      const std::string placeholder = "%lld";
      if (const auto position = text.find(placeholder); position != std::string::npos) {
        text.replace(position, placeholder.size(), payload);
      }
      return text;
    }
    case Code::duplicateBundleId:
    case Code::duplicateAction:
      return payload + localized(" is already on the deck.");
    case Code::duplicateShortcut:
      return localized("That Shortcut is already on the deck.");
    case Code::unknownCategory:
      return localized("Unknown deck category: ") + payload + ".";
    case Code::encodingFailed:
      return localized("Could not save the deck.");
    case Code::decodingFailed:
      break;
  }
  return localized("Could not read the saved deck.");
}

}  // namespace

DeckStoreError::DeckStoreError(Code givenCode, std::string givenPayload)
    : std::runtime_error(description(givenCode, givenPayload)),
      code(givenCode),
      payload(std::move(givenPayload)) {}

}  // namespace glintboard
