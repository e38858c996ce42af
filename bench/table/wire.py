# SPDX-License-Identifier: MIT
"""Round trips of a phone and the processor time of a request."""

import json
import signal
import subprocess
import time

from stage import (BASELINES, BIN, IDENTIFIER, PARTS, PING, PORT, SYNC, Phone, app, application,
                   eventually, exchange, icon_request, paired_agent, quiet_agent, server, set_decks,
                   shortcut, stage)

TCP_PORT, BEAST_PORT, NODE_PORT, PYTHON_PORT = 9850, 9851, 9852, 9853
# Baseline and agent are measured alternately this often in one round. The lowest figure of each
# counts, because it is the one that other load has disturbed least.
TURNS = 8


def median(values):
    ordered = sorted(values)
    return ordered[len(ordered) // 2]


class Servers:
    """The baselines and the agent, running side by side to be measured alternately."""

    def __init__(self, stack, size):
        self.size = size  # factor for the number of requests; 1 for the full table
        desktop = stack.enter_context(stage())
        agent, self.token = stack.enter_context(paired_agent(desktop))
        self.pids = {PORT: agent.pid}
        for port, *command in ((TCP_PORT, BIN / "glintboard-tcp-echo"),
                               (BEAST_PORT, BIN / "glintboard-beast-echo"),
                               (NODE_PORT, "node", BASELINES / "node_ws.js"),
                               (PYTHON_PORT, "/usr/bin/python3", BASELINES
                                / "python_websockets.py")):
            self.pids[port] = stack.enter_context(server(port, *command))

    def ask(self, port, requests, **more):
        token = {PORT: self.token, TCP_PORT: "raw"}.get(port, "")
        return exchange(port, token, PING, pid=self.pids[port],
                        requests=max(int(requests * self.size), 200), **more)


def pings(servers):
    """Round trips with one connection and one request in flight."""
    ports = {"tcp": TCP_PORT, "beast": BEAST_PORT, "node": NODE_PORT, "python": PYTHON_PORT,
             "ping": PORT}
    p50 = {name: [] for name in ports}
    for _ in range(TURNS):
        for name, port in ports.items():
            requests = 400 if name == "python" else 2000
            p50[name].append(servers.ask(port, requests)["p50"])
    figures = {f"{name}_p50": min(values) for name, values in p50.items()}
    for name in "node", "python", "ping":
        figures[f"{name}_ratio"] = figures[f"{name}_p50"] / figures["beast_p50"]
    return figures


def by_turns(servers, name, requests, **load):
    """Processor time per request of the bare echo and the agent, measured alternately."""
    echo, ping = [], []
    for _ in range(TURNS):
        echo.append(servers.ask(BEAST_PORT, requests, **load)["cpu"])
        ping.append(servers.ask(PORT, requests, **load)["cpu"])
    return {f"{name}_beast": min(echo), f"{name}_ping": min(ping),
            f"{name}_ratio": min(ping) / min(echo)}


def many(servers):
    return by_turns(servers, "many", 6000, connections=32)


def deep(servers):
    return by_turns(servers, "deep", 12000, connections=4, in_flight=32)


def sync(size):
    """deck.sync of 48 keys, eight of them Shortcuts with icons."""
    with stage() as desktop:
        identifiers = [f"{number}{IDENTIFIER[1:]}" for number in range(1, 9)]
        for number, identifier in enumerate(identifiers):
            subprocess.run([BIN / "shortcuts", "create", f"Shortcut {number}", "--command", "true",
                            "--icon", f"drawing{2 * number}"], env=desktop.env, check=True,
                           stdout=subprocess.DEVNULL)
        listed = subprocess.run([BIN / "shortcuts", "list", "--show-identifiers"], check=True,
                                env=desktop.env, stdout=subprocess.PIPE, text=True).stdout
        identifiers = [line.rpartition("(")[2].rstrip(")") for line in listed.splitlines()
                       if line.startswith("Shortcut ")]
        assert len(identifiers) == 8, listed
        set_decks(desktop, [app(application(n)) for n in range(24)],
                  [app(application(24 + n)) for n in range(16)]
                  + [shortcut(identifier) for identifier in identifiers])
        with paired_agent(desktop) as (_, token):
            exchange(PORT, token, SYNC)
            turns = [exchange(PORT, token, SYNC, requests=max(int(150 * size), 50))["p50"]
                     for _ in range(TURNS)]
            return {"sync_p50": min(turns) / 1000}


def icons():
    keys = [application(number) for number in range(24)]
    with stage() as desktop, paired_agent(desktop) as (_, token):
        cold = exchange(PORT, token, icon_request(keys), replies=24)
        warm = exchange(PORT, token, icon_request(keys), replies=24, requests=20)
        return {"icons_cold": cold["p50"] / 1000, "icons_warm": warm["p50"] / 1000}


def hanging_keyring(desktop):
    """Starts a bus whose Secret Service never replies."""
    desktop.start_bus()
    keyring = desktop.start(PARTS / "keyring", "unlocked")
    owner = ["gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path", "/",
             "--method", "org.freedesktop.DBus.GetNameOwner", "org.freedesktop.secrets"]
    eventually(lambda: subprocess.run(owner, env=desktop.env, stdout=subprocess.DEVNULL,
                                      stderr=subprocess.DEVNULL, check=False).returncode == 0,
               "The keyring")
    keyring.send_signal(signal.SIGSTOP)


def busy(seconds):
    """Pings while keychain and a Shortcut hang and another phone fetches icons that are not cached."""
    with stage(applications=240) as desktop:
        with paired_agent(desktop) as (_, token):
            pass  # stores its pairing in the file, which is read in addition to the keyring
        hanging_keyring(desktop)
        desktop.set_shortcuts("*) sleep 600;;")
        with quiet_agent(desktop) as agent:
            started = time.monotonic()
            agent.serving()
            exchange(PORT, token, PING)
            # The agent calls the keychain again ten seconds after the first call timed out.
            time.sleep(started + 11 - time.monotonic())
            run = json.dumps({"type": "shortcut.run", "id": IDENTIFIER,
                              "payload": {"shortcutIdentifier": IDENTIFIER}})
            others = [subprocess.Popen(
                [BIN / "glintboard-load", "exchange", str(PORT), "1", "1", "1", str(replies),
                 str(agent.pid), token, message], stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL)
                for replies, message in ((1, run), (240, icon_request(map(application,
                                                                          range(240)))))]
            p99, end = [], time.monotonic() + seconds
            while time.monotonic() < end and others[1].poll() is None:
                p99.append(exchange(PORT, token, PING, requests=600)["p99"] / 1000)
            for other in others:
                other.kill()
                other.wait()
            return {"busy_p99": median(p99)}


