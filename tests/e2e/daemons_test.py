# SPDX-License-Identifier: MIT
"""Hangs and kills each daemon of the desktop: the agent keeps serving and recovers."""

import asyncio
import signal
import time
import unittest

from client import Client
from desktop import PARTS, SLOWNESS, TESTS, DesktopTest, eventually

SERVICE = "org.example.Service"
SECRET = ("secret-tool", "lookup", "account", "paired-devices")
UNLOCK = TESTS / "support" / "unlock_keyring.py"
UP = {"actionId": "system.volume.up"}


class Daemons(DesktopTest):
    def setUp(self):
        super().setUp()
        self.running = {}
        self.system_bus = self.desktop.root / "system-bus"
        self.desktop.env["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={self.system_bus}"
        self.desktop.install_service(SERVICE)

    def begin(self, name, state="unlocked"):
        """Starts the daemon, and those that ended with it."""
        desktop = self.desktop
        self.running[name] = {
            "sound": desktop.start_sound,
            "session bus": desktop.start_bus,
            "system bus": lambda: desktop.start_bus("system", self.system_bus),
            "keyring": lambda: desktop.start(PARTS / "keyring", state),
            "avahi": lambda: desktop.start(PARTS / "avahi", "box", desktop.root)}[name]()
        if name in ("session bus", "system bus"):
            self.begin("keyring" if name == "session bus" else "avahi")
        if name == "keyring":
            eventually(lambda: "secrets" in desktop.output_of(
                "gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path",
                "/", "--method", "org.freedesktop.DBus.ListNames"), "The keyring")

    async def answered(self, client, seconds):
        """Expects prompt replies for that long, even if they are refusals."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            asked = time.monotonic()
            await client.ask("deck.sync", {})
            self.assertLess(time.monotonic() - asked, 1 * SLOWNESS, "a late reply")
            await asyncio.sleep(0.02)

    async def ask(self, token, kind, payload):
        client = await Client.connect(token)
        await client.send(kind, payload)
        reply = await client.receive(40)
        await client.socket.close()
        return reply["type"]

    async def test_serves_while_a_daemon_hangs_or_dies_and_recovers(self):
        for name in "sound", "session bus", "system bus":
            self.begin(name)
        agent = self.start_agent()
        phone = self.paired_phone(agent)

        async def sound():
            return await self.ask(phone.token, "action.run", UP) == "action.ok"

        async def activation():
            return await self.ask(phone.token, "app.launch", {"bundleId": SERVICE}) == "app.ok"

        async def pairing():
            phone.token = phone.pair(agent.show_code())["token"]
            return phone.token in self.desktop.output_of(*SECRET)

        async def advertisement():
            return "_glintboard._tcp" in self.desktop.output_of("avahi-browse", "-atp")

        for name, works in [("sound", sound), ("session bus", activation), ("keyring", pairing),
                            ("avahi", advertisement), ("system bus", advertisement)]:
            for fault in signal.SIGSTOP, signal.SIGKILL:
                with self.subTest(daemon=name, fault=fault.name):
                    await self.eventually_true(works)
                    client = await Client.connect(phone.token)
                    self.running[name].send_signal(fault)
                    using = asyncio.create_task(asyncio.to_thread(asyncio.run, works()))
                    try:
                        await self.answered(client, 1.5)
                    finally:
                        if fault == signal.SIGKILL:
                            self.running[name].wait()
                            self.begin(name)
                        else:
                            self.running[name].send_signal(signal.SIGCONT)
                        await using
                    await self.eventually_true(works)
                    await self.answered(client, 0.1)
                    await client.socket.close()
        self.assertTrue(agent.running())

    async def test_a_phone_is_recognised_as_soon_as_the_pairing_is_readable(self):
        self.begin("session bus")
        agent = self.start_agent()
        token = self.paired_phone(agent).token
        self.assertIn(token, self.desktop.output_of(*SECRET))
        agent.end()

        def lock():
            self.running["keyring"].kill()
            self.running["keyring"].wait()
            self.begin("keyring", "locked")

        def unlock():
            self.assertEqual(self.desktop.output_of("/usr/bin/python3", UNLOCK), "done\n")

        def end_bus():
            for name in "session bus", "keyring":
                self.running[name].kill()
                self.running[name].wait()

        for out_of_reach, within_reach in (lock, unlock), (end_bus, lambda: self.begin("session bus")):
            with self.subTest(fault=out_of_reach.__name__):
                out_of_reach()
                agent = self.start_agent()
                phone = await Client.connect(token)
                self.assertEqual((await phone.ask("deck.sync", {}))["type"], "app.error")
                self.assertEqual("cannot be read" in agent.log(), out_of_reach is lock)
                within_reach()
                # Sooner than polling would notice.
                deadline = time.monotonic() + 5 * SLOWNESS
                while (await phone.ask("deck.sync", {}))["type"] != "decks.snapshot":
                    self.assertLess(time.monotonic(), deadline, "the phone is refused")
                    await asyncio.sleep(0.02)
                await phone.socket.close()
                agent.end()

    async def eventually_true(self, works):
        deadline = time.monotonic() + 20 * SLOWNESS
        while not await works():
            self.assertLess(time.monotonic(), deadline, f"{works.__name__} does not recover")
            await asyncio.sleep(0.2)


if __name__ == "__main__":
    unittest.main()
