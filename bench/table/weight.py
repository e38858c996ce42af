# SPDX-License-Identifier: MIT
"""Memory, processor time and start of the agent, and their growth with the input."""

import contextlib
import json
import subprocess
import time

from stage import (BIN, PARTS, PING, PORT, ROOT, application, by_thread, eventually, exchange,
                   listens, paired_agent, quiet_agent, resident_kib, stage, start_seconds,
                   used_since)
from wire import TURNS, median

# Starts without its window.
AT_LOGIN = ["--background"]
# Seconds after which the start is over, and after which a phone counts as quiet.
SETTLED, QUIET = 3, 18


def start_display(desktop):
    """Starts an X server with a window manager, and a bus with a tray and an unlocked keyring."""
    folder = desktop.root / "display"
    folder.mkdir()
    desktop.start("env", "GLINTBOARD_PRIVATE_NETWORK=1", PARTS / "x-server", folder)
    number = eventually(lambda: (folder / "display").exists()
                        and (folder / "display").read_text().strip(), "The display")
    desktop.env |= {"DISPLAY": f":{number}", "XDG_SESSION_TYPE": "x11"}
    # The window manager needs the installed themes.
    desktop.start("env", "XDG_DATA_DIRS=/usr/share", PARTS / "window-manager", folder)
    eventually((folder / "manager-ready").exists, "The window manager")
    desktop.start_bus()
    desktop.start("/usr/bin/python3", ROOT / "tests/support/status_notifier_watcher.py")
    desktop.start(PARTS / "keyring", "unlocked")
    for name in "org.kde.StatusNotifierWatcher", "org.freedesktop.secrets":
        owner = ["gdbus", "wait", "--session", "--timeout", "10", name]
        subprocess.run(owner, env=desktop.env, check=True)


def starts(times):
    """Times to start, without and with a display."""
    with stage() as desktop:
        start_seconds(desktop)  # fills the page cache
        bare = median([start_seconds(desktop)[0] for _ in range(times)])
        start_display(desktop)
        tray = median([start_seconds(desktop, AT_LOGIN)[0] for _ in range(times)])
        return {"start_bare": bare * 1000, "start_tray": tray * 1000}


def tap(times):
    with stage() as desktop:
        with paired_agent(desktop) as (_, token):
            pass
        start_display(desktop)
        with quiet_agent(desktop, AT_LOGIN):
            eventually(lambda: listens(PORT), "A listener")
            done = subprocess.run(
                [BIN / "glintboard-tap", str(PORT), token, str(times), application(1),
                 application(2)], env=desktop.env, stdout=subprocess.PIPE, check=True, text=True)
            return {"tap_p50": json.loads(done.stdout)["p50"]}


@contextlib.contextmanager
def quiet_phone(token):
    """A connected phone that asks nothing any more."""
    with subprocess.Popen([BIN / "glintboard-load", "hold", str(PORT), "1", token],
                          stdin=subprocess.PIPE, stdout=subprocess.PIPE) as phone:
        assert phone.stdout.readline() == b"held\n"
        time.sleep(QUIET)
        yield
        phone.stdin.close()


def left_alone(pid, seconds):
    """What the process uses of the processor, in percent, and its wake-ups in 20 s."""
    before = by_thread(pid)
    time.sleep(seconds)
    used, woken = used_since(before, pid)
    return used / seconds * 100, woken * 20 / seconds


def idle(seconds):
    """Idle agents: one without a display, and one with a tray, without and with a phone."""
    figures = {}
    with stage() as desktop, quiet_agent(desktop, AT_LOGIN) as agent:
        eventually(lambda: listens(PORT), "A listener")
        time.sleep(SETTLED)
        figures["idle_cpu_bare"], _ = left_alone(agent.pid, seconds)
        figures["idle_rss_bare"] = resident_kib(agent.pid) / 1024
    with stage() as desktop:
        start_display(desktop)
        with quiet_agent(desktop, AT_LOGIN) as agent:
            eventually(lambda: listens(PORT), "A listener")
            time.sleep(SETTLED)
            figures["idle_cpu_tray"], figures["idle_wakes_tray"] = left_alone(agent.pid, seconds)
            figures["idle_rss_tray"] = resident_kib(agent.pid) / 1024
    with stage() as desktop:
        with paired_agent(desktop) as (_, token):
            pass
        start_display(desktop)
        with quiet_agent(desktop, AT_LOGIN) as agent:
            eventually(lambda: listens(PORT), "A listener")
            with quiet_phone(token):
                figures["idle_cpu_phone"], figures["idle_wakes_phone"] = left_alone(agent.pid,
                                                                                    seconds)
    return figures


def held(connections=1000):
    """Memory for each idle connection of a paired phone."""
    with stage() as desktop, paired_agent(desktop) as (agent, token):
        time.sleep(4)  # until it has released the memory of its start
        before = resident_kib(agent.pid)
        with subprocess.Popen([BIN / "glintboard-load", "hold", str(PORT), str(connections), token],
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE) as phones:
            assert phones.stdout.readline() == b"held\n"
            # Until the agent has accepted them all and has pinged each once.
            time.sleep(10)
            after = resident_kib(agent.pid)
            phones.stdin.close()
        return {"held": (after - before) / connections}


def ping_cpu(requests, **desktop):
    with stage(**desktop) as furnished, paired_agent(furnished) as (agent, token):
        return min(exchange(PORT, token, PING, requests=requests // TURNS, pid=agent.pid)["cpu"]
                   for _ in range(TURNS))


def growth(size):
    requests = max(int(12000 * size), 8000)
    once = ping_cpu(requests)
    keys = ping_cpu(requests // 4, keys=240)
    applications = ping_cpu(requests, applications=600)
    starts_cpu = []
    for count in 60, 600:
        with stage(applications=count) as desktop:
            starts_cpu.append(median([start_seconds(desktop)[1] for _ in range(3)]))
    return {"growth_keys": keys / once, "growth_apps_ping": applications / once,
            "growth_apps_start": starts_cpu[1] / starts_cpu[0]}
