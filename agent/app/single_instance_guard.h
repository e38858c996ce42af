// SPDX-License-Identifier: MIT
// One agent for each user of a computer.
#pragma once

#include <cstdint>

#include "platform/agent_instances.h"
#include "protocol/glintboard_service.h"

namespace glintboard::SingleInstanceGuard {

// Ends the other instances, and waits up to five seconds until their port can be bound. False when
// a younger instance runs, in whose favour this one should end. Blocks; runs before anything that
// must not wait. Never throws.
bool enforce(AgentInstances& instances, std::uint16_t port = GlintboardService::defaultPort);

// Blocks until the port can be bound, for at most `maxAttempts` (0 or more) tries 100 ms apart.
void waitForPortRelease(int maxAttempts, std::uint16_t port = GlintboardService::defaultPort);

}  // namespace glintboard::SingleInstanceGuard
