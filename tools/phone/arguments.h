// SPDX-License-Identifier: MIT
// The command line.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/deck_templates.h"
#include "protocol/enum_text.h"

namespace glintboard::phone {

enum class Command {
  pair,
  decks,
  icons,
  tap,
  focus,
  ping,
  watch,
  forget,
  doctor,
  raw,
  help,
  version
};

// Where an agent listens. The host is a name or a numeric address without brackets.
struct AgentAddress {
  std::string host;
  std::uint16_t port = 0;

  bool operator==(const AgentAddress&) const = default;
  // "host:port", with brackets around an IPv6 address.
  std::string text() const;
};

struct Arguments {
  Command command = Command::help;

  std::string secret;                               // pair: the PIN, or the QR code's address
  std::filesystem::path iconFolder;                 // icons
  std::int64_t slot = 0;                            // tap, focus
  DeckCategoryID deck = DeckCategoryID::streaming;  // tap, focus
  std::string messageType;                          // raw
  std::string payload;                              // raw: JSON text
  std::optional<std::string> name;                  // pair
  int count = 1;                                    // ping
  std::optional<std::chrono::milliseconds> watchFor;

  std::optional<AgentAddress> host;
  std::optional<std::filesystem::path> stateFolder;
  std::chrono::milliseconds timeout = std::chrono::seconds(30);
  bool json = false;
};

// Parses the words after the program's name. Throws PhoneFailure "usage".
Arguments parseArguments(const std::vector<std::string>& words);

// Parses HOST, HOST:PORT, [IPV6]:PORT or a bare IPv6 address; without a port it is `defaultPort`.
// None for any other text.
std::optional<AgentAddress> parseAddress(std::string_view text);

}  // namespace glintboard::phone

namespace glintboard {
template <>
struct EnumText<phone::Command> {
  static constexpr EnumTable<12, phone::Command> table{{
      {phone::Command::pair, "pair"},
      {phone::Command::decks, "decks"},
      {phone::Command::icons, "icons"},
      {phone::Command::tap, "tap"},
      {phone::Command::focus, "focus"},
      {phone::Command::ping, "ping"},
      {phone::Command::watch, "watch"},
      {phone::Command::forget, "forget"},
      {phone::Command::doctor, "doctor"},
      {phone::Command::raw, "raw"},
      {phone::Command::help, "help"},
      {phone::Command::version, "version"},
  }};
};
}  // namespace glintboard
