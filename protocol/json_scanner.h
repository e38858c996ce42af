// SPDX-License-Identifier: MIT
// Walks through a JSON text without building anything.
#pragma once

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace glintboard {

// Takes one value after another off a text. An operation that finds no JSON makes the scanner fail
// for good; one that finds another kind of value takes nothing. The text must outlive the scanner.
class JsonScanner {
 public:
  static constexpr int maxDepth = 32;  // objects and arrays in one another

  explicit JsonScanner(std::string_view text) : at_(text.data()), end_(at_ + text.size()) {}

  // The first character of the next value: '"', '{', '[', a digit or '-', 't', 'f', 'n'. Zero at
  // the end of the text.
  char peek() {
    while (at_ != end_ && (*at_ == ' ' || *at_ == '\n' || *at_ == '\r' || *at_ == '\t')) {
      ++at_;
    }
    return at_ == end_ ? '\0' : *at_;
  }

  // Goes into an object or an array; false when something else comes.
  bool enter(char bracket) {
    if (peek() != bracket) {
      return false;
    }
    ++at_;
    return ++depth_ <= maxDepth || fail();
  }
  // Whether another member or item follows in there, the first time with `isFirst`, which is then
  // cleared. False at the end, which is left, and on failure. A key is valid until the next call.
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
  bool nextItem(bool& isFirst) { return next(isFirst, ']'); }
  // Takes the next member's key if it stands there as `expected`, which is ,"key": with its comma,
  // and nothing but that. For who knows in which order a text was written; takes nothing if not.
  template <std::size_t size>
  bool takeExpectedMember(bool& isFirst, const std::array<char, size>& expected) {
    const std::size_t comma = isFirst ? 0 : 1;
    // Of a length that is known here, so that it is a few comparisons and no call.
    if (static_cast<std::size_t>(end_ - at_) < size || (!isFirst && *at_ != expected[0]) ||
        std::memcmp(at_ + comma, &expected[1], size - 1) != 0) {
      return false;
    }
    at_ += size - 1 + comma;
    isFirst = false;
    return true;
  }

  // A text with its escapes resolved; valid until the next call.
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
  // The characters of a number.
  bool takeNumber(std::string_view& output);
  bool takeNull() { return peek() == 'n' && takeWord("null"); }
  // Any value.
  bool skip();
  // Whether all of the text was JSON and has been taken.
  bool isAtEnd() { return peek() == '\0' && at_ == end_ && !failed_; }

  bool failed() const { return failed_; }

  // A place to come back to. Coming back is possible as long as the scanner has not failed.
  struct Place {
    const char* at;
    int depth;
  };
  Place place() const { return {at_, depth_}; }
  void goBack(const Place& place) {
    at_ = place.at;
    depth_ = place.depth;
  }

 private:
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

  // The first character that is not just itself within a text: a quote, a backslash, a control or
  // one beyond ASCII.
  const char* endOfPlainText(const char* from) const {
#ifdef __SSE2__
    for (; end_ - from >= 16; from += 16) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
      const auto is = [&](char character) {
        return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(character));
      };
      const __m128i unusual =
          _mm_or_si128(_mm_or_si128(is('"'), is('\\')),
                       _mm_cmplt_epi8(bytes, _mm_set1_epi8(0x20)));  // beyond ASCII is negative
      if (const auto places = static_cast<unsigned>(_mm_movemask_epi8(unusual)); places != 0) {
        return from + std::countr_zero(places);
      }
    }
#endif
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
      ++from;  // Beyond ASCII, characters are negative.
    }
    return from;
  }
  // The highest bit of each unusual byte; above the lowest one perhaps those of others too.
  static constexpr std::uint64_t unusualBytes(std::uint64_t word) {
    constexpr std::uint64_t ones = 0x0101010101010101U;
    const auto zeroBytes = [](std::uint64_t bytes) { return (bytes - ones) & ~bytes; };
    return ((word - ones * 0x20) | word | zeroBytes(word ^ ones * '"') |
            zeroBytes(word ^ ones * '\\')) &
           ones * 0x80;
  }

  bool takeUnusualString(std::string_view& output);
  bool takeWord(std::string_view word);
  bool takeEscape(std::string& output);
  bool takeHexUnit(std::uint32_t& unit);
  const char* afterDigits(const char* from) const;
  // False. Nothing is found any more.
  bool fail() {
    at_ = end_;
    failed_ = true;
    return false;
  }

  const char* at_;
  const char* end_;
  int depth_ = 0;
  bool failed_ = false;
  std::string unescaped_;
};

}  // namespace glintboard
