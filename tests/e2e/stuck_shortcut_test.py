# SPDX-License-Identifier: MIT
"""Shortcuts that fail, one that never ends, and other requests meanwhile."""

import asyncio
import json
import time
import unittest

from client import Client
from desktop import FOLDER, SLOWNESS, TOOL, DesktopTest, alive, eventually, shortcut

STUCK, GONE, REFUSED = (f"{digit * 8}-0000-4000-8000-000000000000" for digit in "123")
HINT = ("Allow this Shortcut on your Mac (System Settings \u2192 Privacy & Security \u2192 "
        "Automation), then try again.")


class StuckShortcut(DesktopTest):
    async def test_times_out_after_25_seconds_without_blocking_others(self):
        self.desktop.set_decks([shortcut(each) for each in (STUCK, GONE, REFUSED)])
        (FOLDER / "shortcuts").symlink_to(TOOL)
        pids = self.desktop.root / "pids"
        for identifier, command in (REFUSED, "kill -TERM $$"), (
                STUCK, f"sleep 600 & echo $! $$ >{pids}; wait; true"):
            self.desktop.write(self.desktop.support / "Shortcuts" / f"{identifier}.shortcut",
                               f"[Shortcut]\nName={identifier}\nCommand={command}\n")
        agent = self.start_agent()
        phone = self.paired_phone(agent)
        self.assertEqual(phone.outcome("tap", 2), "not_found")
        client = await Client.connect(phone.token)
        self.assertNotIn(HINT, agent.menu_shows("iPhone connected"))
        self.assertEqual(phone.outcome("tap", 3), "cancelled")
        agent.menu_shows(HINT, "1. Dismiss")
        agent.press("Dismiss")
        eventually(lambda: HINT not in agent.menu(), "A menu without the hint")

        start = time.monotonic()
        tap = phone.start("tap", 1, "--timeout", 60)
        processes = eventually(lambda: pids.exists() and pids.read_text().split(), "A start")

        times = []
        while tap.poll() is None:
            asked = time.monotonic()
            await client.ping()
            times.append(time.monotonic() - asked)
            await asyncio.sleep(0.1)
        seconds = time.monotonic() - start
        # Tolerates outliers on a busy machine.
        times.sort()
        self.assertGreater(len(times), 20)
        self.assertLess(times[-len(times) // 20], 0.1 * SLOWNESS, times)
        self.assertLess(times[-1], 2 * SLOWNESS)

        answer = json.loads(tap.communicate()[0])
        self.assertEqual((answer["code"], answer["message"]),
                         ("timed_out", "Still waiting on your Mac \u2014 check for a dialog."))
        self.assertGreaterEqual(seconds, 25)
        self.assertLess(seconds, 25 + 2 * SLOWNESS)
        eventually(lambda: not any(map(alive, processes)), "The end of all that it started")
        agent.menu_shows(HINT)


if __name__ == "__main__":
    unittest.main()
