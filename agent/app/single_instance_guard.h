// SPDX-License-Identifier: MIT
// Ensures that a user runs one agent on a computer.
#pragma once

#include <cstdint>

#include "platform/agent_instances.h"
#include "protocol/glintboard_service.h"

namespace glintboard::SingleInstanceGuard {

// Ends the other instances, and waits up to five seconds until their port can be bound. Returns
// false when a newer instance runs and this one should end. Blocks: call it before the event loop
// runs. Never throws.
bool enforce(AgentInstances& instances, std::uint16_t port = GlintboardService::defaultPort);

// Blocks until the port can be bound, for at most `maxAttempts` (0 or more) tries 100 ms apart.
void waitForPortRelease(int maxAttempts, std::uint16_t port = GlintboardService::defaultPort);

}  // namespace glintboard::SingleInstanceGuard
