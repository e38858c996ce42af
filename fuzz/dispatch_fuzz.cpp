// SPDX-License-Identifier: MIT
// The message dispatcher, pings included: each line of the input is a message, first from a
// stranger, then from the paired phone.
#include "fuzz/fuzz.h"
#include "platform/run_on.h"
#include "protocol/utf8.h"
#include "protocol/wire_codec.h"
#include "tests/support/test_agent.h"

namespace glintboard {
namespace {

constexpr const char* storedDevices =
    R"([{"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF","name":"Phone","pairedAt":700000000,)"
    R"("token":{"value":"the token"}}])";

class Desk {
 public:
  Desk() {
    agent_.desktop.installed = {"com.spotify.client", "com.apple.Safari"};
    agent_.desktop.running = {"com.apple.Safari"};
  }

  void send(std::string_view lines) {
    agent_.run(settled());
    agent_.keychain.items = {{"org.glintboard.Agent.paired-devices/paired-devices", storedDevices}};
    agent_.desktop.calls.clear();
    agent_.processRunner.arguments.clear();
    agent_.sound = {};
    AgentServices services(agent_.environment(), agent_.deckStore);
    eachLine(lines, [&](std::string_view line) { ask(services, line, std::nullopt); });
    fuzz::require(agent_.desktop.calls.empty() && agent_.processRunner.arguments.empty() &&
                      !agent_.sound.muted && agent_.sound.volume == test::Sound().volume,
                  "a stranger's message does nothing");
    eachLine(lines, [&](std::string_view line) { ask(services, line, "the token"); });
  }

 private:
  template <class Action>
  static void eachLine(std::string_view lines, Action action) {
    for (int count = 0; !lines.empty() && count < 16; ++count) {
      const auto end = std::min(lines.find('\n'), lines.size());
      action(lines.substr(0, end));
      lines.remove_prefix(std::min(end + 1, lines.size()));
    }
  }

  void ask(AgentServices& services, std::string_view line, std::optional<std::string> token) {
    const auto replies =
        agent_.run(services.listenerService().dispatch(std::string(line), std::move(token)));
    for (const auto& reply : replies) {
      fuzz::require(isValidUtf8(reply) && decodeJson<MessageEnvelope>(reply).has_value(),
                    "a reply is a message");
    }
  }

  // Waits until the services of the previous input, which may have ended while they loaded their
  // list, no longer use the desk.
  Awaitable<> settled() {
    auto keychain = runOn(agent_.executors.keychainLane(), [] {});
    co_await std::move(keychain);
  }

  test::TestAgent agent_;
};

}  // namespace
}  // namespace glintboard

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Never destroyed: its threads end with the process.
  static auto& desk = *new glintboard::Desk();
  desk.send(glintboard::fuzz::textOf(data, size));
  return 0;
}
