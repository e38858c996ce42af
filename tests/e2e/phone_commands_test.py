# SPDX-License-Identifier: MIT
"""glintboard-phone against a scripted agent, for replies that the real one does not give."""

import asyncio
import base64
import collections
import hashlib
import json
import socket
import unittest
import uuid

import websockets

from client import token_of
from desktop import PORT, SLOWNESS, DesktopTest, app, shortcut

TOKEN = "8B2E5C1A-0D4F-4C7B-9E63-1F2A3B4C5D6E"
TEA = "0F8FAD5B-D9CB-469F-A165-70867728950E"
SECRETS = {"pin": "246810", "qr": "a+code"}
BATCH = 12  # the most keys that a phone may ask for at once
MUTE = {"label": "Mute", "bundleId": "", "actionId": "system.volume.mute"}
# Their names say how the scripted agent treats them.
STREAMING = [app("Good"), app("Gone\x1b[31m"), app("Silent"), app("../../climber"), app("NoIcon"),
             MUTE, shortcut(TEA), *(app(f"App{number}") for number in range(12))]


def png(key):
    return b"\x89PNG\r\n\x1a\nicon of " + key.encode()


def revision(key):
    return hashlib.sha256(png(key)).hexdigest()


class PhoneCommands(DesktopTest):
    async def asyncSetUp(self):
        self.gaming = [app("Good")]
        self.server = await websockets.serve(self.serve, "127.0.0.1", PORT)
        self.addAsyncCleanup(self.end_agent)

    async def end_agent(self):
        self.server.close()
        await self.server.wait_closed()

    async def serve(self, phone):
        paired = token_of(phone) == TOKEN
        async for text in phone:
            message = json.loads(text)
            for kind, payload in self.answers(message["type"], message["payload"], paired):
                asked = kind not in ("push", "app.icon")
                await phone.send(json.dumps({
                    "type": "decks.snapshot" if kind == "push" else kind, "payload": payload,
                    "id": message["id"] if asked else str(uuid.uuid4())}))

    def answers(self, kind, payload, paired):
        if kind == "pair.request" and payload["secret"] == SECRETS[payload["method"]]:
            yield "pair.ok", {"token": TOKEN}
        elif kind == "deck.sync" and not paired:
            yield "app.error", {"bundleId": "", "code": "unauthorized", "message": "Unknown token"}
        elif kind == "deck.sync":
            yield "decks.snapshot", self.snapshot()
            yield "push", self.snapshot()
        elif kind == "ping" and paired:
            yield "pong", {"ts": payload["ts"], "rtt": 0.5}
        elif kind == "app.launch" and payload["bundleId"] != "Silent":
            yield "app.ok", payload
        elif kind == "app.icon.request" and paired and len(payload["bundleIds"]) <= BATCH:
            for key in filter(lambda key: key != "NoIcon", payload["bundleIds"]):
                image = png("something else" if key == "Forged" else key)
                yield "app.icon", {"bundleId": key, "revision": revision(key),
                                   "pngBase64": base64.b64encode(image).decode()}

    def snapshot(self):
        decks = []
        for name, tiles in ("Streaming", STREAMING), ("Gaming", self.gaming):
            keys = [tile.get("shortcutIdentifier", tile["bundleId"]) for tile in tiles]
            decks.append({
                "deckId": name.lower(), "name": name, "runningBundleIds": ["Good"],
                "tiles": [{**tile, "slot": slot} for slot, tile in enumerate(tiles, 1)],
                "iconRevisions": {key: revision(key) for key in keys if key not in ("", "NoIcon")}})
        return {"decks": decks}

    async def run_phone(self, *words, to_people=False):
        """The exit code and what is printed."""
        command = self.phone().command(*words)
        process = await asyncio.create_subprocess_exec(
            *(word for word in command if word != "--json" or not to_people),
            env=self.desktop.env, stdout=asyncio.subprocess.PIPE)
        printed = (await process.communicate())[0].decode()
        return process.returncode, printed

    async def records(self, *words):
        _, printed = await self.run_phone(*words)
        return [json.loads(line) for line in printed.splitlines()]

    async def assert_outcome(self, words, exit_code, code=None, says=""):
        returned, printed = await self.run_phone(*words)
        record = json.loads(printed.splitlines()[-1])
        self.assertEqual((returned, record.get("code")), (exit_code, code), words)
        self.assertIn(says, record.get("message", ""))

    async def pair(self):
        await self.assert_outcome(["pair", SECRETS["pin"]], 0)

    async def test_pairing_is_needed_kept_and_forgotten(self):
        await self.assert_outcome(["decks"], 1, "not_paired", "glintboard-phone pair PIN")
        address = "glintboard://pair?v=1&name=Studio%20Mac"
        await self.assert_outcome(["pair", address], 2, "usage")
        await self.assert_outcome(["pair", address + "&code=a%2Bcode"], 0)
        await self.assert_outcome(["decks"], 0)
        await self.assert_outcome(["forget"], 0)
        await self.assert_outcome(["decks"], 1, "not_paired")

    async def test_every_command_reports_an_invalid_token(self):
        state = {"deviceId": TEA, "token": "old"}
        self.desktop.write(self.phone().state / "phone.json", json.dumps(state))
        for words in ["decks"], ["icons", self.desktop.root], ["tap", 1], ["ping"], ["watch"]:
            await self.assert_outcome(words, 1, "unauthorized",
                                      "does not know this phone any more")

    async def test_decks_show_every_key_and_no_control_character(self):
        await self.pair()
        _, text = await self.run_phone("decks", to_people=True)
        self.assertIn("Streaming (streaming)\n  Slot  Label", text)
        self.assertRegex(text, r"1 +Good +app +Good +yes\n")
        self.assertRegex(text, r"6 +Mute +action +system.volume.mute\n")
        self.assertNotIn("\x1b", text)

    async def test_tap_reports_a_missing_key_and_a_timeout(self):
        await self.pair()
        await self.assert_outcome(["tap", 1, "--deck", "gaming"], 0)
        await self.assert_outcome(["tap", 99], 2, "no_key")
        await self.assert_outcome(["tap", 3, "--timeout", "0.3"], 4, "timeout")

    async def test_icons_are_fetched_in_batches_only_when_needed_and_checked(self):
        await self.pair()
        folder = self.desktop.root / "icons"

        async def states():
            record = (await self.records("icons", folder))[-1]
            self.assertEqual(record["missing"], ["NoIcon"])
            return collections.Counter(icon["state"] for icon in record["icons"])

        self.assertEqual(await states(), {"fetched": 17})
        self.assertEqual(await states(), {"kept": 17})
        (folder / "Good.png").write_text("damaged")
        self.assertEqual(await states(), {"fetched": 1, "kept": 16})
        self.gaming.append(app("Forged"))
        await self.assert_outcome(["icons", folder], 1, "bad_icon")
        self.assertFalse((folder / "Forged.png").exists())

    async def test_ping_measures_and_watch_ends_in_time(self):
        await self.pair()
        pongs = await self.records("ping", "--count", 3)
        self.assertEqual(len(pongs), 3)
        self.assertGreater(pongs[0]["seconds"], 0)
        self.assertEqual(pongs[0]["agentRtt"], 0.5)
        watched = await self.records("watch", "--for", 0.5 * SLOWNESS)
        self.assertEqual(len(watched), 2)
        self.assertEqual(len(watched[1]["decks"]), 2)

    async def test_distinguishes_an_absent_from_a_silent_agent(self):
        await self.end_agent()
        await self.assert_outcome(["pair", "246810"], 3, "unreachable")
        # The connection opens, the upgrade hangs.
        with socket.create_server(("127.0.0.1", PORT)):
            await self.assert_outcome(["pair", "246810", "--timeout", "0.3"], 4, "timeout")


if __name__ == "__main__":
    unittest.main()
