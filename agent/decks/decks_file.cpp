// SPDX-License-Identifier: MIT
#include "agent/decks/decks_file.h"

#include "agent/decks/deck_store_error.h"
#include "platform/atomic_file.h"
#include "platform/log.h"
#include "protocol/json_reader.h"
#include "protocol/json_writer.h"
#include "protocol/utf8.h"

namespace glintboard {
namespace {

constexpr mode_t fileMode = 0644;

bool isMissing(const std::error_code& error) {
  return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

}  // namespace

const StoredDecks& DecksReader::read() {
  using State = StoredDecks::State;
  // Reuses the memory of the previous call.
  file_.decks.swap(stored_.decks);
  try {
    bool isPresent = false;
    const auto parse = [&](std::string_view text) {
      isPresent = JsonReader(text).readAll(file_);
      return isPresent;
    };
    const auto text = readWholeFile(path_, content_, parse);
    stored_.state = isPresent || parse(text) ? State::present : State::unusable;
    stored_.error = {};
  } catch (const std::system_error& error) {
    stored_.state = isMissing(error.code()) ? State::absent : State::unavailable;
    stored_.error = error.code();
  }
  if (stored_.state == State::present) {
    file_.decks.swap(stored_.decks);
  } else {
    stored_.decks.clear();
  }
  return stored_;
}

std::optional<DeckTemplate> readLegacyDeck(const std::filesystem::path& path) {
  try {
    auto deck = decodeJson<DeckTemplate>(readWholeFile(path));
    if (deck) {
      return std::move(*deck);
    }
    log::warning(path.string(), " is not a deck and stays as it is: ", deck.error().reason);
  } catch (const std::system_error& error) {
    if (!isMissing(error.code())) {
      log::warning(path.string(), " cannot be read and stays as it is: ", error.code().message());
    }
  }
  return std::nullopt;
}

void writeDecksFile(const std::filesystem::path& path, const DecksFile& file) {
  const std::string content = jsonText(file);
  if (!isValidUtf8(content)) {
    throw DeckStoreError(DeckStoreError::Code::encodingFailed);
  }
  std::filesystem::create_directories(path.parent_path());
  writeAtomically(path, content, fileMode);
}

std::filesystem::path freeBackup(const std::filesystem::path& path) {
  const std::filesystem::path first = path.string() + ".bak";
  std::filesystem::path backup = first;
  for (int number = 1; std::filesystem::exists(backup); ++number) {
    backup = first.string() + "." + std::to_string(number);
  }
  return backup;
}

void keepBackup(const std::filesystem::path& path) {
  const auto backup = freeBackup(path);
  writeAtomically(backup, readWholeFile(path), fileMode);
  log::warning(path.string(), " cannot be used; it is kept as ", backup.string());
}

}  // namespace glintboard
