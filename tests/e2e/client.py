# SPDX-License-Identifier: MIT
"""A phone that shares no code with the agent."""

import asyncio
import datetime
import json
import uuid

import websockets

from desktop import PORT, SECRETS, SLOWNESS

TOKEN_HEADER = "X-Glintboard-Token"
# Named otherwise before version 14 of websockets.
EXTRA_HEADERS = ("additional_headers" if int(websockets.__version__.split(".")[0]) >= 14
                 else "extra_headers")


def now():
    return datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")


def message(kind, payload, identifier=None):
    return {"type": kind, "id": identifier or str(uuid.uuid4()), "payload": payload}


def connect_with(headers, **options):
    return websockets.connect(f"ws://127.0.0.1:{PORT}", **{EXTRA_HEADERS: headers}, **options)


def token_of(connection):
    """The token that the phone at the other end of a server's connection sent, or None."""
    request = getattr(connection, "request", None)  # since version 14
    return (request.headers if request else connection.request_headers).get(TOKEN_HEADER)


def upgrade(*headers):
    """The upgrade request of a raw connection."""
    return "\r\n".join(["GET / HTTP/1.1", "Host: agent", "Upgrade: websocket",
                        "Connection: Upgrade", "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==",
                        "Sec-WebSocket-Version: 13", *headers, "", ""]).encode()


async def open_raw(*headers):
    """Reader and writer of an upgraded connection that answers no pings."""
    reader, writer = await asyncio.open_connection("127.0.0.1", PORT)
    writer.write(upgrade(*headers))
    answer = await reader.readuntil(b"\r\n\r\n")
    assert answer.startswith(b"HTTP/1.1 101 "), answer
    return reader, writer


class Client:
    def __init__(self, socket):
        self.socket = socket

    @classmethod
    async def connect(cls, token=None, header=TOKEN_HEADER):
        headers = {} if token is None else {header: token}
        return cls(await connect_with(headers, ping_interval=None, open_timeout=10 * SLOWNESS))

    async def send(self, kind, payload, identifier=None):
        await self.socket.send(json.dumps(message(kind, payload, identifier)))

    async def receive(self, seconds=10):
        """The next message; fails when none comes."""
        text = await asyncio.wait_for(self.socket.recv(), seconds * SLOWNESS)
        assert isinstance(text, str), "messages come in text frames"
        return json.loads(text)

    async def ask(self, kind, payload):
        """The next message, which has to answer this one."""
        identifier = str(uuid.uuid4()).upper()
        await self.send(kind, payload, identifier)
        reply = await self.receive()
        assert reply["id"] == identifier, reply
        return reply

    async def answer(self, kind, payload):
        """Waits for the message that answers this one, whatever comes before it."""
        identifier = str(uuid.uuid4()).upper()
        await self.send(kind, payload, identifier)
        while (await self.receive())["id"] != identifier:
            pass

    async def ping(self):
        sent = now()
        pong = (await self.ask("ping", {"ts": sent}))["payload"]
        assert pong["ts"] == sent, pong
        return pong

    async def pair(self, pin, device=None):
        """Pairs, and returns the token."""
        reply = await self.ask("pair.request", {
            "method": "pin", "secret": pin, "deviceName": "Client",
            "deviceId": device or str(uuid.uuid4())})
        assert reply["type"] == "pair.ok", reply
        SECRETS.add(reply["payload"]["token"])
        return reply["payload"]["token"]
