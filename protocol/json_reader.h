// Plain structs from JSON text.
#pragma once

#include <boost/json.hpp>
#include <boost/system/result.hpp>
#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/enum_text.h"
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

// Reads values out of a parsed JSON text. The first thing that does not fit ends the reading; what
// was read until then is not to be used.
class JsonReader {
 public:
  // Each returns whether `value` fits.
  bool read(const boost::json::value& value, std::string& output);
  bool read(const boost::json::value& value, std::int64_t& output);
  bool read(const boost::json::value& value, double& output);
  bool read(const boost::json::value& value, Uuid& output);
  bool read(const boost::json::value& value, WireDate& output);
  bool read(const boost::json::value& value, ReferenceDate& output);
  bool read(const boost::json::value& value, std::map<std::string, std::string>& output);

  template <TextEnum Enum>
  bool read(const boost::json::value& value, Enum& output) {
    const auto* text = value.if_string();
    const auto known = text != nullptr ? fromRawValue<Enum>(*text) : std::nullopt;
    if (known) {
      output = *known;
    }
    return known.has_value() || refuse("unknown value");
  }

  template <class T>
  bool read(const boost::json::value& value, std::vector<T>& output) {
    const auto* array = value.if_array();
    if (array == nullptr) {
      return refuse("not an array");
    }
    output.reserve(array->size());
    for (const auto& item : *array) {
      if (!read(item, output.emplace_back())) {
        return false;
      }
    }
    return true;
  }

  template <class T>
  bool read(const boost::json::value& value, std::optional<T>& output) {
    return read(value, output.emplace());
  }

  template <Record T>
  bool read(const boost::json::value& value, T& output) {
    const auto* object = value.if_object();
    if (object == nullptr) {
      return refuse("not an object");
    }
    bool fits = true;
    boost::mp11::mp_for_each<SortedMembers<T>>([&](auto described) {
      fits = fits && readMember<T>(*object, described.name, output.*described.pointer);
    });
    if (fits) {
      RecordRules<T>::complete(output,
                               [&](std::string_view name) { return present(*object, name); });
    }
    return fits;
  }

  const std::string& reason() const { return reason_; }

 private:
  template <class T>
  static constexpr bool isOptional(const std::optional<T>&) {
    return true;
  }
  template <class T>
  static constexpr bool isOptional(const T&) {
    return false;
  }

  // A member counts as absent when it is null.
  static const boost::json::value* present(const boost::json::object& object,
                                           std::string_view name) {
    const auto* value = object.if_contains(name);
    return value != nullptr && !value->is_null() ? value : nullptr;
  }

  template <class T, class Member>
  bool readMember(const boost::json::object& object, std::string_view name, Member& output) {
    if (const auto* value = present(object, name)) {
      return read(*value, output) || within(name);
    }
    if (isOptional(output) || RecordRules<T>::mayBeAbsent(name)) {
      return true;
    }
    refuse("missing");
    return within(name);
  }

  // Both return false, for the convenience of their callers.
  bool refuse(std::string_view reason);
  bool within(std::string_view name);

  std::string reason_;
};

// The parsed text: at most 32 levels deep, valid UTF-8 throughout; of a repeated key the last
// counts.
Decoded<boost::json::value> parseJson(std::string_view text, boost::json::storage_ptr storage = {});

// A value of type `T` out of a parsed text.
template <class T>
Decoded<T> decodeValue(const boost::json::value& value) {
  T output{};
  JsonReader reader;
  if (!reader.read(value, output)) {
    return DecodeError{reader.reason()};
  }
  return output;
}

// A value of type `T` out of JSON text.
template <class T>
Decoded<T> decodeJson(std::string_view text) {
  unsigned char buffer[8192];
  boost::json::monotonic_resource memory(buffer);
  const auto value = parseJson(text, &memory);
  if (!value) {
    return value.error();
  }
  return decodeValue<T>(*value);
}

}  // namespace glintboard
