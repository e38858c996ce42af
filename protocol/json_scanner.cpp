// SPDX-License-Identifier: MIT
#include "protocol/json_scanner.h"

#include "protocol/utf8.h"

namespace glintboard {
namespace {

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

void appendUtf8(std::string& output, std::uint32_t point) {
  if (point < 0x80) {
    output += static_cast<char>(point);
    return;
  }
  int following = point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
  constexpr unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
  output += static_cast<char>(leads[following] | point >> 6 * following);
  while (following-- > 0) {
    output += static_cast<char>(0x80 | (point >> 6 * following & 0x3F));
  }
}

}  // namespace

bool JsonScanner::takeUnusualString(std::string_view& output) {
  unescaped_.clear();
  for (;;) {
    const char* stop = at_;
    while (stop != end_ && *stop != '"' && *stop != '\\' &&
           static_cast<unsigned char>(*stop) >= 0x20) {
      ++stop;
    }
    const std::string_view plain(at_, static_cast<std::size_t>(stop - at_));
    if (stop == end_ || !isValidUtf8(plain)) {
      return fail();
    }
    unescaped_ += plain;
    at_ = stop + 1;
    if (*stop == '"') {
      output = unescaped_;
      return true;
    }
    if (*stop != '\\' || !takeEscape(unescaped_)) {
      return fail();
    }
  }
}

bool JsonScanner::takeEscape(std::string& output) {
  constexpr std::string_view letters = "\"\\/bfnrt";
  constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
  if (at_ == end_) {
    return false;
  }
  const char letter = *at_++;
  if (const auto known = letters.find(letter); known != std::string_view::npos) {
    output += meanings[known];
    return true;
  }
  std::uint32_t point = 0;
  if (letter != 'u' || !takeHexUnit(point) || (point & 0xFC00) == 0xDC00) {
    return false;
  }
  if ((point & 0xFC00) == 0xD800) {
    std::uint32_t low = 0;
    if (end_ - at_ < 2 || *at_++ != '\\' || *at_++ != 'u' || !takeHexUnit(low) ||
        (low & 0xFC00) != 0xDC00) {
      return false;
    }
    point = 0x10000 + ((point & 0x3FF) << 10 | (low & 0x3FF));
  }
  appendUtf8(output, point);
  return true;
}

bool JsonScanner::takeHexUnit(std::uint32_t& unit) {
  if (end_ - at_ < 4) {
    return false;
  }
  unit = 0;
  for (const char* const stop = at_ + 4; at_ != stop; ++at_) {
    const char lower = static_cast<char>(*at_ | 0x20);
    const bool isLetter = lower >= 'a' && lower <= 'f';
    if (!isLetter && !isDigit(*at_)) {
      return false;
    }
    unit = unit << 4 | static_cast<std::uint32_t>(isLetter ? lower - 'a' + 10 : *at_ - '0');
  }
  return true;
}

const char* JsonScanner::afterDigits(const char* from) const {
  while (from != end_ && isDigit(*from)) {
    ++from;
  }
  return from;
}

bool JsonScanner::takeNumber(std::string_view& output) {
  const char first = peek();
  if (first != '-' && !isDigit(first)) {
    return false;
  }
  const char* const start = at_;
  const char* from = first == '-' ? at_ + 1 : at_;
  const char* stop = from != end_ && *from == '0' ? from + 1 : afterDigits(from);
  bool isNumber = stop != from;
  if (isNumber && stop != end_ && *stop == '.') {
    from = stop + 1;
    stop = afterDigits(from);
    isNumber = stop != from;
  }
  if (isNumber && stop != end_ && (*stop == 'e' || *stop == 'E')) {
    from = stop + 1;
    if (from != end_ && (*from == '+' || *from == '-')) {
      ++from;
    }
    stop = afterDigits(from);
    isNumber = stop != from;
  }
  if (!isNumber) {
    return fail();
  }
  at_ = stop;
  output = {start, static_cast<std::size_t>(stop - start)};
  return true;
}

bool JsonScanner::takeWord(std::string_view word) {
  if (!std::string_view(at_, static_cast<std::size_t>(end_ - at_)).starts_with(word)) {
    return fail();
  }
  at_ += word.size();
  return true;
}

// `enter` bounds the recursion by `maxDepth`.
bool JsonScanner::skip() {  // NOLINT(misc-no-recursion)
  std::string_view ignored;
  bool isFirst = true;
  switch (peek()) {
    case '"':
      return takeString(ignored);
    case '{':
      if (enter('{')) {
        while (nextMember(isFirst, ignored) && skip()) {
        }
      }
      return !failed_;
    case '[':
      if (enter('[')) {
        while (nextItem(isFirst) && skip()) {
        }
      }
      return !failed_;
    case 't':
      return takeWord("true");
    case 'f':
      return takeWord("false");
    case 'n':
      return takeWord("null");
    default:
      return takeNumber(ignored) || fail();
  }
}

}  // namespace glintboard
