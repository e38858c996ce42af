// Lines on standard error for whoever looks after the agent; the user sees none of them.
#pragma once

#include <sstream>
#include <string_view>

namespace glintboard::log {

// Writes "level: text" and a line break in one call. Any thread.
void write(std::string_view level, std::string_view text);

template <class... Parts>
void warning(const Parts&... parts) {
  std::ostringstream text;
  (text << ... << parts);
  write("warning", text.view());
}

template <class... Parts>
void info(const Parts&... parts) {
  std::ostringstream text;
  (text << ... << parts);
  write("info", text.view());
}

}  // namespace glintboard::log
