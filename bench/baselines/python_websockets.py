# SPDX-License-Identifier: MIT
"""A minimal server in Python: parses the ping and replies with a pong. Reads no file."""

import asyncio
import contextlib
import datetime
import json
import sys

import websockets


async def serve(socket, _path=None):
    with contextlib.suppress(websockets.ConnectionClosed):
        await answer(socket)


async def answer(socket):
    async for text in socket:
        message = json.loads(text)
        if message["type"] == "ping":
            ts = message["payload"]["ts"]
            sent = datetime.datetime.fromisoformat(ts.replace("Z", "+00:00")).timestamp()
            rtt = datetime.datetime.now().timestamp() - sent
            await socket.send(json.dumps({
                "id": message["id"],
                "payload": {"rtt": rtt, "runningBundleIds": [], "ts": ts},
                "type": "pong"}, separators=(",", ":")))


async def main():
    async with websockets.serve(serve, "127.0.0.1", int(sys.argv[1]), compression=None):
        await asyncio.Future()


asyncio.run(main())
