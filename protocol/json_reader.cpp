// SPDX-License-Identifier: MIT
#include "protocol/json_reader.h"

#include <charconv>
#include <cstring>

namespace glintboard {
namespace {

// Parses all of the text as a number; none if it is not of that form or out of range.
template <class Number>
std::optional<Number> numberOf(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc{} && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace

bool JsonReader::read(std::string& output) {
  std::string_view text;
  if (!scanner_.takeString(text)) {
    output.clear();
    return refuse("not a text");
  }
  if (output.size() == text.size()) {  // as when an unchanged text is read again
    std::memcpy(output.data(), text.data(), text.size());
  } else {
    output = text;
  }
  return true;
}

bool JsonReader::read(std::int64_t& output) {
  std::string_view text;
  auto number = scanner_.takeNumber(text) ? numberOf<std::int64_t>(text) : std::nullopt;
  if (!number && !text.empty()) {
    // 1.0 and 1e3 are integers too.
    constexpr double limit = 9223372036854775808.0;
    const auto real = numberOf<double>(text);
    if (real && *real >= -limit && *real < limit &&
        static_cast<double>(static_cast<std::int64_t>(*real)) == *real) {
      number = static_cast<std::int64_t>(*real);
    }
  }
  output = number.value_or(0);
  return number.has_value() || refuse("not an integer");
}

bool JsonReader::read(double& output) {
  std::string_view text;
  const auto number = scanner_.takeNumber(text) ? numberOf<double>(text) : std::nullopt;
  output = number.value_or(0);
  return number.has_value() || refuse("not a number");
}

bool JsonReader::read(Uuid& output) {
  std::string_view text;
  const auto uuid = scanner_.takeString(text) ? parseUuid(text) : std::nullopt;
  output = uuid.value_or(Uuid{});
  return uuid.has_value() || refuse("not a UUID");
}

bool JsonReader::read(WireDate& output) {
  std::string_view text;
  const auto date = scanner_.takeString(text) ? WireDate::parse(text) : std::nullopt;
  output = date.value_or(WireDate{});
  return date.has_value() || refuse("not a date");
}

bool JsonReader::read(std::map<std::string, std::string>& output) {
  output.clear();
  if (!scanner_.enter('{')) {
    return refuse("not an object");
  }
  std::string_view key;
  for (bool isFirst = true; scanner_.nextMember(isFirst, key);) {
    std::string& value = output[std::string(key)];
    if (!read(value)) {
      return within("a value");
    }
  }
  return !scanner_.failed();
}

bool JsonReader::refuse(std::string_view reason) {
  reason_ = reason;
  return false;
}

bool JsonReader::within(std::string_view name) {
  const bool isPath = reason_.find(": ") != std::string::npos;
  reason_.insert(0, isPath ? "." : ": ").insert(0, name);
  return false;
}

}  // namespace glintboard
