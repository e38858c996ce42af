"""An agent that follows a script, on a free port of the loopback address. FILE gets the port.

It knows one phone. What its keys do stands in their identifiers.
"""

import asyncio
import base64
import hashlib
import json
import sys
import uuid

import websockets

TOKEN = "8B2E5C1A-0D4F-4C7B-9E63-1F2A3B4C5D6E"
REFUSAL = "Missing or invalid X-Glintboard-Token header"
SHORTCUT = "0F8FAD5B-D9CB-469F-A165-70867728950E"
SECRETS = {("pin", "246810"), ("qr", "a+code")}
BATCH = 12  # the most keys that a phone may ask for at once


def tile(slot, label, identifier):
    return {"slot": slot, "label": label, "bundleId": identifier}


STREAMING = [
    tile(1, "Good", "org.example.Good"),
    tile(2, "Gone\x1b[31m", "org.example.Gone"),
    tile(3, "Silent", "org.example.Silent"),
    tile(4, "Climber", "../../climber"),
    tile(5, "No Icon", "org.example.NoIcon"),
    {"slot": 6, "label": "Mute", "bundleId": "", "actionId": "system.volume.mute"},
    {"slot": 7, "label": "Tea", "bundleId": "", "shortcutIdentifier": SHORTCUT},
] + [tile(slot, f"App {slot}", f"org.example.App{slot}") for slot in range(8, 20)]
GAMING = [tile(1, "Good", "org.example.Good"), tile(2, "Forged", "org.example.Forged")]


def png(key):
    return b"\x89PNG\r\n\x1a\nicon of " + key.encode()


def revision(key):
    return hashlib.sha256(png(key)).hexdigest()


def snapshot(forged):
    decks = []
    for name, tiles in ("Streaming", STREAMING), ("Gaming", GAMING[: 2 if forged else 1]):
        keys = [t.get("shortcutIdentifier", t["bundleId"]) for t in tiles]
        decks.append({
            "deckId": name.lower(), "name": name, "tiles": tiles,
            "runningBundleIds": ["org.example.Good"],
            "iconRevisions": {k: revision(k) for k in keys if k and "NoIcon" not in k},
        })
    return {"decks": decks}


class Agent:
    def __init__(self):
        self.forged = False

    async def serve(self, socket):
        paired = socket.request_headers.get("X-Glintboard-Token") == TOKEN
        async for text in socket:
            message = json.loads(text)

            async def send(kind, payload, same_id=True):
                await socket.send(json.dumps({
                    "type": kind, "payload": payload,
                    "id": message["id"] if same_id else str(uuid.uuid4()).upper(),
                }))

            await self.answer(message["type"], message["payload"], paired, send)

    async def answer(self, kind, payload, paired, send):
        if kind == "pair.request":
            if (payload["method"], payload["secret"]) in SECRETS:
                await send("pair.ok", {"token": TOKEN})
            else:
                await send("pair.fail", {"reason": "invalid_pin", "message": "Invalid PIN"})
        elif kind == "deck.sync" and not paired:
            await send("app.error", {"bundleId": "", "code": "unauthorized", "message": REFUSAL})
        elif kind == "deck.sync":
            await send("decks.snapshot", snapshot(self.forged))
            await send("decks.snapshot", snapshot(self.forged), same_id=False)  # a push
        elif kind == "ping" and paired:
            await send("pong", {"ts": payload["ts"], "rtt": 0.5})
        elif kind == "app.icon.request" and paired:
            await self.icons(payload["bundleIds"], send)
        elif kind == "app.launch" and "Silent" not in payload["bundleId"]:
            await send("app.ok", payload)
        elif kind == "test.forge":
            self.forged = True

    async def icons(self, keys, send):
        if len(keys) > BATCH:
            return
        for key in keys:
            image = png("something else" if "Forged" in key else key)
            if "NoIcon" not in key:
                await send("app.icon", {"bundleId": key, "revision": revision(key),
                                        "pngBase64": base64.b64encode(image).decode()},
                           same_id=False)


async def main():
    async with websockets.serve(Agent().serve, "127.0.0.1", 0) as server:
        with open(sys.argv[1], "w") as file:
            file.write(f"{server.sockets[0].getsockname()[1]}\n")
        await asyncio.Future()


asyncio.run(main())
