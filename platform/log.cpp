#include "platform/log.h"

#include <unistd.h>

#include <string>

namespace glintboard::log {

void write(std::string_view level, std::string_view text) {
  std::string line;
  line.append(level).append(": ").append(text).append("\n");
  // A log that cannot be written is lost; there is nobody left to tell.
  [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
}

}  // namespace glintboard::log
