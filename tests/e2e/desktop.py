# SPDX-License-Identifier: MIT
"""A desktop that one test has for itself: a home, applications, a bus, sound, and the agent.

Everything lies in the folder that private-namespace.sh provides.
"""

import contextlib
import json
import logging
import os
import pathlib
import re
import select
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import textwrap
import time
import unittest
import zlib

AGENT = os.environ["GLINTBOARD_AGENT"]
PHONE = os.environ["GLINTBOARD_PHONE"]
TOOL = pathlib.Path(AGENT).with_name("shortcuts")
FOLDER = pathlib.Path(os.environ["GLINTBOARD_E2E_FOLDER"])
TESTS = pathlib.Path(__file__).resolve().parent.parent
PARTS = TESTS / "desktop" / "parts"
BUS_APPLICATION = TESTS / "support" / "bus_application.py"
# How many times longer than a release build this build may take.
SLOWNESS = float(os.environ.get("GLINTBOARD_SLOWNESS", "1"))
PORT = 9847
SHOW, HIDE = "Show Pairing Code\u2026", "Hide Pairing Code"
# Tokens, PINs and pairing codes that were used. No log may hold one.
SECRETS = set()

logging.getLogger("asyncio").setLevel(logging.ERROR)


def eventually(condition, what="the condition", seconds=10):
    """Waits until `condition()` is true and returns its value."""
    deadline = time.monotonic() + seconds * SLOWNESS
    while not (value := condition()):
        if time.monotonic() > deadline:
            raise AssertionError(f"{what} did not come about in {seconds * SLOWNESS:g} s")
        time.sleep(0.01)
    return value


def output_of(*command, env=None):
    return subprocess.run([str(word) for word in command], env=env, text=True, check=False,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          timeout=20 * SLOWNESS).stdout


def listens(path):
    """Whether a server accepts connections at that Unix socket, which is there a little before."""
    with socket.socket(socket.AF_UNIX) as client:
        return client.connect_ex(str(path)) == 0


def alive(pid):
    try:
        return pathlib.Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()[0] != "Z"
    except (FileNotFoundError, ProcessLookupError):
        return False


def png(color):
    """A square image in one colour, as (red, green, blue)."""
    rows = (b"\0" + bytes(color) * 64) * 64
    parts = (b"IHDR", struct.pack(">IIBBBBB", 64, 64, 8, 2, 0, 0, 0)), (
        b"IDAT", zlib.compress(rows)), (b"IEND", b"")
    return b"\x89PNG\r\n\x1a\n" + b"".join(
        struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
        for kind, data in parts)


def app(bundle_id, **more):
    return {"kind": "app", "id": bundle_id, "label": bundle_id, "bundleId": bundle_id, **more}


def action(name):
    action_id = f"system.volume.{name}"
    return {"kind": "action", "id": action_id, "label": name, "bundleId": "",
            "actionId": action_id, "iconSymbol": "speaker.fill"}


def shortcut(identifier):
    return {"kind": "shortcut", "id": identifier, "label": identifier, "bundleId": "",
            "shortcutIdentifier": identifier, "iconSymbol": "bolt.fill"}


class Agent:
    """The running agent, its menu in text and the buttons of that."""

    def __init__(self, desktop, output=None, arguments=()):
        self._log = tempfile.NamedTemporaryFile(dir=desktop.root, prefix="agent-", delete=False)
        self._menu = open(self._log.name + ".menu", "w+b")
        self._process = subprocess.Popen([AGENT, *arguments], env=desktop.env, stdin=subprocess.PIPE,
                                         stdout=output or self._menu, stderr=self._log)
        self.pid = self._process.pid

    def menu(self):
        """The menu as it was printed last."""
        text = pathlib.Path(self._menu.name).read_text()
        return text.rpartition("\nGlintboard Agent\n")[2]

    def menu_shows(self, *texts):
        eventually(lambda: all(text in self.menu() for text in texts), f"A menu with {texts}")
        return self.menu()

    def line(self, start):
        """The one line of the menu that starts so."""
        return eventually(lambda: next((line for line in self.menu().splitlines()
                                        if line.startswith(start)), None), f"A line {start}")

    def pin(self):
        return self.line("Manual code").split()[-1]

    def qr(self):
        return self.line("glintboard://pair?")

    def show_code(self):
        """Presses that button and returns the new code."""
        self.menu_shows(SHOW)
        self.press(SHOW)
        self.menu_shows("Manual code")
        return self.pin()

    def press(self, button):
        self._process.stdin.write(button.encode() + b"\n")
        self._process.stdin.flush()

    def close_input(self):
        self._process.stdin.close()

    def serving(self):
        self.menu_shows("iPhone", "Quit")
        eventually(lambda: "Ready for iPhone" in self.menu() or "Waiting for iPhone" in self.menu(),
                   "A listener")
        return self

    def log(self):
        return pathlib.Path(self._log.name).read_text()

    def running(self):
        return self._process.poll() is None

    def exit_code(self):
        """Waits for the end."""
        return self._process.wait(10 * SLOWNESS)

    def end(self, number=signal.SIGTERM):
        """Signals the agent and returns its exit code and the seconds that it took to end."""
        process = os.pidfd_open(self.pid)
        start = time.monotonic()
        self._process.send_signal(number)
        ended, _, _ = select.select([process], [], [], 10 * SLOWNESS)
        seconds = time.monotonic() - start
        os.close(process)
        if not ended:
            self._process.kill()
        return self.exit_code(), seconds

    def descriptors(self):
        return len(os.listdir(f"/proc/{self.pid}/fd"))

    def children(self):
        return output_of("pgrep", "-P", self.pid).split()

    @staticmethod
    def connections():
        """How many connections the agent's end is open of."""
        return len(output_of("ss", "-Htn", "state", "established", "state", "close-wait",
                             f"sport = :{PORT}").splitlines())

    def held(self):
        """What it holds of what the machine has."""
        status = pathlib.Path(f"/proc/{self.pid}/status").read_text()
        return {"descriptors": self.descriptors(),
                "threads": int(re.search(r"Threads:\s+(\d+)", status)[1]),
                "KiB": int(re.search(r"VmRSS:\s+(\d+)", status)[1])}

    def cpu_seconds(self):
        fields = pathlib.Path(f"/proc/{self.pid}/stat").read_text().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def close(self):
        if self._menu.closed:
            return
        if self.running():
            self._process.kill()
        self._process.wait()
        with contextlib.suppress(BrokenPipeError):
            self._process.stdin.close()
        self._menu.close()
        self._log.close()
        log = self.log()
        # The end alone, so that what a test has to say is found beside it.
        print(f"--- agent {self.pid}, exit code {self._process.returncode}:",
              *log.splitlines()[-60:], self.menu(), sep="\n", file=sys.stderr)
        for finding in "Sanitizer:", "runtime error:":
            if finding in log:
                raise AssertionError(f"a sanitizer found something: {log}")
        shown = re.findall(r"^Manual code (\d+)$|&code=([\w-]+)$",
                           pathlib.Path(self._menu.name).read_text(), re.MULTILINE)
        for secret in filter(None, SECRETS.union(*shown)):
            if re.search(rf"(?<![\w-]){re.escape(secret)}(?![\w-])", log):
                raise AssertionError(f"the log holds {secret}: {log}")


class Phone:
    """glintboard-phone with its own identity."""

    def __init__(self, desktop, name):
        self._desktop = desktop
        self.name = name
        self.state = desktop.root / f"phone-{name}"

    def command(self, *arguments):
        return [PHONE, "--json", "--host", "127.0.0.1", "--state", str(self.state),
                *map(str, arguments)]

    def start(self, *arguments):
        return subprocess.Popen(self.command(*arguments), env=self._desktop.env,
                                stdout=subprocess.PIPE, text=True)

    def records(self, *arguments):
        done = subprocess.run(self.command(*arguments), env=self._desktop.env, text=True,
                              stdout=subprocess.PIPE, timeout=40 * SLOWNESS, check=False)
        records = [json.loads(line) for line in done.stdout.splitlines()]
        assert records and (done.returncode == 0) == records[-1]["ok"], done
        return records

    def __call__(self, *arguments):
        """What the command reports in the end; the message of a failure is in "message"."""
        return self.records(*arguments)[-1]

    def pair(self, secret):
        answer = self("pair", secret, "--name", self.name)
        SECRETS.update({secret.rpartition("code=")[2], answer.get("token", secret)})
        return answer

    def outcome(self, *arguments):
        """"ok", or the code of the failure."""
        record = self(*arguments)
        return "ok" if record["ok"] else record["code"]

    def decks(self):
        return self("decks")["decks"]


class Desktop:
    """Folders, environment and helpers; `close` ends everything that it started."""

    def __init__(self, env=None):
        """With the environment `env`, or else one of its own."""
        self.root = pathlib.Path(tempfile.mkdtemp(dir=FOLDER))
        self.env = env or self.own_environment()
        self.data = pathlib.Path(self.env["XDG_DATA_HOME"])
        self.runtime = pathlib.Path(self.env["XDG_RUNTIME_DIR"])
        self.traces = self.root / "traces"
        for folder in self.data / "applications", self.runtime, self.traces:
            folder.mkdir(mode=0o700, parents=True, exist_ok=True)
        self.support = self.data / "GlintboardAgent"
        self.decks_file = self.support / "decks.json"
        self.keychain_file = self.support / "paired-devices.json"
        self._ended_last = contextlib.ExitStack()

    def own_environment(self):
        inherited = {name: value for name, value in os.environ.items() if "SAN_OPTIONS" in name}
        return {
            "PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LANG": "C.UTF-8", "HOME": str(self.root),
            "XDG_DATA_HOME": f"{self.root}/data", "XDG_DATA_DIRS": f"{self.root}/share",
            "XDG_CONFIG_HOME": f"{self.root}/config", "XDG_STATE_HOME": f"{self.root}/st",
            "XDG_CACHE_HOME": f"{self.root}/cache", "GLINTBOARD_LOG": "debug",
            "XDG_RUNTIME_DIR": f"{self.root}/run",
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.root}/run/bus",
            "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nonexistent",
            "PULSE_SERVER": f"unix:{self.root}/run/sound", **inherited}

    def close(self):
        self._ended_last.close()
        for trace in self.traces.iterdir():
            for pid in self.trace(trace.name):
                with contextlib.suppress(ProcessLookupError):
                    os.kill(pid, signal.SIGKILL)

    def start_agent(self, output=None, arguments=()):
        """Prints its menu to the descriptor `output` if one is given."""
        agent = Agent(self, output, arguments)
        self._ended_last.callback(agent.close)
        return agent

    def start(self, *command):
        """A program that ends with the desktop."""
        process = subprocess.Popen([str(word) for word in command], env=self.env,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        self._ended_last.callback(process.wait)
        self._ended_last.callback(process.kill)
        return process

    def output_of(self, *command):
        return output_of(*command, env=self.env)

    def write(self, path, content, mode=0o644):
        path.parent.mkdir(mode=0o700, parents=True, exist_ok=True)
        if isinstance(content, str):
            content = textwrap.dedent(content).lstrip().encode()
        # Nobody may see half of it.
        unfinished = path.with_name(path.name + ".unfinished")
        unfinished.write_bytes(content)
        unfinished.chmod(mode)
        return unfinished.replace(path)

    def write_entry(self, bundle_id, **keys):
        lines = {"Type": "Application", "Name": bundle_id.rpartition(".")[2], **keys}
        return self.write(self.data / "applications" / f"{bundle_id}.desktop",
                          "[Desktop Entry]\n" + "".join(f"{k}={v}\n" for k, v in lines.items()))

    def install(self, bundle_id, last="sleep 600", **keys):
        """An application whose program leaves its process id behind and then does `last`."""
        program = self.write(
            self.root / "programs" / bundle_id,
            f"#!/bin/sh\necho $$ >> '{self.traces / bundle_id}'\n{last}\n", 0o755)
        return self.write_entry(bundle_id, **{"Exec": program, **keys})

    def install_service(self, bundle_id):
        """An application that the session bus starts and activates."""
        program = f"/usr/bin/python3 -E {BUS_APPLICATION} {bundle_id} {self.root / bundle_id}.log"
        self.write(self.runtime / "services" / f"{bundle_id}.service",
                   f"[D-BUS Service]\nName={bundle_id}\nExec={program}\n")
        self.write_entry(bundle_id, Exec=program, DBusActivatable="true")

    def activations(self, bundle_id):
        """What such an application was asked to do."""
        return (self.root / f"{bundle_id}.log").read_text().splitlines()

    def trace(self, name):
        """The process ids that a program left behind."""
        path = self.traces / name
        return [int(line) for line in path.read_text().split()] if path.exists() else []

    def traced(self, name, times=1):
        return eventually(lambda: len(self.trace(name)) >= times and self.trace(name),
                          f"{times} traces of {name}")

    def set_decks(self, streaming, gaming=()):
        decks = [{"id": name.lower(), "name": name,
                  "tiles": [{**tile, "slot": slot} for slot, tile in enumerate(tiles, 1)]}
                 for name, tiles in (("Streaming", streaming), ("Gaming", gaming))]
        self.write(self.decks_file, json.dumps({"version": 1, "decks": decks}))

    def set_shortcuts(self, cases):
        """What stands in for the `shortcuts` tool: `cases` are those of a shell's "case $2"."""
        self.write(FOLDER / "shortcuts",
                   f"#!/bin/sh\necho $$ >> '{self.traces}/shortcuts'\n"
                   f'[ "$1" = run ] || exit 64\ncase "$2" in\n{cases}\nesac\n', 0o755)

    def start_bus(self, kind="session", path=None):
        path = path or self.runtime / "bus"
        bus = self.start(PARTS / "bus", kind, path)
        eventually(lambda: listens(path), f"The {kind} bus")
        return bus

    def start_sound(self):
        sound = self.start(PARTS / "pulseaudio", self.runtime / "sound",
                           "-L", "module-null-sink sink_name=test")
        eventually(lambda: "test" in self.output_of("pactl", "info"), "The sound server")
        return sound


class DesktopTest(unittest.IsolatedAsyncioTestCase):
    """Each test has a desktop of its own. What blocks may hold up its event loop."""

    def setUp(self):
        self.desktop = Desktop()
        self.addCleanup(self.desktop.close)

    def start_agent(self):
        return self.desktop.start_agent().serving()

    def phone(self, name="Phone"):
        return Phone(self.desktop, name)

    def paired_phone(self, agent, name="Phone"):
        phone = self.phone(name)
        phone.token = phone.pair(agent.pin())["token"]
        return phone

    def assert_slot_outcomes(self, phone, command, outcomes):
        """Checks what a command on the slots 1, 2, … of the deck comes to."""
        self.assertEqual([phone.outcome(command, slot) for slot in range(1, len(outcomes) + 1)],
                         list(outcomes))
