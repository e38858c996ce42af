"""One Shortcut that never ends, and what goes on meanwhile."""

import asyncio
import json
import time
import unittest

from client import Client
from desktop import SLOWNESS, DesktopTest, alive, eventually, shortcut

STUCK = "11111111-0000-4000-8000-000000000000"


class StuckShortcut(DesktopTest):
    async def test_times_out_after_25_seconds_and_holds_nobody_up(self):
        self.desktop.set_decks([shortcut(STUCK)])
        self.desktop.set_shortcuts("*) exec sleep 600;;")
        agent = self.start_agent()
        phone = self.paired_phone(agent)
        client = await Client.connect(phone.token)
        start = time.monotonic()
        tap = phone.start("tap", 1, "--timeout", 60)
        tool = self.desktop.traced("shortcuts")[0]

        times = []
        while tap.poll() is None:
            asked = time.monotonic()
            await client.ping()
            times.append(time.monotonic() - asked)
            await asyncio.sleep(0.1)
        seconds = time.monotonic() - start
        # The machine may have other things to do now and then.
        times.sort()
        self.assertGreater(len(times), 20)
        self.assertLess(times[-len(times) // 20], 0.1 * SLOWNESS, times)
        self.assertLess(times[-1], 2 * SLOWNESS)

        answer = json.loads(tap.communicate()[0])
        self.assertEqual((answer["code"], answer["message"]),
                         ("timed_out", "Still waiting on your Mac \u2014 check for a dialog."))
        self.assertGreaterEqual(seconds, 25)
        self.assertLess(seconds, 25 + 2 * SLOWNESS)
        eventually(lambda: not alive(tool), "The end of the Shortcut")
        agent.menu_shows("Allow this Shortcut on your Mac", "Dismiss")
        agent.press("Dismiss")
        eventually(lambda: "Dismiss" not in agent.menu(), "A menu without the hint")


if __name__ == "__main__":
    unittest.main()
