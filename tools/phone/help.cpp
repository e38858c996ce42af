// SPDX-License-Identifier: MIT
#include "tools/phone/command_context.h"

namespace glintboard::phone {

std::string helpText() {
  return R"(A Glintboard phone on the command line.

Usage: glintboard-phone COMMAND [OPTION…]

Commands:
  pair PIN|ADDRESS   pair with the agent: the six digits that it shows, or the
                     glintboard:// address of its QR code, in quotes
  decks              show the keys of both decks
  icons DIR          bring the icons in DIR up to date, one PNG file for each
  tap SLOT           do what the key does
  focus SLOT         bring the key's application to the front
  ping               measure the time to the agent; show what is running
  watch              show the decks each time that the agent sends them
  forget             forget the pairing on this side
  doctor             find out why a phone cannot reach this computer, and what
                     would mend it
  raw TYPE PAYLOAD   send any message (PAYLOAD is JSON) and show the replies

Options:
  --host HOST[:PORT]  all but doctor: where the agent is; without it the local
                      network is asked, then this computer is tried (port 9847)
  --state DIR         where the pairing is kept, instead of
                      $XDG_STATE_HOME/glintboard-phone
  --timeout SECONDS   longest wait for each answer (30)
  --json              print JSON for scripts
  --name NAME         pair: what the phone is called (the host name)
  --deck DECK         tap, focus: streaming or gaming (streaming)
  --count N           ping: how often (1)
  --for SECONDS       watch: for how long (until interrupted)
  -h, --help, --version

Exit codes: 0 done, 1 the agent refused or reported an error, 2 wrong usage,
3 the agent cannot be reached, 4 no answer in time, 5 a file of the phone's own
cannot be read or written.

With --json, standard output has one object on each line, with "ok" in each:
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
               with "code" where it failed and "command" where one helps, then
               {"ok":true,"steps":N,"message":TEXT}, with "command" where a
               firewall may keep phones out, or the first failure's code:
               no_agent, port_taken, blocked, no_network, no_avahi,
               not_advertised, not_resolved, name_collision, or one of the above
  raw          {"ok":true,"message":{…}} for each, then {"ok":true,"replies":N}
)";
}

}  // namespace glintboard::phone
