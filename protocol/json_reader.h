// SPDX-License-Identifier: MIT
// Plain structs from JSON text, in one pass and without a document tree.
#pragma once

#include <algorithm>
#include <array>
#include <boost/mp11.hpp>
#include <boost/system/result.hpp>
#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/enum_text.h"
#include "protocol/json_scanner.h"
#include "protocol/record.h"
#include "protocol/uuid.h"
#include "protocol/wire_date.h"

namespace glintboard {

// Why a text could not be read, for the log: the path of the member and the reason, such as
// "payload.ts: not a date", or "not JSON". Holds no value of the text.
struct DecodeError {
  std::string reason;
};

// Lets `Decoded<T>::value()` throw std::runtime_error with that reason.
[[noreturn]] inline void throw_exception_from_error(const DecodeError& error,
                                                    const boost::source_location&) {
  throw std::runtime_error(error.reason);
}

// A value or the reason why there is none.
template <class T>
using Decoded = boost::system::result<T, DecodeError>;

// Decodes a JSON text into the type of `output`: described structs (see `Record`), vectors,
// optionals, string maps, texts, numbers, enumerations with a table, UUIDs and dates. The text must
// be UTF-8 throughout and at most `JsonScanner::maxDepth` levels deep. Unknown keys are skipped; of
// a repeated key the last value counts; null counts as absent. The text must outlive the reader.
// One thread.
class JsonReader {
 public:
  explicit JsonReader(std::string_view text) : scanner_(text) {}

  // Decodes the text, which must hold this one value and nothing else. Returns whether it fits; see
  // `reason` if not. Replaces everything that `output` held and reuses its memory, so that a record
  // can be read again and again without allocations. If it does not fit, `output` is partly filled
  // and must not be used.
  template <class T>
  bool readAll(T& output) {
    const bool fits = read(output);
    return scanner_.failed() || (fits && !scanner_.isAtEnd()) ? refuse("not JSON") : fits;
  }

  // The reason of the failure, as in `DecodeError`.
  const std::string& reason() const { return reason_; }

 private:
  // Each consumes the next value and returns whether it fits. If not, it sets the reason and may
  // have consumed a part of the value.
  bool read(std::string& output);
  // Accepts 1.0 and 1e3 too; refuses fractions and numbers outside of the type's range.
  bool read(std::int64_t& output);
  bool read(double& output);
  bool read(Uuid& output);
  bool read(WireDate& output);
  bool read(ReferenceDate& output) { return read(output.secondsSinceReference); }
  bool read(std::map<std::string, std::string>& output);

  template <TextEnum Enum>
  bool read(Enum& output) {
    std::string_view text;
    const auto known = scanner_.takeString(text) ? fromRawValue<Enum>(text) : std::nullopt;
    output = known.value_or(Enum{});
    return known.has_value() || refuse("unknown value");
  }

  template <class T>
  bool read(std::vector<T>& output) {
    if (!scanner_.enter('[')) {
      return refuse("not an array");
    }
    std::size_t count = 0;
    for (bool isFirst = true; scanner_.nextItem(isFirst); ++count) {
      if (!read(count < output.size() ? output[count] : output.emplace_back())) {
        return false;
      }
    }
    output.resize(count);
    return !scanner_.failed();
  }

  template <class T>
  bool read(std::optional<T>& output) {
    return read(output ? *output : output.emplace());
  }

  // What was found of a member: no value or null, a value that fits, or one that does not.
  enum class Found : std::uint8_t { nothing, value, misfit };

  template <Record T>
  bool read(T& output) {
    using Members = SortedMembers<T>;
    constexpr std::size_t count = boost::mp11::mp_size<Members>::value;
    if (!scanner_.enter('{')) {
      return refuse("not an object");
    }
    std::array<Found, count + 1> found{};  // the last element is for unknown keys
    bool isFirst = true;
    // Texts of `JsonWriter` have their members in this order and no white space. Without this path
    // the decks file of 48 keys takes 2.9 µs more to read (13.6 instead of 10.7), 29 % of what a
    // ping costs beyond the bare echo; see bench/history.md.
    const bool isJson = [&]<std::size_t... index>(std::index_sequence<index...>) {
      return (
          readExpectedMember<boost::mp11::mp_at_c<Members, index>>(isFirst, output, found[index]) &&
          ...);
    }(std::make_index_sequence<count>());
    if (!isJson) {
      return false;
    }
    std::string_view key;
    while (scanner_.nextMember(isFirst, key)) {
      const std::size_t index = indexOf<Members>(key);
      if (!boost::mp11::mp_with_index<count + 1>(index, [&](auto constant) {
            if constexpr (constant < count) {
              using Described = boost::mp11::mp_at_c<Members, constant>;
              return readMember(Described::name, output.*Described::pointer, found[constant]);
            } else {
              return scanner_.skip();
            }
          })) {
        return false;
      }
    }
    return !scanner_.failed() && finish(output, found);
  }

  // Consumes the member if it comes next as `JsonWriter` writes it. False only if the text is not
  // JSON.
  template <class Described, class T>
  bool readExpectedMember(bool& isFirst, T& output, Found& found) {
    static constexpr auto text = memberText<Described>();
    return !scanner_.takeExpectedMember(isFirst, text) ||
           readMember(Described::name, output.*Described::pointer, found);
  }
  // ,"name": as `JsonWriter` writes it after another member.
  template <class Described>
  static constexpr auto memberText() {
    constexpr std::string_view name = Described::name;
    std::array<char, name.size() + 4> text{};
    std::copy(name.begin(), name.end(), text.begin() + 2);
    text[0] = ',';
    text[1] = text[text.size() - 2] = '"';
    text.back() = ':';
    return text;
  }

  // The index of the member named `key`; the number of members if none.
  template <class Members>
  static std::size_t indexOf(std::string_view key) {
    static constexpr auto names = []<class... Described>(boost::mp11::mp_list<Described...>) {
      return std::array<std::string_view, sizeof...(Described)>{Described::name...};
    }(boost::mp11::mp_rename<Members, boost::mp11::mp_list>());
    return static_cast<std::size_t>(std::ranges::find(names, key) - names.begin());
  }

  // Consumes the value of a member. A value that does not fit is skipped, so that a later one of
  // the same key can replace it. False only if the text is not JSON.
  template <class Member>
  bool readMember(std::string_view name, Member& output, Found& found) {
    if (scanner_.takeNull()) {
      found = Found::nothing;
      return true;
    }
    const auto start = scanner_.checkpoint();
    if (read(output)) {
      found = Found::value;
      return true;
    }
    if (scanner_.failed()) {
      return false;
    }
    found = Found::misfit;
    within(name);
    scanner_.rewind(start);
    return scanner_.skip();
  }

  // Resets absent members that may be absent, and refuses the record if another is absent or
  // misfits. Applies its `RecordRules`.
  template <class T, std::size_t size>
  bool finish(T& output, const std::array<Found, size>& found) {
    using Members = SortedMembers<T>;
    bool fits = true;
    std::size_t index = 0;
    boost::mp11::mp_for_each<Members>([&](auto described) {
      const Found each = found[index++];
      if (!fits || each == Found::value) {
        return;
      }
      auto& member = output.*described.pointer;
      if (each == Found::misfit) {
        fits = false;
      } else if (isOptional(member) || RecordRules<T>::mayBeAbsent(described.name)) {
        member = {};
      } else {
        refuse("missing");
        fits = within(described.name);
      }
    });
    if (fits) {
      RecordRules<T>::complete(output, [&](std::string_view name) {
        return found[indexOf<Members>(name)] == Found::value;
      });
    }
    return fits;
  }

  template <class T>
  static constexpr bool isOptional(const std::optional<T>&) {
    return true;
  }
  template <class T>
  static constexpr bool isOptional(const T&) {
    return false;
  }

  // Sets the reason. Returns false, which callers return.
  bool refuse(std::string_view reason);
  // Prepends the name of a member to the path in the reason. Returns false as well.
  bool within(std::string_view name);

  JsonScanner scanner_;
  std::string reason_;
};

// Decodes a JSON text as a value of type `T`. Any thread.
template <class T>
Decoded<T> decodeJson(std::string_view text) {
  T output{};
  JsonReader reader(text);
  if (!reader.readAll(output)) {
    return DecodeError{reader.reason()};
  }
  return output;
}

}  // namespace glintboard
