# SPDX-License-Identifier: MIT
"""Attacks by other connections while a paired phone taps its keys.

`hostile_phones_test.py attack NAME TOKEN` carries out one attack until it is killed.
"""

import asyncio
import contextlib
import json
import resource
import selectors
import socket
import statistics
import struct
import subprocess
import sys
import time
import unittest

from client import TOKEN_HEADER, Client, message, open_raw, upgrade
from desktop import PORT, SLOWNESS, DesktopTest

# Limits in seconds, many times the figures of an idle machine: for the median tap, the slowest tap,
# and a new connection, which waits behind those of the attacker.
USUAL_TAP, ANY_TAP, CONNECTING = 0.1 * SLOWNESS, 1 * SLOWNESS, 5 * SLOWNESS
# Under a sanitizer, attackers need as much processor time as the agent.
FEWER = 4 if SLOWNESS > 1 else 1
GUEST = "00000000-0000-4000-8000-000000000000"
LOUDER = {"actionId": "system.volume.up"}


def frame(payload, opcode=1):
    """A frame whose mask is zero."""
    size = len(payload)
    form, code = (">BBH", 126) if size < 1 << 16 else (">BBQ", 127)
    head = struct.pack(form, 0x80 | opcode, 0x80 | code, size)
    if size < 126:
        head = bytes([0x80 | opcode, 0x80 | size])
    return head + bytes(4) + payload


def text(kind, payload):
    return frame(json.dumps(message(kind, payload)).encode())


def icon_keys(size):
    return text("app.icon.request", {"bundleIds": ["k"] * (size // 6)})


def pair_request(secret, method="pin"):
    return {"method": method, "secret": secret, "deviceName": "Guess", "deviceId": GUEST}


PINGS = text("ping", {"ts": "2026-01-01T00:00:00Z"}) * 100
# The number of connections; what each sends once; what it repeats as fast as possible after the
# reply; whether it reads further replies; whether it has the phone's token.
ATTACKS = {
    "nothing": (0, b"", b"", True, False),
    "never upgrade": (2500, b"", b"", True, False),
    "a byte a second": (2500, b"", upgrade(), True, False),
    "upgraded and idle": (2500, upgrade(), b"", True, False),
    "never read": (200, upgrade(), text("deck.sync", {}) * 200, False, False),
    "never read, paired": (20, upgrade(), text("deck.sync", {}) * 200, False, True),
    "megabyte frames": (100, upgrade(), frame(b"x" * (1 << 20)), True, False),
    "megabyte frames, paired": (4, upgrade(), frame(b" " * (1 << 20)), True, True),
    "deep JSON": (100, upgrade(), frame(b"[" * 16_000), True, False),
    "icon keys": (100, upgrade(), icon_keys(16_000), True, False),
    "icon keys, paired": (4, upgrade(), icon_keys(1_000_000), True, True),
    "control pings": (100, upgrade(), frame(b"p" * 125, opcode=9) * 500, True, False),
    "pings": (100, upgrade(), PINGS, True, False),
    "pings, paired": (4, upgrade(), PINGS, True, True),
    "PIN guesses": (100, upgrade(), text("pair.request", pair_request("000000")) * 50, True, False),
}


def attack(name, token):
    """Runs an attack, and replaces each connection that is closed."""
    count, first, repeated, reads, paired = ATTACKS[name]
    if paired:
        first = first[:-2] + f"{TOKEN_HEADER}: {token}\r\n\r\n".encode()
    slow = not first
    resource.setrlimit(resource.RLIMIT_NOFILE, (4096, 4096))
    chooser = selectors.DefaultSelector()

    def connect():
        # Another device than the phone's: the limits are shared among addresses.
        connection = socket.create_connection(("127.0.0.1", PORT), source_address=("127.0.0.2", 0))
        connection.setblocking(False)
        connection.send(first)
        chooser.register(connection, selectors.EVENT_READ, [0])

    def push(connection, position, most):
        start = position[0]
        position[0] = (start + connection.send(repeated[start:start + most])) % len(repeated)

    def advance(connection, position, events):
        if events & selectors.EVENT_READ:
            if not connection.recv(1 << 20):
                raise ConnectionResetError
            if repeated:
                chooser.modify(connection, selectors.EVENT_WRITE | (selectors.EVENT_READ * reads),
                               position)
        if events & selectors.EVENT_WRITE:
            push(connection, position, 1 << 17)

    for _ in range(count // FEWER):
        connect()
    print("ready", flush=True)
    while True:
        for key, events in chooser.select(1 if slow else None):
            with contextlib.suppress(BlockingIOError):
                try:
                    advance(key.fileobj, key.data, events)
                except ConnectionError:
                    chooser.unregister(key.fileobj)
                    key.fileobj.close()
                    connect()
        if slow and repeated:
            time.sleep(1)
            for key in list(chooser.get_map().values()):
                with contextlib.suppress(OSError):
                    push(key.fileobj, key.data, 1)


class HostilePhones(DesktopTest):
    async def taps(self, phone, token, seconds=1.5):
        """The seconds of each tap, and of each new connection until its first reply."""
        old, new = [], []
        end = time.monotonic() + seconds
        while time.monotonic() < end or len(new) < 3 // FEWER + 1:
            start = time.monotonic()
            self.assertEqual((await phone.ask("action.run", LOUDER))["type"], "action.ok")
            old.append(time.monotonic() - start)
            if len(old) % 5 == 0:
                start = time.monotonic()
                another = await Client.connect(token)
                await another.ping()
                new.append(time.monotonic() - start)
                await another.socket.close()
            await asyncio.sleep(0.02)
        return old, new

    async def test_attacks_do_not_delay_the_paired_phone(self):
        self.desktop.start_sound()
        agent = self.start_agent()
        token = self.paired_phone(agent).token
        phone = await Client.connect(token)
        for name in ATTACKS:
            with self.subTest(name):
                with subprocess.Popen([sys.executable, "-B", __file__, "attack", name, token],
                                      stdout=subprocess.PIPE) as attacker:
                    try:
                        await asyncio.to_thread(attacker.stdout.readline)
                        old, new = await self.taps(phone, token)
                    finally:
                        attacker.kill()
                tap, connecting = statistics.median(old), statistics.median(new)
                print(f"{name}: tap {tap * 1000:.1f} ms, worst {max(old) * 1000:.1f}; "
                      f"new connection {connecting * 1000:.1f}, worst {max(new) * 1000:.1f}",
                      file=sys.stderr)
                self.assertLess(tap, USUAL_TAP)
                self.assertLess(max(old), ANY_TAP)
                self.assertLess(max(new), CONNECTING)
                self.assertLess(agent.descriptors(), 1000)
        if SLOWNESS == 1:  # The address sanitizer keeps what was freed.
            self.assertLess(agent.held()["KiB"], 200 << 10)
        await phone.ping()

    async def test_parallel_guesses_share_five_attempts(self):
        agent = self.start_agent()
        pin, code = agent.pin(), agent.qr().rpartition("code=")[2]
        wrong = "000000" if pin != "000000" else "111111"
        clients = await asyncio.gather(*(Client.connect() for _ in range(100)))

        async def guess(client, secret=wrong):
            reply = (await client.ask("pair.request", pair_request(secret)))["payload"]
            return reply["reason"]

        reasons = await asyncio.gather(*(guess(client) for client in clients))
        self.assertEqual(sorted(reasons), ["invalid_pin"] * 4 + ["lockout"] * 96)
        self.assertEqual(await guess(clients[0], pin), "lockout")
        agent.menu_shows("Pairing locked \u2014 too many failed attempts")
        self.assertNotIn(pin, agent.menu())
        reply = await clients[1].ask("pair.request", pair_request(code, "qr"))
        self.assertEqual(reply["type"], "pair.ok", reply)

    async def test_strangers_are_limited(self):
        agent = self.start_agent()
        token = self.paired_phone(agent).token
        phones = [await open_raw(f"{TOKEN_HEADER}: {token}") for _ in range(1000 // FEWER)]
        strangers = [await Client.connect() for _ in range(140)]
        await asyncio.wait_for(strangers[11].socket.wait_closed(), 10 * SLOWNESS)
        self.assertEqual([client.socket.closed for client in strangers],
                         [True] * 12 + [False] * 128)
        self.assertFalse(any(reader.at_eof() for reader, _ in phones))
        # Their messages have at most 16 KiB.
        await strangers[-1].socket.send("x" * (16 << 10))
        await strangers[-1].socket.send("x" * ((16 << 10) + 1))
        await asyncio.wait_for(strangers[-1].socket.wait_closed(), 10 * SLOWNESS)
        await (await Client.connect(token)).ping()
        for _, writer in phones:
            writer.close()

    async def test_a_web_page_is_treated_as_a_stranger(self):
        agent = self.start_agent()
        reader, writer = await open_raw("Origin: https://elsewhere.example")
        writer.write(text("deck.sync", {}))
        await reader.readuntil(b"unauthorized")
        writer.write(text("pair.request", pair_request("wrong")))
        await reader.readuntil(b"invalid_pin")
        writer.close()
        self.paired_phone(agent)


if __name__ == "__main__":
    if sys.argv[1:2] == ["attack"]:
        attack(*sys.argv[2:])
    unittest.main()
