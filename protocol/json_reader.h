// SPDX-License-Identifier: MIT
// Plain structs from JSON text, in one pass over it.
#pragma once

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

// Why a text could not be read, for a log: "payload.ts: not a date".
struct DecodeError {
  std::string reason;
};

[[noreturn]] inline void throw_exception_from_error(const DecodeError& error,
                                                    const boost::source_location&) {
  throw std::runtime_error(error.reason);
}

template <class T>
using Decoded = boost::system::result<T, DecodeError>;

// Reads values out of a JSON text: at most 32 levels deep, valid UTF-8 throughout; of a repeated
// key the last counts. What is read replaces everything that `output` held, whose memory is used
// again. When something does not fit, what was read until then is not to be used.
class JsonReader {
 public:
  explicit JsonReader(std::string_view text) : scanner_(text) {}

  // Reads the text, which must hold this one value and nothing else. Returns whether it fits.
  template <class T>
  bool readAll(T& output) {
    const bool fits = read(output);
    return scanner_.failed() || (fits && !scanner_.isAtEnd()) ? refuse("not JSON") : fits;
  }

  const std::string& reason() const { return reason_; }

 private:
  // Each takes the next value and returns whether it fits; if not, it may have taken a part.
  bool read(std::string& output);
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

  enum class Found : std::uint8_t { nothing, value, misfit };

  template <Record T>
  bool read(T& output) {
    using Members = SortedMembers<T>;
    constexpr std::size_t count = boost::mp11::mp_size<Members>::value;
    if (!scanner_.enter('{')) {
      return refuse("not an object");
    }
    std::array<Found, count + 1> found{};  // the last is for keys that are no member's
    bool isFirst = true;
    // What we wrote has its members in this order and no white space.
    const bool isJson = [&]<std::size_t... index>(std::index_sequence<index...>) {
      return (
          readExpectedMember<boost::mp11::mp_at_c<Members, index>>(isFirst, output, found[index]) &&
          ...);
    }(std::make_index_sequence<count>());
    if (!isJson) {
      return false;
    }
    std::size_t likely = 0;
    std::string_view key;
    while (scanner_.nextMember(isFirst, key)) {
      const std::size_t place = placeOf<Members>(key, likely);
      likely = place < count ? place + 1 : likely;
      if (!boost::mp11::mp_with_index<count + 1>(place, [&](auto index) {
            if constexpr (index < count) {
              using Described = boost::mp11::mp_at_c<Members, index>;
              return readMember(Described::name, output.*Described::pointer, found[index]);
            } else {
              return scanner_.skip();
            }
          })) {
        return false;
      }
    }
    return !scanner_.failed() && finish(output, found);
  }

  // Takes the member if it comes next as we write it. False when the text is no JSON.
  template <class Described, class T>
  bool readExpectedMember(bool& isFirst, T& output, Found& found) {
    static constexpr auto text = memberText<Described>();
    return !scanner_.takeExpectedMember(isFirst, text) ||
           readMember(Described::name, output.*Described::pointer, found);
  }
  // As it is written before the value of a member that follows another.
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

  // The index of the member of that name, sought from `likely` on; the number of members if none.
  template <class Members>
  static std::size_t placeOf(std::string_view key, std::size_t likely) {
    constexpr std::size_t count = boost::mp11::mp_size<Members>::value;
    static constexpr auto names = []<class... Described>(boost::mp11::mp_list<Described...>) {
      return std::array<std::string_view, sizeof...(Described)>{Described::name...};
    }(boost::mp11::mp_rename<Members, boost::mp11::mp_list>());
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t place = likely + i < count ? likely + i : likely + i - count;
      if (names[place].size() == key.size() &&
          std::memcmp(names[place].data(), key.data(), key.size()) == 0) {
        return place;
      }
    }
    return count;
  }

  // Takes the value of a member, whether it fits or not. False when the text is no JSON.
  template <class Member>
  bool readMember(std::string_view name, Member& output, Found& found) {
    if (scanner_.takeNull()) {
      found = Found::nothing;
      return true;
    }
    const auto start = scanner_.place();
    if (read(output)) {
      found = Found::value;
      return true;
    }
    if (scanner_.failed()) {
      return false;
    }
    found = Found::misfit;
    within(name);
    scanner_.goBack(start);
    return scanner_.skip();
  }

  // Judges what was found of a record, and gives its default value to what was not.
  template <class T, std::size_t size>
  bool finish(T& output, const std::array<Found, size>& found) {
    using Members = SortedMembers<T>;
    bool fits = true;
    std::size_t place = 0;
    boost::mp11::mp_for_each<Members>([&](auto described) {
      const Found each = found[place++];
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
        return found[placeOf<Members>(name, 0)] == Found::value;
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

  // Both return false, for the convenience of their callers.
  bool refuse(std::string_view reason);
  bool within(std::string_view name);

  JsonScanner scanner_;
  std::string reason_;
};

// A value of type `T` out of JSON text.
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
