# SPDX-License-Identifier: MIT
"""The measured desktop, the servers and the load generator."""

import contextlib
import json
import os
import pathlib
import socket
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

# pylint: disable=wrong-import-position
from desktop import PARTS, PORT, Agent, Desktop, Phone, app, eventually, shortcut  # noqa: E402,F401

BIN = pathlib.Path(os.environ["GLINTBOARD_BIN"])
BASELINES = ROOT / "bench" / "baselines"
IDENTIFIER = "7A3C0E52-90C5-4B36-8E71-2F6A51D0C9B4"
PING = json.dumps({"type": "ping", "id": IDENTIFIER, "payload": {"ts": "2026-11-16T16:25:42Z"}})
SYNC = json.dumps({"type": "deck.sync", "id": IDENTIFIER, "payload": {}})


def application(number):
    return f"org.example.Application{number}"


def icon_request(keys):
    return json.dumps({"type": "app.icon.request", "id": IDENTIFIER,
                       "payload": {"bundleIds": list(keys)}})


def drawing(number):
    """A typical application icon: shapes, gradients and a shadow."""
    hue = number * 37 % 360
    shapes = "".join(
        f'<path d="M{12 + 8 * i} {20 + i} c 10 {i} 30 40 {20 + i} 60 s -40 10 -50 {-20 - i} z"'
        f' fill="hsl({hue + 20 * i}, 70%, 60%)" opacity="0.{4 + i}"/>' for i in range(6))
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 128 128"><defs>'
            f'<linearGradient id="g" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color='
            f'"hsl({hue}, 80%, 70%)"/><stop offset="1" stop-color="hsl({hue}, 80%, 40%)"/>'
            f'</linearGradient></defs><rect x="8" y="8" width="112" height="112" rx="24"'
            f' fill="url(#g)"/>{shapes}</svg>')


def installed(desktop, count):
    """Installs applications, whose icons are alternately SVG and PNG files."""
    icons = desktop.root / "share" / "icons"
    icons.mkdir(parents=True, exist_ok=True)
    (icons / "Adwaita").symlink_to("/usr/share/icons/Adwaita")
    pictures = sorted({path.stem for path in
                       pathlib.Path("/usr/share/icons/Adwaita/512x512").rglob("*.png")})
    for number in range(count):
        name = f"drawing{number}"
        if number % 2 == 0:
            desktop.write(icons / "hicolor" / "scalable" / "apps" / f"{name}.svg", drawing(number))
        else:
            name = pictures[number // 2 % len(pictures)]
        desktop.write_entry(application(number), Exec="true", Icon=name)
    theme = "[Icon Theme]\nName=Hicolor\nDirectories=scalable/apps\n[scalable/apps]\nSize=128\n" \
            "MinSize=8\nMaxSize=512\nType=Scalable\nContext=Applications\n"
    desktop.write(icons / "hicolor" / "index.theme", theme)


def set_decks(desktop, *both):
    """Writes the decks file in the agent's format."""
    desktop.set_decks(*both)
    decks = json.loads(desktop.decks_file.read_text())
    desktop.write(desktop.decks_file, json.dumps(decks, sort_keys=True, separators=(",", ":")))


@contextlib.contextmanager
def stage(applications=60, keys=24):
    """A desktop with installed applications, `keys` of them on each deck."""
    desktop = Desktop()
    try:
        installed(desktop, applications)
        set_decks(desktop, *([app(application((first + n) % applications)) for n in range(keys)]
                             for first in (0, keys)))
        yield desktop
    finally:
        desktop.close()


@contextlib.contextmanager
def quiet_agent(desktop, arguments=()):
    """A running agent. Its log is printed only if it fails."""
    agent = Agent(desktop, arguments=arguments)
    try:
        yield agent
    finally:
        with open(os.devnull, "w", encoding="utf-8") as nowhere, \
                contextlib.redirect_stderr(nowhere):
            agent.close()


@contextlib.contextmanager
def paired_agent(desktop):
    """A listening agent and the token of a paired phone."""
    with quiet_agent(desktop) as agent:
        token = Phone(desktop, "Bench").pair(agent.serving().pin())["token"]
        yield agent, token


def listens(port):
    with socket.socket() as probe:
        return probe.connect_ex(("127.0.0.1", port)) == 0


@contextlib.contextmanager
def server(port, *command):
    """Starts a server with the port as its last argument and waits until it listens."""
    with subprocess.Popen([str(word) for word in (*command, port)]) as process:
        try:
            eventually(lambda: listens(port), str(command))
            yield process.pid
        finally:
            process.kill()


def exchange(port, token, message, *, connections=1, in_flight=1, requests=1, replies=1, pid=None):
    """Runs `glintboard-load exchange`; see bench/load/main.cpp."""
    done = subprocess.run(
        [BIN / "glintboard-load", "exchange", *map(str, (port, connections, in_flight, requests,
                                                        replies, pid or os.getpid())),
         token, message], stdout=subprocess.PIPE, check=True, timeout=120)
    return json.loads(done.stdout)


def resident_kib(pid):
    """The resident set of the process in KiB, shared pages included."""
    for line in pathlib.Path(f"/proc/{pid}/status").read_text(encoding="ascii").splitlines():
        if line.startswith("VmRSS:"):
            return int(line.split()[1])
    raise RuntimeError("no such process")


def by_thread(pid):
    """The processor seconds and the wake-ups of each thread."""
    def voluntary(text):
        return next(int(line.split()[1]) for line in text.splitlines()
                    if line.startswith("voluntary_ctxt_switches"))
    return {task.name: (int((task / "schedstat").read_text(encoding="ascii").split()[0]) / 1e9,
                        voluntary((task / "status").read_text(encoding="ascii")))
            for task in pathlib.Path(f"/proc/{pid}/task").iterdir()}


def used_since(before, pid):
    """The processor seconds and the wake-ups since `by_thread`, of the threads that still run."""
    now = by_thread(pid)
    return tuple(sum(figures[place] - before.get(thread, (0, 0))[place]
                     for thread, figures in now.items()) for place in range(2))


def processor_seconds(pid):
    return used_since({}, pid)[0]


def start_seconds(desktop, arguments=()):
    """Starts an agent; the seconds until it listens, and its processor time until then."""
    start = time.monotonic()
    with quiet_agent(desktop, arguments) as agent:
        eventually(lambda: listens(PORT), "A listener")
        taken = time.monotonic() - start
        return taken, processor_seconds(agent.pid)
