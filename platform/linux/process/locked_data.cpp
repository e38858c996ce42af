// SPDX-License-Identifier: MIT
#include "platform/linux/process/locked_data.h"

#include "platform/linux/base/utf8_text.h"
#include "protocol/utf8.h"

namespace glintboard {

std::string LockedData::text() const {
  const std::lock_guard guard(lock_);
  const std::string_view whole = truncated_ ? wholeCharacters(storage_, limit) : storage_;
  return isValidUtf8(whole) ? std::string(whole) : std::string();
}

}  // namespace glintboard
