// SPDX-License-Identifier: MIT
// What the program prints.
#pragma once

#include <boost/json.hpp>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tools/phone/failure.h"

namespace glintboard::phone {

// Prints either for people or for scripts; what is meant for the other is dropped. Every line is
// flushed, so that a script sees it at once.
class Output {
 public:
  Output(std::ostream& out, std::ostream& error, bool json)
      : out_(out), error_(error), json_(json) {}

  // For people: a line of the answer, with control characters removed.
  void line(std::string_view text);
  // For people: rows of cells, aligned; the first row is the heading.
  void table(const std::vector<std::vector<std::string>>& rows);
  // Whether people see marks such as ✓: on a terminal with UTF-8.
  bool canMark() const;
  // For people, on standard error: what goes on beside the answer.
  void note(std::string_view text);
  // For scripts: one JSON object on a line of its own.
  void record(const boost::json::object& object);
  // For both.
  void failure(const PhoneFailure& failure);

 private:
  std::ostream& out_;
  std::ostream& error_;
  bool json_;
};

// `text`, UTF-8, without what steers a terminal: control characters (line breaks included) and the
// marks that reorder text.
std::string printable(std::string_view text);

}  // namespace glintboard::phone
