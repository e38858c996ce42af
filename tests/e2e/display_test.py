"""The agent on displays that work, that cannot be reached, and that die under it."""

import json
import pathlib
import signal
import socket
import tempfile
import time
import unittest

from client import Client
from desktop import FOLDER, PARTS, SLOWNESS, DesktopTest, eventually


class Display(DesktopTest):
    def start_x_server(self):
        folder = self.desktop.root / "display"
        folder.mkdir(exist_ok=True)
        server = self.desktop.start("env", "GLINTBOARD_PRIVATE_NETWORK=1", PARTS / "x-server",
                                    folder)
        number = eventually(lambda: (folder / "display").exists()
                            and (folder / "display").read_text().strip(), "The X server")
        self.desktop.env["DISPLAY"] = f":{number}"
        return server

    def start_compositor(self):
        # The other user that it runs as does not see into the desktop's folder.
        folder = pathlib.Path(tempfile.mkdtemp(dir=FOLDER))
        compositor = self.desktop.start(PARTS / "compositor", "sway", folder)
        eventually((folder / "wayland-1").is_socket, "The compositor")
        self.desktop.env["WAYLAND_DISPLAY"] = str(folder / "wayland-1")
        return compositor

    def has_display(self, agent):
        maps = pathlib.Path(f"/proc/{agent.pid}/maps").read_text()
        return any(plugin in maps for plugin in ("libqxcb", "libqwayland"))

    def menu_is_open(self):
        return self.desktop.output_of("xdotool", "search", "--onlyvisible", "--name",
                                      "Glintboard Agent") != ""

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
        # The second control is the name, once the deck is loaded.
        self.type("Edit Deck", "Tab", "Tab")

        def edited():
            self.type("Edit Deck", "x")
            return "x" in self.draft()

        eventually(edited, "A draft")
        self.type("Edit Deck", "y")
        time.sleep(0.2)
        self.assertEqual(agent.end(signal.SIGTERM)[0], 0)
        self.assertIn("y", self.draft())
        name = self.draft()
        agent = self.desktop.start_agent()
        eventually(lambda: self.has_display(agent), "Windows")
        display.kill()
        eventually(lambda: "Ready for iPhone" in agent.menu(), "A text menu")
        self.assertEqual(self.draft(), name)
        self.assertNotIn(name, self.desktop.decks_file.read_text())

    async def test_serves_again_when_its_display_dies(self):
        agent = self.start_agent()
        phone = self.paired_phone(agent)
        decks = phone.decks()
        agent.end()
        for start in self.start_x_server, self.start_compositor:
            with self.subTest(display=start.__name__):
                display = start()
                agent = self.desktop.start_agent()
                eventually(lambda: self.has_display(agent), "Windows")
                eventually(lambda: phone.outcome("decks") == "ok", "An answer")
                self.assertEqual(agent.menu(), "", "a desktop's program prints nothing")

                await Client.connect(phone.token)
                display.kill()
                died = time.monotonic()
                eventually(lambda: "Waiting for iPhone" in agent.menu(), "A text menu")
                self.assertLess(time.monotonic() - died, SLOWNESS)
                self.assertTrue(agent.running())
                self.assertIn(phone.name, agent.menu())
                self.assertEqual(phone.decks(), decks)
                self.assertEqual(agent.end()[0], 0)
                for name in "DISPLAY", "WAYLAND_DISPLAY":
                    self.desktop.env.pop(name, None)

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
