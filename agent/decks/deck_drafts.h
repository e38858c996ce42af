// SPDX-License-Identifier: MIT
// Unsaved changes that outlive the editor.
#pragma once

#include <boost/asio/steady_timer.hpp>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>

#include "platform/actor.h"
#include "platform/async_lock.h"
#include "protocol/deck_template.h"
#include "protocol/deck_templates.h"
#include "protocol/wire_date.h"

namespace glintboard {

// A deck with unsaved changes. In files an object of these members.
struct DeckDraft {
  DeckTemplate deck;
  DeckTemplate base;  // the stored deck that was changed
  WireDate editedAt;
  std::int64_t version = 1;  // of the format; files of another one are ignored

  bool operator==(const DeckDraft&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeckDraft, (), (deck, base, editedAt, version))

// Reads a draft of that category. None when the text is not one.
std::optional<DeckDraft> deckDraft(std::string_view text, DeckCategoryID category);

// Keeps one draft for each category, in one file each. A change is written half a second later,
// together with later changes, so that a crash loses half a second of work at most. Drafts are not
// sent to phones.
//
// An actor of the service loop; files are written on the workers.
class DeckDrafts : public Actor {
 public:
  // `folder` is by default in the agent's state folder. Accesses no file.
  DeckDrafts(asio::any_io_executor executor, asio::any_io_executor workers,
             std::optional<std::filesystem::path> folder = std::nullopt);

  // The latest draft; none when there is none or its file is not usable. Never fails.
  Awaitable<std::optional<DeckDraft>> load(DeckCategoryID category);
  // Replaces the draft, or removes it when there is none. Returns at once; any thread. A failure to
  // write is logged.
  void keep(DeckCategoryID category, std::optional<DeckDraft> draft);
  // Writes pending changes now and waits for that. Later changes are written without a delay.
  Awaitable<> finish();

 private:
  Awaitable<std::optional<DeckDraft>> doLoad(DeckCategoryID category);
  Awaitable<> doKeep(DeckCategoryID category, std::optional<DeckDraft> draft);
  Awaitable<> doFinish();
  Awaitable<> write(DeckCategoryID category, std::optional<DeckDraft> draft);
  std::filesystem::path fileOf(DeckCategoryID category) const;

  std::filesystem::path folder_;
  asio::any_io_executor workers_;
  AsyncLock changes_;
  asio::steady_timer pause_;
  bool isFinishing_ = false;
  // What has not been written yet.
  std::map<DeckCategoryID, std::optional<DeckDraft>> unwritten_;
};

}  // namespace glintboard
