// SPDX-License-Identifier: MIT
// Tokens of a JSON text (RFC 8259), read in place without building a document tree.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace glintboard {

// Reads one value after another from a text. Each operation skips white space first and returns
// whether it consumed what it names. If a value of another kind comes next, it consumes nothing. If
// the text is not JSON, the scanner has failed: every later operation returns false. Strings are
// checked to be UTF-8. Never throws but std::bad_alloc. The text must outlive the scanner. Not
// thread-safe.
class JsonScanner {
 public:
  // Nesting of objects and arrays; a deeper text fails. Bounds the recursion of `skip` and of
  // readers.
  static constexpr int maxDepth = 32;

  explicit JsonScanner(std::string_view text) : at_(text.data()), end_(at_ + text.size()) {}

  // The first character of the next token, which is not consumed: '"', '{', '[', a digit or '-',
  // 't', 'f' or 'n' if a value begins there. '\0' at the end of the text and after a failure.
  char peek() {
    while (at_ != end_ && (*at_ == ' ' || *at_ == '\n' || *at_ == '\r' || *at_ == '\t')) {
      ++at_;
    }
    return at_ == end_ ? '\0' : *at_;
  }

  // Enters an object ('{') or an array ('[').
  bool enter(char bracket) {
    if (peek() != bracket) {
      return false;
    }
    ++at_;
    return ++depth_ <= maxDepth || fail();
  }
  // Advances to the value of the next member of the entered object. `isFirst` must be true before
  // the first member and is cleared. False after the last member, whose object is then left, and on
  // failure. `key` is valid until the next operation.
  bool nextMember(bool& isFirst, std::string_view& key) {
    if (!next(isFirst, '}')) {
      return false;
    }
    if (!takeString(key) || peek() != ':') {
      return fail();
    }
    ++at_;
    return true;
  }
  // The same for the next item of the entered array.
  bool nextItem(bool& isFirst) { return next(isFirst, ']'); }
  // Advances to the value of the next member if the text continues with exactly `expected`, which
  // is ,"key": with its comma (left out for the first member). Otherwise consumes nothing and
  // `nextMember` is to be called. For callers that know the order in which a text was written.
  template <std::size_t size>
  bool takeExpectedMember(bool& isFirst, const std::array<char, size>& expected) {
    const std::size_t comma = isFirst ? 0 : 1;
    // The length is a constant, so the comparison is inlined.
    if (static_cast<std::size_t>(end_ - at_) < size || (!isFirst && *at_ != expected[0]) ||
        std::memcmp(at_ + comma, &expected[1], size - 1) != 0) {
      return false;
    }
    at_ += size - 1 + comma;
    isFirst = false;
    return true;
  }

  // Consumes a string. `output` has its escapes resolved and is valid until the next operation.
  bool takeString(std::string_view& output) {
    if (peek() != '"') {
      return false;
    }
    const char* const start = ++at_;
    const char* const stop = endOfPlainText(start);
    if (stop == end_ || *stop != '"') {
      return takeUnusualString(output);
    }
    output = {start, static_cast<std::size_t>(stop - start)};
    at_ = stop + 1;
    return true;
  }
  // Consumes a number. `output` is its text; magnitude and precision are left to the caller.
  bool takeNumber(std::string_view& output);
  // Consumes null.
  bool takeNull() { return peek() == 'n' && takeWord("null"); }
  // Consumes any value, nested ones included, and checks it.
  bool skip();
  // Whether only white space is left of the text and nothing has failed.
  bool isAtEnd() { return peek() == '\0' && at_ == end_ && !failed_; }

  // Whether the text is not JSON as far as it has been read.
  bool failed() const { return failed_; }

  // A saved position with its nesting depth.
  struct Checkpoint {
    const char* at;
    int depth;
  };
  Checkpoint checkpoint() const { return {at_, depth_}; }
  // Returns to a checkpoint of this scanner. Must not be called after a failure.
  void rewind(const Checkpoint& checkpoint) {
    at_ = checkpoint.at;
    depth_ = checkpoint.depth;
  }

 private:
  // Consumes the comma before the next member or item, or the closing bracket.
  bool next(bool& isFirst, char closing) {
    const char character = peek();
    if (character == closing) {
      ++at_;
      --depth_;
      return false;
    }
    if (std::exchange(isFirst, false)) {
      return character != '\0' || fail();
    }
    if (character != ',') {
      return fail();
    }
    ++at_;
    return true;
  }

  // The first character from `from` on that is not plain within a string: a quote, a backslash, a
  // control character or one beyond ASCII. Scans eight characters at a time: one at a time takes
  // 1.4 µs more to read the decks file of 48 keys (12.4 instead of 11.0), 14 % of what a ping costs
  // beyond the bare echo. Sixteen at a time with SSE2 gained 0.3 µs; see bench/history.md.
  const char* endOfPlainText(const char* from) const {
    for (; end_ - from >= 8; from += 8) {
      std::uint64_t word = 0;
      std::memcpy(&word, from, sizeof(word));
      if (const std::uint64_t unusual = unusualBytes(word); unusual != 0) {
        if constexpr (std::endian::native == std::endian::little) {
          return from + std::countr_zero(unusual) / 8;
        }
        break;
      }
    }
    while (from != end_ && static_cast<signed char>(*from) >= 0x20 && *from != '"' &&
           *from != '\\') {
      ++from;  // Characters beyond ASCII are negative.
    }
    return from;
  }
  // The highest bit of the lowest byte that is not plain, and possibly of bytes above it; zero if
  // all are plain.
  static constexpr std::uint64_t unusualBytes(std::uint64_t word) {
    constexpr std::uint64_t ones = 0x0101010101010101U;
    const auto zeroBytes = [](std::uint64_t bytes) { return (bytes - ones) & ~bytes; };
    return ((word - ones * 0x20) | word | zeroBytes(word ^ ones * '"') |
            zeroBytes(word ^ ones * '\\')) &
           ones * 0x80;
  }

  // Continues `takeString` for strings with escapes, characters beyond ASCII or errors.
  bool takeUnusualString(std::string_view& output);
  // Consumes exactly `word`, or fails.
  bool takeWord(std::string_view word);
  // Appends the character of an escape sequence, whose backslash has been consumed, as UTF-8.
  bool takeEscape(std::string& output);
  // The four hexadecimal digits of \u: a UTF-16 code unit.
  bool takeHexUnit(std::uint32_t& unit);
  // The first character from `from` on that is not a digit.
  const char* afterDigits(const char* from) const;
  // Marks the scanner as failed and returns false.
  bool fail() {
    at_ = end_;
    failed_ = true;
    return false;
  }

  const char* at_;
  const char* end_;
  int depth_ = 0;
  bool failed_ = false;
  std::string unescaped_;  // the last string that had escapes
};

}  // namespace glintboard
