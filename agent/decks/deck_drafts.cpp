// SPDX-License-Identifier: MIT
#include "agent/decks/deck_drafts.h"

#include <utility>

#include "platform/atomic_file.h"
#include "platform/live.h"
#include "platform/log.h"
#include "platform/run_on.h"
#include "platform/spawn.h"
#include "protocol/json_reader.h"
#include "protocol/json_writer.h"

namespace glintboard {
namespace {

constexpr auto keepPause = std::chrono::milliseconds(500);
constexpr mode_t draftMode = 0600;

}  // namespace

std::optional<DeckDraft> deckDraft(std::string_view text, DeckCategoryID category) {
  DeckDraft draft;
  const bool isDraft =
      JsonReader(text).readAll(draft) && draft.version == 1 && draft.deck.id == rawValue(category);
  return isDraft ? std::optional(std::move(draft)) : std::nullopt;
}

DeckDrafts::DeckDrafts(asio::any_io_executor executor, asio::any_io_executor workers,
                       std::optional<std::filesystem::path> folder)
    : Actor(std::move(executor)),
      folder_(folder ? std::move(*folder) : applicationStateFolder() / "drafts"),
      workers_(std::move(workers)),
      changes_(this->executor()),
      pause_(this->executor()) {}

std::filesystem::path DeckDrafts::fileOf(DeckCategoryID category) const {
  return folder_ / (std::string(rawValue(category)) + ".json");
}

Awaitable<std::optional<DeckDraft>> DeckDrafts::load(DeckCategoryID category) {
  return enter(doLoad(category));
}

void DeckDrafts::keep(DeckCategoryID category, std::optional<DeckDraft> draft) {
  spawn(executor(), doKeep(category, std::move(draft)), "keeping a draft");
}

Awaitable<> DeckDrafts::finish() {
  return enter(doFinish());
}

Awaitable<std::optional<DeckDraft>> DeckDrafts::doLoad(DeckCategoryID category) {
  if (const auto kept = unwritten_.find(category); kept != unwritten_.end()) {
    co_return kept->second;
  }
  const auto file = fileOf(category);
  try {
    auto draft = deckDraft(readWholeFile(file), category);
    if (!draft) {
      log::warning(file.string(), " is not a draft of this deck");
    }
    co_return draft;
  } catch (const std::system_error& error) {
    if (error.code() != std::errc::no_such_file_or_directory) {
      log::warning("a draft cannot be read: ", error.what());
    }
    co_return std::nullopt;
  }
}

// The first of several calls waits for the pause and then writes the changes of all.
Awaitable<> DeckDrafts::doKeep(DeckCategoryID category, std::optional<DeckDraft> draft) {
  unwritten_.insert_or_assign(category, std::move(draft));
  const auto guard = co_await changes_.acquire();
  if (unwritten_.empty()) {
    co_return;
  }
  if (!isFinishing_) {
    pause_.expires_after(keepPause);
    co_await pause_.async_wait(asio::as_tuple(asio::use_awaitable));
  }
  while (!unwritten_.empty()) {
    const auto [next, wanted] = *unwritten_.begin();
    co_await write(next, wanted);
    if (unwritten_[next] == wanted) {
      unwritten_.erase(next);
    }
  }
}

Awaitable<> DeckDrafts::doFinish() {
  isFinishing_ = true;
  pause_.cancel();
  const auto guard = co_await changes_.acquire();
}

Awaitable<> DeckDrafts::write(DeckCategoryID category, std::optional<DeckDraft> draft) {
  try {
    auto writing = runOn(workers_, [file = fileOf(category), draft = std::move(draft)] {
      if (draft) {
        std::filesystem::create_directories(file.parent_path());
        writeAtomically(file, jsonText(*draft), draftMode);
      } else {
        std::filesystem::remove(file);
      }
    });
    co_await std::move(writing);
  } catch (const std::exception& error) {
    log::warning("a draft is not kept: ", error.what());
  }
}

}  // namespace glintboard
