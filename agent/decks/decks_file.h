// SPDX-License-Identifier: MIT
// The decks file.
#pragma once

#include <filesystem>
#include <optional>
#include <system_error>
#include <variant>
#include <vector>

#include "protocol/deck_template.h"

namespace glintboard {

// The root object of the decks file, written with its keys in ascending order.
struct DecksFile {
  std::int64_t version = 1;  // of the format; not examined
  std::vector<DeckTemplate> decks;
};
BOOST_DESCRIBE_STRUCT(DecksFile, (), (version, decks))

// The result of reading the decks file.
struct StoredDecks {
  enum class State {
    present,      // `decks` holds them
    absent,       // there is no file
    unusable,     // the file's content is not decks
    unavailable,  // the file cannot be read now; it may hold good decks
  };
  State state = State::absent;
  std::vector<DeckTemplate> decks;
  std::error_code error;  // why the file is unavailable
};

// Reads one decks file repeatedly. Every call reads the whole file; only the memory is reused.
class DecksReader {
 public:
  explicit DecksReader(std::filesystem::path path) : path_(std::move(path)) {}

  const std::filesystem::path& path() const { return path_; }
  // The decks as the file holds them now; valid until the next call. Blocks on the disk.
  const StoredDecks& read();

 private:
  std::filesystem::path path_;
  std::string content_;
  DecksFile file_;
  StoredDecks stored_;
};

// The functions below block on the disk.

// The single deck of an earlier version's file. None when the file is missing, cannot be read or is
// not a deck; the latter two are logged.
std::optional<DeckTemplate> readLegacyDeck(const std::filesystem::path& path);

// Writes the file atomically, creating its folder. Throws DeckStoreError::encodingFailed or
// std::system_error; the previous file is then intact.
void writeDecksFile(const std::filesystem::path& path, const DecksFile& file);

// The first free name beside a file: "decks.json.bak", "decks.json.bak.1" and so on.
std::filesystem::path freeBackup(const std::filesystem::path& path);
// Keeps a copy of the file under that name. Throws std::system_error.
void keepBackup(const std::filesystem::path& path);

}  // namespace glintboard
