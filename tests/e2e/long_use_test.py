"""An agent that runs for long: the desktop changes under it, and nothing piles up in it."""

import socket
import unittest

from client import Client
from desktop import PORT, DesktopTest, action, app, eventually, shortcut

FIRST, SECOND = "org.example.First", "org.example.Second"
GOOD, BAD = "11111111-0000-4000-8000-000000000000", "22222222-0000-4000-8000-000000000000"


class LongUse(DesktopTest):
    def test_applications_come_and_go(self):
        self.desktop.install(FIRST)
        self.desktop.set_decks([app(FIRST), app(SECOND)])
        phone = self.paired_phone(self.start_agent())

        def slots_become(*slots):
            eventually(lambda: [tile["slot"] for tile in phone.decks()[0]["tiles"]] == [*slots],
                       f"A deck of {slots}", 3)

        slots_become(1)
        entry = self.desktop.install(SECOND)
        slots_become(1, 2)
        self.assertEqual(phone.outcome("tap", 2), "ok")
        self.desktop.traced(SECOND)
        entry.unlink()
        slots_become(1)
        outcome = phone.raw("app.launch", {"bundleId": "org.example.Third"})["payload"]["code"]
        self.assertEqual(outcome, "not_found")

    async def test_neither_descriptors_nor_processes_nor_threads_pile_up(self):
        self.desktop.start_sound()
        self.desktop.install(FIRST, last="exit")
        self.desktop.set_decks([app(FIRST), shortcut(GOOD), action("up")])
        self.desktop.set_shortcuts(f"{GOOD}) sleep 0.01 & exit;; *) echo not found >&2; exit 1;;")
        agent = self.start_agent()
        token = self.paired_phone(agent).token

        async def use(times):
            for _ in range(times):
                socket.create_connection(("127.0.0.1", PORT)).close()
                client = await Client.connect(token)
                for kind, payload, answer in [
                        ("app.launch", {"bundleId": FIRST}, "app.ok"),
                        ("app.launch", {"bundleId": SECOND}, "app.error"),
                        ("shortcut.run", {"shortcutIdentifier": GOOD}, "shortcut.ok"),
                        ("shortcut.run", {"shortcutIdentifier": BAD}, "shortcut.error"),
                        ("action.run", {"actionId": "system.volume.down"}, "action.ok"),
                        ("deck.sync", {}, "decks.snapshot")]:
                    self.assertEqual((await client.ask(kind, payload))["type"], answer)
                    # Not before it has ended: one that runs is not launched again.
                    while FIRST in (await client.ping())["runningBundleIds"]:
                        pass
                await client.socket.close()

        def held():
            return agent.descriptors(), agent.threads(), len(agent.children())

        await use(3)
        eventually(lambda: not agent.children(), "The end of all children")
        eventually(lambda: "Waiting for iPhone" in agent.menu(), "The end of all connections")
        before = held()
        await use(30)
        self.assertEqual(len(self.desktop.trace(FIRST)), 33)
        eventually(lambda: all(now <= then for now, then in zip(held(), before)),
                   f"No more than {before}")


if __name__ == "__main__":
    unittest.main()
