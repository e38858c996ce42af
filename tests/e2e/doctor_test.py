# SPDX-License-Identifier: MIT
"""glintboard-phone doctor, with each hop from a phone to the agent broken in turn."""

import collections
import json
import os
import pathlib
import signal
import subprocess
import sys
import unittest

from desktop import PARTS, PHONE, PORT, SLOWNESS, DesktopTest, eventually

OPEN_CONNECTION = f"sudo nft insert rule inet filter input tcp dport {PORT} accept"
OPEN_DISCOVERY = "sudo nft insert rule inet filter input udp dport 5353 accept"
PAIR = "glintboard-phone pair PIN"
MUTE = f"import socket, time; s = socket.create_server(('', {PORT})); time.sleep(600)"

# `advice` opens a firewall that only a phone could test.
Outcome = collections.namedtuple("Outcome", "exit failures advice", defaults=[None])
WELL = Outcome(0, {})
RESTART_AVAHI = "sudo systemctl restart avahi-daemon"


def run(*command):
    return subprocess.run([str(word) for word in command], text=True, check=True, timeout=20,
                          stdout=subprocess.PIPE).stdout


def rule(text):
    run("nft", "add", "rule", "inet", "filter", "input", *text.split())


class Doctor(DesktopTest):
    def setUp(self):
        super().setUp()
        self.buses = {}
        for computer in "this", "other":
            socket = self.desktop.root / f"bus-{computer}"
            self.buses[computer] = f"unix:path={socket}"
            self.desktop.start_bus("system", socket)
        self.desktop.env["DBUS_SYSTEM_BUS_ADDRESS"] = self.buses["this"]
        pathlib.Path("/run/avahi-daemon").mkdir(exist_ok=True)
        self.other = self.start_avahi("other", PARTS / "other-computer")
        eventually(lambda: "10.99.0.1" in run("ip", "-brief", "address", "show", "up"), "The cable")
        self.avahi = self.start_avahi("this")
        run("nft", "add table inet filter; add chain inet filter input "
            "{ type filter hook input priority 0; }")
        self.pin = self.start_agent().pin()
        self.assertTrue(self.phone().pair(self.pin)["ok"])

    def start_avahi(self, computer, *through, setting=""):
        folder = self.desktop.root / computer
        folder.mkdir(exist_ok=True)
        return self.desktop.start("env", f"DBUS_SYSTEM_BUS_ADDRESS={self.buses[computer]}",
                                  *through, PARTS / "avahi", computer, folder, setting)

    def start_agent(self):
        self.agent = super().start_agent()
        return self.agent

    def doctor(self):
        """The exit code, the command for each failure's code, and that of the last line."""
        done = subprocess.run([PHONE, "--json", "--state", self.phone().state, "doctor"],
                              env=self.desktop.env, text=True, stdout=subprocess.PIPE,
                              timeout=15 * SLOWNESS, check=False)
        *steps, last = map(json.loads, done.stdout.splitlines())
        failures = {step["code"]: step.get("command") for step in steps if not step["ok"]}
        self.assertEqual(last["ok"], not failures)
        self.assertEqual(last.get("code"), next(iter(failures), None))
        print(f"--- {done.returncode}\n{done.stdout}", file=sys.stderr)
        self.findings = done.stdout
        return Outcome(done.returncode, failures, last.get("command"))

    def comes_to(self, outcome):
        eventually(lambda: self.doctor() == outcome, outcome)

    def end(self, process):
        process.kill()
        process.wait()

    def take_port(self, *program):
        self.agent.end()
        self.holder = self.desktop.start(*program)
        eventually(lambda: f":{PORT}" in run("ss", "-ltn"), "The other program")

    def taken(self):
        return Outcome(3, {"port_taken": f"kill {self.holder.pid}"})

    def free_port(self):
        self.assertIn(f"held by python3.{sys.version_info.minor} (process {self.holder.pid})",
                      self.findings)
        self.obey(f"kill {self.holder.pid}")
        self.holder.wait()
        self.start_agent()

    def browse(self):
        """The services that Avahi knows."""
        return self.desktop.output_of("avahi-browse", "-atp")

    def restart_avahi(self, setting=""):
        self.end(self.avahi)
        self.avahi = self.start_avahi("this", setting=setting)
        if not setting:
            eventually(lambda: ";lo;" in self.browse(), "An advertisement, at home at least")

    def obey(self, command):
        """Runs a command that the doctor printed."""
        run(*command.removeprefix("sudo ").split())

    def keep_phones_out(self):
        for text in "iif lo accept", "ct state established accept", "udp dport 5353 accept":
            rule(text)
        run("nft", "chain inet filter input { policy drop; }")

    def far_end(self, state):
        run("nsenter", "--target", self.other.pid, "--net", "ip", "link", "set", "far", state)

    def give_name_away(self):
        self.agent.end()
        self.namesake = self.desktop.start(
            "nsenter", "--target", self.other.pid, "--net", "--mount", "env",
            f"DBUS_SYSTEM_BUS_ADDRESS={self.buses['other']}",
            "avahi-publish", "-s", os.uname().nodename, "_glintboard._tcp", PORT)
        eventually(lambda: "_glintboard" in self.browse(), "The other agent")
        self.start_agent()

    def take_name_back(self):
        self.end(self.namesake)
        self.agent.end()
        self.start_agent()

    def unpair(self):
        self.agent.menu_shows("Unpair iPhone")
        self.agent.press("Unpair iPhone")
        self.agent.menu_shows("Manual code")

    def pair(self):
        self.assertTrue(self.phone().pair(self.agent.pin())["ok"])

    def test_reports_each_fault_and_its_fix(self):
        self.comes_to(WELL)
        for name, broken, outcome, mend in (
                ("no agent", lambda: self.agent.end(), Outcome(3, {"no_agent": "glintboard-agent"}),
                 self.start_agent),
                ("a web server on the port",
                 lambda: self.take_port("python3", "-m", "http.server", PORT), self.taken,
                 self.free_port),
                ("something mute on the port",
                 lambda: self.take_port("python3", "-c", MUTE), self.taken, self.free_port),
                ("a hung agent", lambda: os.kill(self.agent.pid, signal.SIGSTOP),
                 Outcome(4, {"timeout": "glintboard-agent"}),
                 lambda: os.kill(self.agent.pid, signal.SIGCONT)),
                ("no Avahi", lambda: self.end(self.avahi),
                 Outcome(3, {"no_avahi": "sudo systemctl enable --now avahi-daemon"}),
                 self.restart_avahi),
                ("mDNS dropped",
                 lambda: (rule("iifname != lo udp dport 5353 drop"), self.restart_avahi()),
                 Outcome(3, {"not_advertised": OPEN_DISCOVERY}),
                 lambda: self.obey(OPEN_DISCOVERY)),
                ("addresses kept back", lambda: self.restart_avahi("publish-addresses=no"),
                 Outcome(3, {"not_resolved": RESTART_AVAHI}), self.restart_avahi),
                ("nothing to be published", lambda: self.restart_avahi("disable-publishing=yes"),
                 Outcome(3, {"not_advertised": "glintboard-agent"}), self.restart_avahi),
                ("connections dropped", lambda: rule(f"ip daddr 10.99.0.1 tcp dport {PORT} drop"),
                 Outcome(3, {"blocked": OPEN_CONNECTION}), lambda: self.obey(OPEN_CONNECTION)),
                ("a firewall that stops phones alone", self.keep_phones_out,
                 Outcome(0, {}, OPEN_CONNECTION), lambda: self.obey(OPEN_CONNECTION)),
                ("no cable", lambda: self.far_end("down"), Outcome(3, {"no_network": None}),
                 lambda: self.far_end("up")),
                ("no network", lambda: run("ip", "link", "set", "near", "down"),
                 Outcome(3, {"no_network": None}), lambda: run("ip", "link", "set", "near", "up")),
                ("a namesake", self.give_name_away,
                 Outcome(3, {"name_collision": "sudo hostnamectl set-hostname NAME"}),
                 self.take_name_back),
                ("an unknown phone", self.unpair, Outcome(1, {"unauthorized": PAIR}), self.pair)):
            with self.subTest(name):
                broken()
                self.comes_to(outcome() if callable(outcome) else outcome)
                mend()
                self.comes_to(WELL)
                run("nft", "flush chain inet filter input; "
                    "chain inet filter input { policy accept; }")


if __name__ == "__main__":
    unittest.main()
