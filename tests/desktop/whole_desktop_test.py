# SPDX-License-Identifier: MIT
"""The agent on the desktop of `desktop run`: a phone pairs and its keys work."""

import json
import os
import pathlib
import re
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
ROOT = pathlib.Path(os.environ["GLINTBOARD_DESKTOP"])
os.environ["GLINTBOARD_E2E_FOLDER"] = str(ROOT)
sys.path.insert(0, str(HERE.parent / "e2e"))

from desktop import Desktop, Phone, action, app, eventually, output_of  # noqa: E402

WAYLAND = "WAYLAND_DISPLAY" in os.environ
NETWORK = (ROOT / "other").exists()
SECRET = ("secret-tool", "lookup", "class", "generic-password", "service",
          "org.glintboard.Agent.paired-devices", "account", "paired-devices")


def on_other_computer(*command):
    return (str(HERE / "desktop"), "other", *command)


def focused():
    """The id of the application whose window has the focus."""
    if not WAYLAND:
        window = output_of("xdotool", "getactivewindow").strip()
        return "".join(output_of("xprop", "-id", window, "WM_CLASS").split('"')[1:2])

    def look(node):
        if node.get("focused"):
            return node.get("app_id")
        return next(filter(None, map(look, node["nodes"] + node["floating_nodes"])), None)
    return look(json.loads(output_of("swaymsg", "-t", "get_tree")))


def windows(application):
    """The number of its windows."""
    if not WAYLAND:
        return len(output_of("xdotool", "search", "--classname", f"^{application}$").split())
    return output_of("swaymsg", "-t", "get_tree").count(f'"app_id": "{application}"')


def volume(sink):
    """The left volume, of 65536."""
    found = re.search(r"left: (\d+)", output_of("pactl", "get-sink-volume", sink))
    return int(found[1])


class OtherComputersPhone(Phone):
    """A phone on another computer, which discovers the agent when it pairs."""

    def command(self, *arguments):
        program, json_option, host_option, _, *rest = super().command(*arguments)
        host = () if arguments[0] == "pair" else (host_option, "10.99.0.1")
        return list(on_other_computer(program, json_option, *host, *rest))


class WholeDesktop(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop(dict(os.environ))
        self.addCleanup(self.desktop.close)
        for name in "Notes", "Clock":
            # xterm would be a better stand-in, but needs more rights than some users have here.
            command = f"foot --app-id={name}" if WAYLAND else f"xcalc -name {name}"
            self.desktop.write_entry(name, Exec=command, StartupWMClass=name)
        self.desktop.set_decks([app("Notes"), app("Clock"), action("up"), action("down")])

    def tap(self, slot):
        self.assertEqual(self.phone.outcome("tap", slot), "ok", f"key {slot}")

    def advertised(self):
        return "_glintboard._tcp" in output_of(*on_other_computer("avahi-browse", "-atp"))

    def test_a_phone_pairs_and_its_keys_work(self):
        agent = self.desktop.start_agent(arguments=["--without-display"]).serving()
        self.phone = (OtherComputersPhone if NETWORK else Phone)(self.desktop, "Phone")
        if NETWORK:
            eventually(self.advertised, "An advertisement that the other computer sees")
        self.assertEqual(self.phone.pair(agent.pin())["ok"], True)

        for slot, name in (1, "Notes"), (2, "Clock"), (1, "Notes"), (2, "Clock"):
            self.tap(slot)
            eventually(lambda: focused() == name, f"The focus on {name}")
        self.assertEqual(windows("Notes"), 1, "the second tap started nothing")

        output_of("pactl", "set-sink-volume", "first", "32768")
        self.tap(3)
        self.assertEqual(volume("first"), 36864)
        output_of("pactl", "set-default-sink", "second")
        eventually(lambda: output_of("pactl", "get-default-sink") == "second\n", "The other device")
        before = volume("second")
        self.tap(4)
        self.assertEqual(volume("second"), before - 4096)

        file = self.desktop.keychain_file
        if os.environ["GLINTBOARD_KEYRING"] == "locked":
            self.assertIn("Phone", file.read_text())
        else:
            self.assertIn("Phone", output_of(*SECRET))
            self.assertFalse(file.exists())

        self.assertEqual(agent.end()[0], 0)
        if NETWORK:
            eventually(lambda: not self.advertised(), "The end of the advertisement")


if __name__ == "__main__":
    unittest.main(verbosity=2)
