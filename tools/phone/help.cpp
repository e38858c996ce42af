// SPDX-License-Identifier: MIT
#include "tools/phone/command_context.h"

namespace glintboard::phone {

std::string helpText() {
  return R"(A Glintboard phone on the command line.

Usage: glintboard-phone COMMAND [OPTION…]

Commands:
  pair PIN|ADDRESS   pair with the agent by its six-digit PIN, or by the
                     glintboard:// address of its QR code, in quotes
  decks              show the keys of both decks
  icons DIR          update the icons in DIR, one PNG file for each
  tap SLOT           tap the key in that slot
  focus SLOT         bring the key's application to the front
  ping               measure the round trip; show the running applications
  watch              show the decks whenever the agent pushes them
  forget             delete the pairing stored here
  doctor             check whether phones can reach this computer; show the fix
                     for each problem
  raw TYPE PAYLOAD   send any message (PAYLOAD is JSON) and show the replies

Options:
  --host HOST[:PORT]  all but doctor: address of the agent (searches the local
                      network, then tries this computer; port 9847)
  --state DIR         folder of the stored pairing
                      ($XDG_STATE_HOME/glintboard-phone)
  --timeout SECONDS   timeout for each reply (30)
  --json              print JSON for scripts
  --name NAME         pair: name of this phone (the host name)
  --deck DECK         tap, focus: streaming or gaming (streaming)
  --count N           ping: number of pings (1)
  --for SECONDS       watch: duration (until interrupted)
  -h, --help, --version

Exit codes: 0 success, 1 the agent refused or reported an error, 2 usage error,
3 the agent cannot be reached, 4 timeout, 5 a file of the phone cannot be read
or written.

With --json, standard output has one object per line, each with "ok":
  any failure  {"ok":false,"code":CODE,"message":TEXT}; CODE is the protocol's
               ("not_found", "invalid_pin", "unauthorized", …) or one of usage,
               no_key, not_an_app, several_agents, not_paired, unreachable,
               not_an_agent, connection_lost, timeout, bad_icon, protocol, state, local
  pair         {"ok":true,"deviceId":UUID,"token":TEXT}
  decks        {"ok":true,"decks":[…]} as in the message decks.snapshot
  icons        {"ok":true,"icons":[{"key":K,"file":PATH,"revision":R,
               "state":"fetched"|"kept"},…],"missing":[K,…]}
  tap, focus   {"ok":true,"type":"app.ok","slot":N,"label":L,"identifier":I}
  ping         {"ok":true,"seconds":S,"running":[…],"agentRtt":S} for each
  watch        {"ok":true,"watching":true} once, then as decks for each push
  forget       {"ok":true,"wasPaired":BOOL}
  doctor       {"ok":BOOL,"step":S,"message":TEXT,"command":TEXT} for each step,
               with "code" if it failed and "command" if one helps, then
               {"ok":true,"steps":N,"message":TEXT}, with "command" if a
               firewall may block phones, or the first failure's code:
               no_agent, port_taken, blocked, no_network, no_avahi,
               not_advertised, not_resolved, name_collision, or one of the above
  raw          {"ok":true,"message":{…}} for each, then {"ok":true,"replies":N}
)";
}

}  // namespace glintboard::phone
