// SPDX-License-Identifier: MIT
#include "platform/linux/base/key_file.h"

#include <sstream>

namespace glintboard {

GLibPointer<GKeyFile> loadKeyFile(const std::filesystem::path& path, GKeyFileFlags flags) {
  constexpr std::uintmax_t largest = 4u << 20u;
  std::error_code error;
  // Opening a named pipe would block until it has a writer.
  if (!std::filesystem::is_regular_file(path, error) ||
      std::filesystem::file_size(path, error) > largest) {
    return nullptr;
  }
  GLibPointer<GKeyFile> file(g_key_file_new());
  if (g_key_file_load_from_file(file.get(), path.c_str(), flags, nullptr) == 0) {
    return nullptr;
  }
  return file;
}

std::string textOf(GKeyFile* file, const char* group, const char* key) {
  const GLibPointer<char> text(g_key_file_get_string(file, group, key, nullptr));
  return text ? text.get() : "";
}

bool flagOf(GKeyFile* file, const char* group, const char* key) {
  return g_key_file_get_boolean(file, group, key, nullptr) != 0;
}

int numberOf(GKeyFile* file, const char* group, const char* key, int fallback) {
  GLibPointer<GError> error;
  const int number = g_key_file_get_integer(file, group, key, leftIn(error));
  return error ? fallback : number;
}

std::vector<std::string> commaListOf(GKeyFile* file, const char* group, const char* key) {
  std::istringstream list(textOf(file, group, key));
  std::vector<std::string> texts;
  for (std::string text; std::getline(list >> std::ws, text, ',');) {
    text.erase(text.find_last_not_of(" \t") + 1);
    if (!text.empty()) {
      texts.push_back(text);
    }
  }
  return texts;
}

}  // namespace glintboard
