# SPDX-License-Identifier: MIT
"""The agent on displays that work, that cannot be reached, and that die under it."""

import asyncio
import contextlib
import itertools
import json
import os
import pathlib
import random
import signal
import socket
import statistics
import sys
import tempfile
import time
import unittest

import websockets

from client import Client
from desktop import FOLDER, PARTS, SLOWNESS, DesktopTest, app, eventually

# How often each display dies at each moment.
ROUNDS = int(os.environ.get("GLINTBOARD_DISPLAY_ROUNDS", "2"))
ICON = """
    <svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 64 64">
      <circle cx="32" cy="32" r="30" fill="teal"/>
    </svg>
"""


class Display(DesktopTest):
    def start_x_server(self):
        folder = self.desktop.root / "display"
        folder.mkdir(exist_ok=True)
        # What a killed server and its manager left is no sign of the new ones.
        for name in "display", "manager-ready":
            (folder / name).unlink(missing_ok=True)
        server = self.desktop.start("env", "GLINTBOARD_PRIVATE_NETWORK=1", PARTS / "x-server",
                                    folder)
        number = eventually(lambda: (folder / "display").exists()
                            and (folder / "display").read_text().strip(), "The X server")
        self.desktop.env["DISPLAY"] = f":{number}"
        return server

    def start_x_server_and_manager(self):
        server = self.start_x_server()
        folder = self.desktop.root / "display"
        self.desktop.start(PARTS / "window-manager", folder)
        eventually((folder / "manager-ready").exists, "The window manager")
        return server

    def start_compositor(self, name):
        # The other user that it runs as does not see into the desktop's folder.
        folder = pathlib.Path(tempfile.mkdtemp(dir=FOLDER))
        compositor = self.desktop.start(PARTS / "compositor", name, folder)
        eventually((folder / "wayland-1").is_socket, "The compositor")
        self.desktop.env |= {"WAYLAND_DISPLAY": str(folder / "wayland-1"),
                             "SWAYSOCK": str(folder / "control")}
        return compositor

    def start_sway(self):
        return self.start_compositor("sway")

    def start_weston(self):
        # It has no seat, and there Qt 6.4 crashes in its own input method.
        self.desktop.env["QT_IM_MODULE"] = "compose"
        return self.start_compositor("weston")

    def has_display(self, agent):
        return self.has_mapped(agent, "libqxcb", "libqwayland")

    def has_mapped(self, agent, *names):
        maps = pathlib.Path(f"/proc/{agent.pid}/maps").read_text()
        return any(name in maps for name in names)

    def shows_window(self, title):
        if "DISPLAY" in self.desktop.env:
            return self.desktop.output_of("xdotool", "search", "--onlyvisible", "--name",
                                          title) != ""
        return f'"name": "{title}"' in self.desktop.output_of("swaymsg", "-t", "get_tree")

    def menu_is_open(self):
        return self.shows_window("Glintboard Agent")

    def open_editor(self):
        """Presses the first button of the menu."""
        eventually(self.menu_is_open, "The menu")
        if "DISPLAY" in self.desktop.env:
            self.desktop.output_of("xdotool", "search", "--onlyvisible", "--name",
                                   "Glintboard Agent", "windowfocus", "--sync",
                                   "key", "Tab", "key", "space")
        else:
            # The agent first has to learn of this keyboard.
            self.desktop.output_of("wtype", "-s", "150", "-k", "Tab", "-k", "space", "-s", "50")
        eventually(lambda: self.shows_window("Edit Deck"), "The editor")

    async def served(self, agent, token):
        """Waits until a phone gets its decks."""
        deadline = time.monotonic() + 10 * SLOWNESS
        while True:
            try:
                client = await Client.connect(token)
                await client.ask("deck.sync", {})
                return await client.socket.close()
            except (OSError, websockets.WebSocketException):
                if not agent.running() or time.monotonic() > deadline:
                    raise
            await asyncio.sleep(0.005)

    def type(self, window, *keys):
        found = eventually(lambda: self.desktop.output_of(
            "xdotool", "search", "--onlyvisible", "--name", window).split(), window)
        self.desktop.output_of("xdotool", "windowfocus", "--sync", found[0], "key", *keys)

    def draft(self):
        """The name of the deck that was not saved."""
        file = pathlib.Path(self.desktop.env["XDG_STATE_HOME"],
                            "GlintboardAgent/drafts/streaming.json")
        return json.loads(file.read_text())["deck"]["name"] if file.exists() else ""

    def test_unsaved_edits_outlive_the_display_and_the_agent(self):
        display = self.start_x_server()
        agent = self.desktop.start_agent()
        self.type("Glintboard Agent", "Down", "Return")
        eventually(self.desktop.decks_file.exists, "The deck")
        # One of the controls is the name; which ones take the focus depends on what is loaded.
        for _ in range(20):
            self.type("Edit Deck", "Tab", "x")
            with contextlib.suppress(AssertionError):
                eventually(lambda: "x" in self.draft(), "A draft", 1)
                break
        self.assertIn("x", self.draft())
        self.type("Edit Deck", "y")
        time.sleep(0.2 * SLOWNESS)
        self.assertEqual(agent.end(signal.SIGTERM)[0], 0)
        self.assertIn("y", self.draft())
        name = self.draft()
        agent = self.desktop.start_agent()
        eventually(lambda: self.has_display(agent), "Windows")
        display.kill()
        eventually(lambda: "Ready for iPhone" in agent.menu(), "A text menu")
        self.assertEqual(self.draft(), name)
        self.assertNotIn(name, self.desktop.decks_file.read_text())

    async def lose(self, display, agent, moment, token):
        """Kills the display at that moment; returns how long no phone was served, in seconds."""
        if moment == "start":
            await asyncio.sleep(random.uniform(0, 0.6 * SLOWNESS))
        else:
            # weston tells nobody of its windows, only their memory does.
            eventually(lambda: self.menu_is_open() or self.has_mapped(agent, "memfd:wayland-shm"),
                       "The menu")
            await self.served(agent, token)
            client = await Client.connect(token)
            self.assertEqual(agent.menu(), "", "a desktop's program prints nothing")
            if moment == "editor":
                self.open_editor()
            # The icons are drawn meanwhile.
            await client.send("deck.sync", {})
        display.kill()
        died = time.monotonic()
        if moment != "start":
            await asyncio.wait_for(client.socket.wait_closed(), 10 * SLOWNESS)
        await self.served(agent, token)
        return time.monotonic() - died

    async def test_serves_again_when_its_display_dies(self):
        icon = self.desktop.write(self.desktop.root / "icon.svg", ICON)
        for number in range(24):
            self.desktop.install(f"org.example.App{number}", Icon=icon)
        self.desktop.set_decks([app(f"org.example.App{number}") for number in range(24)])
        agent = self.start_agent()
        phone = self.paired_phone(agent)
        decks = phone.decks()
        agent.end()
        displays = self.start_x_server_and_manager, self.start_sway, self.start_weston
        for start, moment in itertools.product(displays, ("menu", "editor", "start")):
            if start == self.start_weston and moment == "editor":
                continue  # weston takes no keys from programs
            seconds = []
            for number in range(ROUNDS):
                with self.subTest(display=start.__name__, moment=moment, round=number):
                    display = start()
                    agent = self.desktop.start_agent()
                    try:
                        seconds.append(await self.lose(display, agent, moment, phone.token))
                        agent.menu_shows("Waiting for iPhone", phone.name)
                        self.assertEqual(phone.decks(), decks)
                    finally:
                        code = agent.end()[0]
                        agent.close()
                        self.desktop.env.pop("DISPLAY", None)
                        self.desktop.env.pop("WAYLAND_DISPLAY", None)
                        self.assertEqual(code, 0)
            print(f"{start.__name__}, {moment}: served again in {len(seconds)} of {ROUNDS} rounds, "
                  f"after {statistics.median(seconds or [0]):.3f} s, {max(seconds, default=0):.3f} s "
                  f"at most, {sum(each > 0.5 for each in seconds)} after more than 0.5 s",
                  file=sys.stderr)

    def test_a_display_that_does_not_answer_is_none(self):
        with socket.socket(socket.AF_UNIX) as silent, socket.socket(socket.AF_UNIX) as compositor:
            silent.bind("\0/tmp/.X11-unix/X77")
            silent.listen()
            compositor.bind(str(self.desktop.runtime / "silent"))
            compositor.listen()
            for variables in ({"DISPLAY": ":78"}, {"WAYLAND_DISPLAY": "nobody"},
                              {"DISPLAY": ":78", "QT_QPA_PLATFORM": "xcb"},
                              {"DISPLAY": ":77", "WAYLAND_DISPLAY": "silent"}):
                with self.subTest(**variables):
                    self.desktop.env |= variables
                    self.assertEqual(self.start_agent().end()[0], 0)
                    for name in variables:
                        del self.desktop.env[name]

    def test_ends_and_is_replaced_with_a_display_as_without(self):
        self.start_x_server()
        first = self.desktop.start_agent()
        eventually(self.menu_is_open, "The menu")
        second = self.desktop.start_agent(arguments=["--background"])
        self.assertEqual(first.exit_code(), 0)
        eventually(lambda: self.has_display(second), "Windows")
        time.sleep(0.5)
        self.assertFalse(self.menu_is_open(), "it was started in the background")
        eventually(self.menu_is_open, "The menu, for nothing else shows an agent without a phone")
        self.assertEqual(second.end(signal.SIGTERM)[0], 0)


if __name__ == "__main__":
    unittest.main()
