// SPDX-License-Identifier: MIT
#include "protocol/wire_date.h"

#include <charconv>

namespace glintboard {
namespace {

constexpr std::string_view pattern = "dddd-dd-ddTdd:dd:ddZ";  // d: a digit

bool matchesPattern(std::string_view text) {
  if (text.size() != pattern.size()) {
    return false;
  }
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (pattern[i] == 'd' ? text[i] < '0' || text[i] > '9' : text[i] != pattern[i]) {
      return false;
    }
  }
  return true;
}

int number(std::string_view digits) {
  int value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

}  // namespace

WireDate WireDate::now() {
  return {std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now())};
}

std::optional<WireDate> WireDate::parse(std::string_view text) {
  using namespace std::chrono;
  if (!matchesPattern(text)) {
    return std::nullopt;
  }
  const year_month_day day(year(number(text.substr(0, 4))),
                           month(static_cast<unsigned>(number(text.substr(5, 2)))),
                           std::chrono::day(static_cast<unsigned>(number(text.substr(8, 2)))));
  const hours hour(number(text.substr(11, 2)));
  const minutes minute(number(text.substr(14, 2)));
  const seconds second(number(text.substr(17, 2)));
  if (!day.ok() || hour >= 24h || minute >= 60min || second >= 60s) {
    return std::nullopt;
  }
  return WireDate{sys_days(day) + hour + minute + second};
}

std::string WireDate::text() const {
  using namespace std::chrono;
  const auto midnight = floor<days>(time);
  const year_month_day day(midnight);
  const hh_mm_ss clock(time - midnight);
  std::string text(pattern);
  const auto put = [&text](std::size_t last, auto number) {
    auto rest = static_cast<unsigned>(number);
    for (; text[last] == 'd'; rest /= 10) {
      text[last] = static_cast<char>('0' + rest % 10);
      last -= last > 0 ? 1 : 0;
    }
  };
  put(3, static_cast<int>(day.year()));
  put(6, static_cast<unsigned>(day.month()));
  put(9, static_cast<unsigned>(day.day()));
  put(12, clock.hours().count());
  put(15, clock.minutes().count());
  put(18, clock.seconds().count());
  return text;
}

ReferenceDate ReferenceDate::now() {
  using namespace std::chrono;
  constexpr sys_days reference = year(2001) / January / 1;
  return {duration<double>(system_clock::now() - reference).count()};
}

}  // namespace glintboard
