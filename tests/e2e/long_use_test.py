# SPDX-License-Identifier: MIT
"""An agent that runs for a long time on a changing desktop, without leaks."""

import asyncio
import collections
import os
import random
import signal
import statistics
import sys
import time
import unittest

from client import Client, now
from desktop import HIDE, PORT, SLOWNESS, DesktopTest, action, app, eventually, png, shortcut

FIRST, SECOND = "org.example.First", "org.example.Second"
# The length of the day.
SECONDS = int(os.environ.get("GLINTBOARD_DAY", "60"))
GOOD, BAD = "11111111-0000-4000-8000-000000000000", "22222222-0000-4000-8000-000000000000"


class LongUse(DesktopTest):
    async def test_a_day_of_use_leaks_nothing(self):
        day = Day(self)
        end = time.monotonic() + SECONDS
        while time.monotonic() < end:
            await day.go_on()
        day.judge()


class Day:
    """Phones and their user, hour by hour, and the agent's resources after each hour."""

    def __init__(self, test):
        self.test = test
        self.desktop = test.desktop
        self.dice = random.Random(7)
        self.sound = self.desktop.start_sound()
        self.desktop.install(FIRST, last="exit", Icon=self.desktop.root / "icon.png")
        self.desktop.set_shortcuts(f"{GOOD}) sleep 0.01 & exit;; *) echo not found >&2; exit 1;;")
        self.edit()
        self.agent = test.start_agent()
        self.phone = test.paired_phone(self.agent)
        self.held = []
        self.done = collections.Counter()

    async def go_on(self):
        """An hour: phones connect, send requests and leave while the user acts."""
        user = [self.edit, self.pair_again, self.guess, self.sleep, self.install, self.hear]
        phones = [asyncio.create_task(self.visit(self.phone.token)) for _ in range(4)]
        for act in self.dice.sample(user, 3):
            await asyncio.to_thread(act)
            self.done[act.__name__] += 1
        await asyncio.gather(*phones, self.stranger())
        eventually(lambda: not self.agent.children(), "The end of all children")
        eventually(lambda: self.agent.connections() == 0, "The end of all connections")
        self.held.append(self.agent.held())

    async def visit(self, token):
        client = await Client.connect(token)
        for _ in range(self.dice.randrange(5, 30)):
            kind, payload = self.dice.choice([
                ("app.launch", {"bundleId": FIRST}), ("app.focus", {"bundleId": SECOND}),
                ("shortcut.run", {"shortcutIdentifier": GOOD}), ("deck.sync", {}),
                ("shortcut.run", {"shortcutIdentifier": BAD}), ("ping", {"ts": now()}),
                ("action.run", {"actionId": "system.volume.down"})])
            self.done[kind] += 1
            await client.send(kind, payload)
            await client.send("app.icon.request", {"bundleIds": [FIRST, SECOND, GOOD]})
            # Answered even when another pairing has just replaced the token.
            await client.answer("deck.sync", {})
        if self.dice.random() < 0.5:
            await client.socket.close()
        else:
            client.socket.transport.abort()

    async def stranger(self):
        reader, writer = await asyncio.open_connection("127.0.0.1", PORT)
        writer.write(self.dice.choice([b"", b"GET / HTTP/1.1\r\n\r\n", b"\0" * 5000]))
        writer.close()
        client = await Client.connect("stranger")
        await client.answer("deck.sync", {})
        await client.socket.close()

    def edit(self):
        self.desktop.write(self.desktop.root / "icon.png",
                           png([self.dice.randrange(256) for _ in range(3)]))
        keys = [app(FIRST), app(SECOND), shortcut(GOOD), action("up"), action("down")]
        self.desktop.set_decks(self.dice.sample(keys, 4), self.dice.sample(keys, 2))
        if hasattr(self, "agent"):
            os.kill(self.agent.pid, signal.SIGUSR1)

    def pair_again(self):
        answer = self.phone.pair(self.agent.show_code())
        self.test.assertTrue(answer["ok"], answer)
        self.phone.token = answer["token"]

    def guess(self):
        pin = self.agent.show_code()
        for _ in range(6):
            self.test.phone("Stranger").pair(f"{(int(pin) + 1) % 10**6:06}")
        self.agent.press(HIDE)

    def sleep(self):
        os.kill(self.agent.pid, signal.SIGSTOP)
        time.sleep(self.dice.random())
        os.kill(self.agent.pid, signal.SIGCONT)

    def install(self):
        entry = self.desktop.install(SECOND, last="exit")
        time.sleep(0.2)
        entry.unlink()

    def hear(self):
        self.sound.terminate()
        self.sound.wait()
        self.sound = self.desktop.start_sound()

    def judge(self):
        """Nothing may grow after the first third of the day."""
        third = len(self.held) // 3
        middle, late = self.held[third:2 * third], self.held[2 * third:]
        report = [f"{len(self.held)} hours in {SECONDS} s: {dict(self.done)}"]
        for what, allowed in ("descriptors", 2), ("threads", 2), ("KiB", 1024):
            before, after = (statistics.median(each[what] for each in part)
                             for part in (middle, late))
            report.append(f"{what}: {self.held[0][what]} at first, {before} midway, {after} late")
            # The memory of the sanitizers grows all day.
            if what != "KiB" or SLOWNESS == 1:
                self.test.assertLessEqual(after, before + allowed, report)
        print("\n".join(report), file=sys.stderr)


if __name__ == "__main__":
    unittest.main()
