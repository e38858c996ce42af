# SPDX-License-Identifier: MIT
"""Faults of the network and the machine, from which the agent recovers."""

import asyncio
import contextlib
import ctypes
import os
import pathlib
import re
import resource
import signal
import socket
import time
import unittest

from gi.repository import Gio, GLib

from client import TOKEN_HEADER, Client, open_raw
from desktop import PARTS, PORT, SLOWNESS, DesktopTest, output_of

LOGIND = "org.freedesktop.login1"
FAKETIME = pathlib.Path("/usr/lib/x86_64-linux-gnu/faketime/libfaketimeMT.so.1")


def listening_socket(pid):
    """A descriptor of the agent's listening socket, shared with the agent."""
    number = int(re.search(r"fd=(\d+)", output_of("ss", "-Htlnp", f"sport = :{PORT}"))[1])
    process = os.pidfd_open(pid)
    with contextlib.closing(socket.socket(
            fileno=ctypes.CDLL(None).syscall(438, process, number, 0))) as shared:  # pidfd_getfd
        os.close(process)
        return shared.dup()


class NetworkFaults(DesktopTest):
    async def silent_phone(self, token):
        """The reader of a connection that answers no ping."""
        reader, writer = await open_raw(f"{TOKEN_HEADER}: {token}")
        self.addCleanup(writer.close)
        return reader

    async def seconds_until_dropped(self, reader):
        start = time.monotonic()
        while await asyncio.wait_for(reader.read(4096), 60 * SLOWNESS):
            pass
        return time.monotonic() - start

    @unittest.skipIf(SLOWNESS > 1, "a sanitizer needs descriptors")
    async def test_recovers_from_exhausted_descriptors(self):
        self.desktop.set_decks([])
        agent = self.start_agent()
        token = self.paired_phone(agent).token
        decks = self.desktop.decks_file.read_bytes()
        phone, stranger = await Client.connect(token), await Client.connect()
        usual = resource.prlimit(agent.pid, resource.RLIMIT_NOFILE)
        resource.prlimit(agent.pid, resource.RLIMIT_NOFILE, (8, usual[1]))
        waiting = asyncio.ensure_future(Client.connect(token))
        used, end = agent.cpu_seconds(), time.monotonic() + 1.5
        while time.monotonic() < end:
            await phone.ping()
            await asyncio.sleep(0.1)
        self.assertLess(agent.cpu_seconds() - used, 0.5 * SLOWNESS)
        self.assertEqual(agent.log().count("a connection was not accepted"), 1)
        self.assertTrue(stranger.socket.closed, "strangers go first")
        self.assertFalse(waiting.done())
        resource.prlimit(agent.pid, resource.RLIMIT_NOFILE, usual)
        await (await waiting).ping()
        self.assertEqual(self.desktop.decks_file.read_bytes(), decks)

    async def test_recovers_the_port_from_another_program(self):
        with socket.create_server(("", PORT)):
            agent = self.desktop.start_agent()
            agent.menu_shows("Port 9847 is already in use. Quit the other Glintboard Agent first.",
                             "Connection failed", "Restart Agent")
        self.assertNotIn("in use", agent.menu_shows("Ready for iPhone"))
        token = self.paired_phone(agent).token
        phone = await Client.connect(token)
        with contextlib.closing(listening_socket(agent.pid)) as shared:
            shared.shutdown(socket.SHUT_RDWR)
        with socket.create_server(("", PORT)):
            agent.menu_shows("Port 9847 is already in use")
            await phone.ping()
        self.assertNotIn("in use", agent.menu_shows("Waiting for iPhone"))
        again = await Client.connect(token)
        agent.menu_shows("iPhone connected")
        await again.ping()

    @unittest.skipIf(SLOWNESS > 1, "a sanitizer must be loaded first")
    async def test_survives_clock_jumps(self):
        clock = self.desktop.write(self.desktop.root / "clock", "+0")
        self.desktop.env.update(LD_PRELOAD=str(FAKETIME), FAKETIME_TIMESTAMP_FILE=str(clock),
                                FAKETIME_NO_CACHE="1", FAKETIME_DONT_FAKE_MONOTONIC="1")
        agent = self.start_agent()
        phone = await Client.connect(self.paired_phone(agent).token)
        for years in 30, -30:
            clock.write_text(f"{years:+}y")
            rtt = (await phone.ping())["rtt"]
            self.assertAlmostEqual(rtt / (365 * 86400), years, delta=1)
            used = agent.cpu_seconds()
            await asyncio.sleep(1.5)
            self.assertLess(agent.cpu_seconds() - used, 0.5)
            await phone.ping()
            await (await Client.connect()).socket.close()

    async def test_survives_being_stopped(self):
        agent = self.start_agent()
        token = self.paired_phone(agent).token
        phone, dead = await Client.connect(token), await self.silent_phone(token)
        os.kill(agent.pid, signal.SIGSTOP)
        await asyncio.sleep(25)
        os.kill(agent.pid, signal.SIGCONT)
        self.assertLess(await self.seconds_until_dropped(dead), 15 * SLOWNESS)
        await phone.ping()

    @unittest.skipIf(pathlib.Path("/proc/self/uid_map").read_text().split()[2] == "1",
                     "Avahi's daemon needs more than one user")
    async def test_recovers_after_sleep(self):
        address = self.desktop.root / "system"
        self.desktop.env["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={address}"
        agent = self.start_agent()
        token = self.paired_phone(agent).token
        phone, dead = await Client.connect(token), await self.silent_phone(token)
        # The bus and its services start late.
        self.desktop.start_bus("system", address)
        bus = Gio.DBusConnection.new_for_address_sync(
            f"unix:path={address}", Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.desktop.start(PARTS / "avahi", "box", self.desktop.root)
        bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                      "RequestName", GLib.Variant("(su)", (LOGIND, 0)), None, 0, -1)

        async def sleep_until(condition):
            while not condition():
                for asleep in True, False:
                    bus.emit_signal(None, "/org/freedesktop/login1", LOGIND + ".Manager",
                                    "PrepareForSleep", GLib.Variant("(b)", (asleep,)))
                await asyncio.sleep(1)

        def advertised():
            return "_glintboard._tcp" in self.desktop.output_of("avahi-browse", "-atp")

        dropped = asyncio.ensure_future(self.seconds_until_dropped(dead))
        await asyncio.wait_for(sleep_until(lambda: dropped.done() and advertised()), 30 * SLOWNESS)
        self.assertLess(await dropped, 15 * SLOWNESS)
        await phone.ping()


if __name__ == "__main__":
    unittest.main()
