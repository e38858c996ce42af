// SPDX-License-Identifier: MIT
#include "tools/phone/phone_state.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "platform/atomic_file.h"
#include "protocol/json_reader.h"
#include "protocol/json_writer.h"
#include "tools/phone/failure.h"

namespace glintboard::phone {

PhoneState PhoneStateFile::load() const {
  std::string text;
  try {
    text = readWholeFile(path());
  } catch (const std::system_error& error) {
    if (error.code() != std::errc::no_such_file_or_directory) {
      throw;
    }
    return {randomUuid(), {}, {}};
  }
  const auto state = decodeJson<PhoneState>(text);
  if (!state) {
    throw PhoneFailure(
        ExitCode::local, "state",
        path().string() + " is damaged (" + state.error().reason + "). Remove it and pair again.");
  }
  return *state;
}

void PhoneStateFile::save(const PhoneState& state) const {
  const auto folder = std::filesystem::absolute(folder_).lexically_normal();
  std::filesystem::create_directories(folder.parent_path());
  if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) {
    throw std::system_error(errno, std::generic_category(), folder.string());
  }
  writeAtomically(folder / "phone.json", jsonText(state, JsonWriter::Style::pretty) + "\n", 0600);
}

std::filesystem::path defaultStateFolder() {
  const char* stateHome = std::getenv("XDG_STATE_HOME");
  if (stateHome != nullptr && *stateHome == '/') {
    return std::filesystem::path(stateHome) / "glintboard-phone";
  }
  const char* home = std::getenv("HOME");
  if (home != nullptr && *home == '/') {
    return std::filesystem::path(home) / ".local/state/glintboard-phone";
  }
  throw PhoneFailure(ExitCode::local, "state",
                     "There is no home folder to keep the pairing in. Give one with --state DIR.");
}

}  // namespace glintboard::phone
