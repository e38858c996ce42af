"""The protocol as seen by a client that shares no code with the agent."""

import os
import signal
import unittest
import uuid

from client import Client, now
from desktop import DesktopTest, app, eventually

EDITOR = "org.example.Editor"


class ForeignClient(DesktopTest):
    def setUp(self):
        super().setUp()
        self.desktop.install(EDITOR)
        self.desktop.set_decks([app(EDITOR)])
        self.agent = self.start_agent()

    async def paired_client(self):
        client = await Client.connect()
        token = await client.pair(self.agent.pin())
        reply = await client.ask("deck.sync", {})
        self.assertEqual(reply["payload"]["code"], "unauthorized", "until it connects anew")
        await client.socket.close()
        self.assertRegex(token, "^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$")
        return token, await Client.connect(token, "x-glintboard-token")

    async def test_pairs_syncs_taps_and_pings(self):
        _, client = await self.paired_client()
        streaming, gaming = (await client.ask("deck.sync", {}))["payload"]["decks"]
        self.assertEqual(streaming, {
            "deckId": "streaming", "name": "Streaming", "runningBundleIds": [],
            "iconRevisions": {}, "tiles": [{**app(EDITOR), "slot": 1}]})
        self.assertEqual((gaming["deckId"], gaming["tiles"]), ("gaming", []))
        reply = await client.ask("app.launch", {"bundleId": EDITOR})
        self.assertEqual((reply["type"], reply["payload"]), ("app.ok", {"bundleId": EDITOR}))
        self.desktop.traced(EDITOR)
        sent = now()
        pong = (await client.ask("ping", {"ts": sent}))["payload"]
        self.assertEqual((pong["ts"], pong["runningBundleIds"]), (sent, [EDITOR]))
        self.assertLess(abs(pong["rtt"]), 5)
        await client.send("app.icon.request", {"bundleIds": [EDITOR, "org.example.Unknown"]})
        self.assertEqual((await client.ask("app.focus", {"bundleId": EDITOR}))["type"], "app.error")

    async def test_decks_are_pushed_to_every_connection_of_the_phone_and_to_no_other(self):
        token, client = await self.paired_client()
        other, stranger = await Client.connect(token), await Client.connect(str(uuid.uuid4()))
        for each in client, other:
            await each.ping()
        self.agent.menu_shows("iPhone connected")
        self.desktop.set_decks([], [app(EDITOR)])
        os.kill(self.agent.pid, signal.SIGUSR1)
        pushes = [await each.receive() for each in (client, other)]
        for push in pushes:
            self.assertEqual(push["type"], "decks.snapshot")
            tiles = [[tile["id"] for tile in deck["tiles"]] for deck in push["payload"]["decks"]]
            self.assertEqual(tiles, [[], [EDITOR]])
        self.assertEqual((await stranger.ask("deck.sync", {}))["type"], "app.error",
                         "the first that it hears")
        for each in client, other, stranger:
            await each.socket.close()
        eventually(lambda: "Waiting for iPhone" in self.agent.menu(), "A menu without a phone")


if __name__ == "__main__":
    unittest.main()
