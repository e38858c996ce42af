// SPDX-License-Identifier: MIT
// Lines for whoever looks after the agent; the user sees none of them. They go to the journal where
// that takes standard error, else to standard error itself. A line may never hold a token, a PIN or
// a pairing code. Any thread.
#pragma once

#include <sstream>
#include <string_view>

namespace glintboard::log {

enum class Level { error, warning, info, debug };

// The least urgent level that is written: GLINTBOARD_LOG by its name, `info` without it. Fixed
// before main begins.
extern const Level threshold;

// Writes one line, whatever the threshold. Control characters in it become spaces.
void write(Level level, std::string_view text);

// From now on what Qt and GLib have to say is written here too. Once, by a program whose log this
// is, before it has threads.
void takeMessagesOfLibraries(const char* program);

// Nothing is put together for a level that is not written.
template <class... Parts>
void writeIfWanted(Level level, const Parts&... parts) {
  if (level <= threshold) {
    std::ostringstream text;
    (text << ... << parts);
    write(level, text.view());
  }
}

template <class... Parts>
void error(const Parts&... parts) {
  writeIfWanted(Level::error, parts...);
}

template <class... Parts>
void warning(const Parts&... parts) {
  writeIfWanted(Level::warning, parts...);
}

template <class... Parts>
void info(const Parts&... parts) {
  writeIfWanted(Level::info, parts...);
}

template <class... Parts>
void debug(const Parts&... parts) {
  writeIfWanted(Level::debug, parts...);
}

}  // namespace glintboard::log
