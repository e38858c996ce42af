"""The agent on a whole desktop, as `desktop run` makes it: a phone pairs and its keys do things."""

import contextlib
import json
import os
import pathlib
import re
import subprocess
import sys
import types
import unittest

HERE = pathlib.Path(__file__).resolve().parent
ROOT = pathlib.Path(os.environ["GLINTBOARD_DESKTOP"])
os.environ["GLINTBOARD_E2E_FOLDER"] = str(ROOT)
sys.path.insert(0, str(HERE.parent / "e2e"))

from desktop import Agent, Phone, action, app, eventually  # noqa: E402

WAYLAND = "WAYLAND_DISPLAY" in os.environ
NETWORK = (ROOT / "other").exists()
DATA = pathlib.Path(os.environ["XDG_DATA_HOME"])
SECRET = ("secret-tool", "lookup", "class", "generic-password", "service",
          "org.glintboard.Agent.paired-devices", "account", "paired-devices")


def run(*command):
    return subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          timeout=20, check=False).stdout


def on_other_computer(*command):
    return (str(HERE / "desktop"), "other", *command)


def focused():
    """The application whose window has the focus, by its entry's id."""
    if not WAYLAND:
        window = run("xdotool", "getactivewindow").strip()
        return "".join(run("xprop", "-id", window, "WM_CLASS").split('"')[1:2])

    def look(node):
        if node.get("focused"):
            return node.get("app_id")
        return next(filter(None, map(look, node["nodes"] + node["floating_nodes"])), None)
    return look(json.loads(run("swaymsg", "-t", "get_tree")))


def windows(application):
    """How many it has."""
    if not WAYLAND:
        return len(run("xdotool", "search", "--classname", f"^{application}$").split())
    return run("swaymsg", "-t", "get_tree").count(f'"app_id": "{application}"')


def volume(sink):
    """Of 65536."""
    found = re.search(r"left: (\d+)", run("pactl", "get-sink-volume", sink))
    return int(found[1])


class OtherComputersPhone(Phone):
    """A phone on another computer, which finds the agent by itself when it pairs."""

    def command(self, *arguments):
        program, json_option, host_option, _, *rest = super().command(*arguments)
        host = () if arguments[0] == "pair" else (host_option, "10.99.0.1")
        return list(on_other_computer(program, json_option, *host, *rest))


class WholeDesktop(unittest.TestCase):
    def setUp(self):
        self.ends = contextlib.ExitStack()
        self.addCleanup(self.ends.close)
        self.desktop = types.SimpleNamespace(root=ROOT, env=dict(os.environ))
        for name in "Notes", "Clock":
            # xterm would be a better stand-in, but needs more rights than some users have here.
            command = f"foot --app-id={name}" if WAYLAND else f"xcalc -name {name}"
            (DATA / "applications" / f"{name}.desktop").write_text(
                f"[Desktop Entry]\nType=Application\nName={name}\nExec={command}\n"
                f"StartupWMClass={name}\n")
        tiles = [{**tile, "slot": slot} for slot, tile in enumerate(
            (app("Notes"), app("Clock"), action("up"), action("down")), 1)]
        decks = DATA / "GlintboardAgent" / "decks.json"
        decks.parent.mkdir(parents=True)
        decks.write_text(json.dumps({"version": 1, "decks": [
            {"id": "streaming", "name": "Streaming", "tiles": tiles},
            {"id": "gaming", "name": "Gaming", "tiles": []}]}))

    def tap(self, slot):
        self.assertEqual(self.phone.outcome("tap", slot), "ok", f"key {slot}")

    def advertised(self):
        return "_glintboard._tcp" in run(*on_other_computer("avahi-browse", "-atp"))

    def test_a_phone_pairs_and_its_keys_do_things(self):
        agent = Agent(self.desktop, arguments=["--without-display"])
        self.ends.callback(agent.close)
        agent.serving()
        self.phone = (OtherComputersPhone if NETWORK else Phone)(self.desktop, "Phone")
        if NETWORK:
            eventually(self.advertised, "An advertisement that the other computer sees")
        self.assertEqual(self.phone.pair(agent.pin())["ok"], True)

        for slot, name in (1, "Notes"), (2, "Clock"), (1, "Notes"), (2, "Clock"):
            self.tap(slot)
            eventually(lambda: focused() == name, f"The focus on {name}")
        self.assertEqual(windows("Notes"), 1, "the second tap started nothing")

        run("pactl", "set-sink-volume", "first", "32768")
        self.tap(3)
        self.assertEqual(volume("first"), 36864)
        run("pactl", "set-default-sink", "second")
        eventually(lambda: run("pactl", "get-default-sink").strip() == "second", "The other device")
        before = volume("second")
        self.tap(4)
        self.assertEqual(volume("second"), before - 4096)

        file = DATA / "GlintboardAgent" / "paired-devices.json"
        if os.environ["GLINTBOARD_KEYRING"] == "locked":
            self.assertIn("Phone", file.read_text())
        else:
            self.assertIn("Phone", run(*SECRET))
            self.assertFalse(file.exists())

        self.assertEqual(agent.end()[0], 0)
        if NETWORK:
            eventually(lambda: not self.advertised(), "The end of the advertisement")


if __name__ == "__main__":
    unittest.main(verbosity=2)
