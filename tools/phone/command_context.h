// SPDX-License-Identifier: MIT
// The commands, and what they share.
#pragma once

#include <string>

#include "platform/bonjour.h"
#include "platform/local_network.h"
#include "tools/phone/agent_session.h"
#include "tools/phone/arguments.h"
#include "tools/phone/find_agent.h"
#include "tools/phone/output.h"
#include "tools/phone/phone_state.h"

namespace glintboard::phone {

// Lives as long as one run of the program.
struct CommandContext {
  const Arguments& arguments;
  Output& output;
  BonjourBrowser* browser;  // may be null
  LocalNetwork* network;    // null for tests without doctor
  PhoneStateFile stateFile;

  // The agent given by --host, else the one that service discovery finds, preferably of the name
  // `wanted`. Blocks for two seconds at most. Throws PhoneFailure "several_agents".
  FoundAgent chooseAgent(const std::optional<std::string>& wanted) const;
  // Connects to the first address that answers. Throws PhoneFailure.
  AgentSession open(const FoundAgent& agent, const std::optional<std::string>& token) const;
  // A session with the agent that this phone is paired with. Throws PhoneFailure.
  AgentSession openPaired() const;
};

// The commands. Each prints its result to `output` and throws PhoneFailure or std::system_error if
// it fails.
void pairCommand(const CommandContext& context);
void forgetCommand(const CommandContext& context);
void decksCommand(const CommandContext& context);
void watchCommand(const CommandContext& context);
void tapCommand(const CommandContext& context);
void focusCommand(const CommandContext& context);
void iconsCommand(const CommandContext& context);
void pingCommand(const CommandContext& context);
void doctorCommand(const CommandContext& context);
void rawCommand(const CommandContext& context);

// The text of --help.
std::string helpText();

}  // namespace glintboard::phone
