// SPDX-License-Identifier: MIT
// The log, for operators. It goes to the journal if standard error is connected to the journal,
// else to standard error. Never log a token, a PIN or a pairing code. Any thread.
#pragma once

#include <sstream>
#include <string_view>

namespace glintboard::log {

// From the most to the least urgent.
enum class Level { error, warning, info, debug };

// The least urgent level that is written: the one that GLINTBOARD_LOG names, else `info`.
// Initialised before main.
extern const Level threshold;

// Writes one line, whatever the threshold. Control characters in it become spaces.
void write(Level level, std::string_view text);

// Writes the messages of Qt and GLib to this log too. `program` is the program's name in the
// journal. Call it once, in main before starting threads.
void takeMessagesOfLibraries(const char* program);

// Formats the parts and writes them, but only for a level that is written.
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
