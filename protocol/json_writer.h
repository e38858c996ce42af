// SPDX-License-Identifier: MIT
// JSON text from plain structs, straight into one string.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/enum_text.h"
#include "protocol/record.h"
#include "protocol/uuid.h"
#include "protocol/wire_date.h"

namespace glintboard {

// Writes values one after another into a string: records with their members in ascending order of
// name, absent optionals left out, no white space unless pretty.
class JsonWriter {
 public:
  enum class Style { compact, pretty };

  explicit JsonWriter(std::string& output, Style style = Style::compact)
      : output_(output), style_(style) {}

  void write(std::string_view text);
  void write(const std::string& text) { write(std::string_view(text)); }
  void write(std::int64_t number);
  // A form that reads back as the same number; a number that JSON cannot hold is written as null.
  void write(double number);
  void write(const Uuid& uuid) { write(std::string_view(uuidText(uuid))); }
  void write(const WireDate& date) { write(std::string_view(date.text())); }
  void write(const ReferenceDate& date) { write(date.secondsSinceReference); }

  template <TextEnum Enum>
  void write(Enum value) {
    write(rawValue(value));
  }

  template <class T>
  void write(const std::vector<T>& items) {
    open('[');
    for (const T& item : items) {
      separate();
      write(item);
    }
    close(']');
  }

  void write(const std::map<std::string, std::string>& entries) {
    open('{');
    for (const auto& [key, value] : entries) {
      member(key, value);
    }
    close('}');
  }

  template <Record T>
  void write(const T& record) {
    open('{');
    boost::mp11::mp_for_each<SortedMembers<T>>(
        [&](auto described) { optionalMember(described.name, record.*described.pointer); });
    close('}');
  }

 private:
  template <class T>
  void member(std::string_view name, const T& value) {
    separate();
    write(name);
    output_ += style_ == Style::pretty ? ": " : ":";
    write(value);
  }
  template <class T>
  void optionalMember(std::string_view name, const T& value) {
    member(name, value);
  }
  template <class T>
  void optionalMember(std::string_view name, const std::optional<T>& value) {
    if (value) {
      member(name, *value);
    }
  }

  void open(char bracket);
  void separate();
  void close(char bracket);
  void breakLine();

  std::string& output_;
  Style style_;
  int depth_ = 0;
  bool empty_ = true;  // nothing has been written into the innermost object or array
};

// `value` as JSON text.
template <class T>
std::string jsonText(const T& value, JsonWriter::Style style = JsonWriter::Style::compact) {
  std::string text;
  text.reserve(256);  // more than most messages take
  JsonWriter(text, style).write(value);
  return text;
}

}  // namespace glintboard
