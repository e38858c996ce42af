// SPDX-License-Identifier: MIT
// The program's output.
#pragma once

#include <boost/json.hpp>
#include <chrono>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tools/phone/failure.h"

namespace glintboard::phone {

// Prints text for people or JSON for scripts, and drops the other kind. Flushes after every line,
// so that scripts can follow.
class Output {
 public:
  Output(std::ostream& out, std::ostream& error, bool json)
      : out_(out), error_(error), json_(json) {}

  // For people: one line, without control characters.
  void line(std::string_view text);
  // For people: rows of aligned cells; the first row is the heading.
  void table(const std::vector<std::vector<std::string>>& rows);
  // Whether the output can show marks such as ✓: it is a terminal with UTF-8.
  bool canMark() const;
  // For people: progress, on standard error.
  void note(std::string_view text);
  // For scripts: one JSON object on a line of its own.
  void record(const boost::json::object& object);
  // For either: an error.
  void failure(const PhoneFailure& failure);

 private:
  std::ostream& out_;
  std::ostream& error_;
  bool json_;
};

// UTF-8 `text` without characters that control a terminal: control characters (line breaks
// included) and the marks that reorder text.
std::string printable(std::string_view text);

// The time for people, such as "0.42 ms".
std::string milliseconds(std::chrono::duration<double> time);

}  // namespace glintboard::phone
