// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/user_error.h"

namespace glintboard {

// Why a deck was not saved; the text is meant for the user.
class DeckStoreError : public UserError {
 public:
  enum class Code {
    tooManyTiles,       // payload: the maximum
    duplicateBundleId,  // payload: the bundle identifier
    duplicateAction,    // payload: the action id
    duplicateShortcut,  // payload: the Shortcut identifier
    unknownCategory,    // payload: the category's raw value
    encodingFailed,
    decodingFailed,
  };
  explicit DeckStoreError(Code code, std::string payload = {});

  bool operator==(const DeckStoreError& other) const {
    return code == other.code && payload == other.payload;
  }

  Code code;
  std::string payload;
};

}  // namespace glintboard
