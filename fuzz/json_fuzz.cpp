// SPDX-License-Identifier: MIT
// The JSON scanner. It accepts exactly what Boost.JSON accepts and finds the same values.
#include <boost/json.hpp>
#include <map>

#include "fuzz/fuzz.h"
#include "protocol/json_scanner.h"

namespace glintboard {
namespace {

void requireSame(JsonScanner& scanner, const boost::json::value& value);

void requireSame(JsonScanner& scanner, const boost::json::array& array) {
  fuzz::require(scanner.enter('['), "an array is found");
  std::size_t count = 0;
  for (bool isFirst = true; scanner.nextItem(isFirst); ++count) {
    fuzz::require(count < array.size(), "an array has no item more");
    requireSame(scanner, array[count]);
  }
  fuzz::require(count == array.size(), "an array has no item less");
}

void requireSame(JsonScanner& scanner, const boost::json::object& object) {
  fuzz::require(scanner.enter('{'), "an object is found");
  std::map<std::string, JsonScanner::Checkpoint, std::less<>> last;
  std::string_view key;
  for (bool isFirst = true; scanner.nextMember(isFirst, key);) {
    last.insert_or_assign(std::string(key), scanner.checkpoint());
    fuzz::require(scanner.skip(), "a member can be skipped");
  }
  fuzz::require(last.size() == object.size(), "an object has the same members");
  const auto end = scanner.checkpoint();
  for (const auto& [name, checkpoint] : last) {
    fuzz::require(object.contains(name), "an object has the same keys");
    scanner.rewind(checkpoint);
    requireSame(scanner, object.at(name));
  }
  scanner.rewind(end);
}

void requireSame(JsonScanner& scanner, const boost::json::value& value) {
  std::string_view text;
  if (const auto* array = value.if_array()) {
    requireSame(scanner, *array);
  } else if (const auto* object = value.if_object()) {
    requireSame(scanner, *object);
  } else if (const auto* string = value.if_string()) {
    fuzz::require(scanner.takeString(text) && text == std::string_view(*string),
                  "a string has the same characters");
  } else if (value.is_number()) {
    fuzz::require(scanner.takeNumber(text) && !text.empty(), "a number is found");
  } else if (value.is_null()) {
    fuzz::require(scanner.takeNull(), "null is found");
  } else {
    fuzz::require(scanner.skip(), "true and false can be skipped");
  }
}

}  // namespace
}  // namespace glintboard

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace glintboard;
  const auto text = fuzz::textOf(data, size);
  boost::system::error_code error;
  const auto value = boost::json::parse(text, error);
  if (error == boost::json::error::exponent_overflow) {
    return 0;  // The scanner does not judge the magnitude of numbers.
  }
  JsonScanner skipping(text);
  fuzz::require((skipping.skip() && skipping.isAtEnd()) == !error, "JSON is what is taken for it");
  if (!error) {
    JsonScanner scanner(text);
    requireSame(scanner, value);
    fuzz::require(scanner.isAtEnd(), "nothing is left");
  }
  return 0;
}
