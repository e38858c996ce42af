// SPDX-License-Identifier: MIT
// JSON text from plain structs, without a document tree in between.
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

// Appends JSON values to a string. Records have their members in ascending order of name; empty
// optionals are left out; no white space unless `pretty`. Texts are written as they are, with
// quotes, backslashes and control characters escaped: the output is valid UTF-8 if they are. Not
// for several threads at once.
class JsonWriter {
 public:
  // `pretty`: one member or item a line, indented by two spaces.
  enum class Style { compact, pretty };

  // `output` must outlive the writer.
  explicit JsonWriter(std::string& output, Style style = Style::compact)
      : output_(output), style_(style) {}

  // As a string. Escapes are \" \\ \n \r \t, and \u00XX for other control characters.
  void write(std::string_view text);
  void write(const std::string& text) { write(std::string_view(text)); }
  void write(std::int64_t number);
  // The shortest form that reads back as the same number; infinities and NaN become null.
  void write(double number);
  // As a text: the canonical form in upper case.
  void write(const Uuid& uuid) { write(std::string_view(uuidText(uuid))); }
  // As a text in ISO 8601.
  void write(const WireDate& date) { write(std::string_view(date.text())); }
  // As a number of seconds.
  void write(const ReferenceDate& date) { write(date.secondsSinceReference); }

  // As the text in the enumeration's table.
  template <TextEnum Enum>
  void write(Enum value) {
    write(rawValue(value));
  }

  // As an array of the items in order.
  template <class T>
  void write(const std::vector<T>& items) {
    open('[');
    for (const T& item : items) {
      separate();
      write(item);
    }
    close(']');
  }

  // As an object, its keys in ascending order.
  void write(const std::map<std::string, std::string>& entries) {
    open('{');
    for (const auto& [key, value] : entries) {
      member(key, value);
    }
    close('}');
  }

  // As an object of the record's members.
  template <Record T>
  void write(const T& record) {
    open('{');
    boost::mp11::mp_for_each<SortedMembers<T>>(
        [&](auto described) { optionalMember(described.name, record.*described.pointer); });
    close('}');
  }

 private:
  // A member with its separator.
  template <class T>
  void member(std::string_view name, const T& value) {
    separate();
    write(name);
    output_ += style_ == Style::pretty ? ": " : ":";
    write(value);
  }
  // A member unless its value is an empty optional.
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

  // Begins an object or array with its opening bracket.
  void open(char bracket);
  // Precedes each member or item.
  void separate();
  // Ends the innermost object or array with its closing bracket.
  void close(char bracket);
  // A line break and the indentation if `pretty`, else nothing.
  void breakLine();

  std::string& output_;
  Style style_;
  int depth_ = 0;
  bool empty_ = true;  // the innermost object or array has no member or item yet
};

// `value` as JSON text. Any thread.
template <class T>
std::string jsonText(const T& value, JsonWriter::Style style = JsonWriter::Style::compact) {
  std::string text;
  text.reserve(256);  // longer than most messages
  JsonWriter(text, style).write(value);
  return text;
}

}  // namespace glintboard
