# SPDX-License-Identifier: MIT
"""The life of a phone: pairing, decks, icons and every kind of key."""

import os
import signal
import unittest

from client import Client
from desktop import DesktopTest, action, app, eventually, png, shortcut

EDITOR, PLAYER, SERVICE = "org.example.Editor", "org.example.Player", "org.example.Bus-Service"
TEA = "11111111-0000-4000-8000-000000000000"


class PhoneLife(DesktopTest):
    def test_decks_contain_installed_applications_and_icon_revisions(self):
        icon = self.desktop.write(self.desktop.root / "editor.png", png((200, 0, 0)))
        self.desktop.install(EDITOR, Icon=icon)
        self.desktop.write(
            self.desktop.data / "icons/hicolor/index.theme", "[Icon Theme]\nName=Hicolor\n"
            "Directories=scalable/apps\n[scalable/apps]\nSize=64\nType=Scalable\n")
        self.desktop.write(
            self.desktop.data / "icons/hicolor/scalable/apps/player.svg",
            '<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"><text y="9">P</text>'
            '<rect width="4" height="9" fill="blue"/></svg>')
        self.desktop.install(PLAYER, Icon="player")
        self.desktop.set_decks(
            [app("org.example.Absent"), app(EDITOR), action("up"),
             app("org.example.Old", alternateBundleIds=[PLAYER])],
            [shortcut(TEA), app(EDITOR)])
        phone = self.paired_phone(self.start_agent())
        streaming, gaming = phone.decks()
        keys = lambda deck: [(tile["slot"], tile["id"]) for tile in deck["tiles"]]
        self.assertEqual(keys(streaming), [(2, EDITOR), (3, "system.volume.up"),
                                           (4, PLAYER)])
        self.assertEqual(keys(gaming), [(1, TEA), (2, EDITOR)])
        self.assertEqual(streaming["runningBundleIds"], [])

        def fetch():
            record = phone("icons", self.desktop.root / "icons")
            self.assertEqual(record["missing"], [TEA])
            return {icon["key"]: icon["revision"] for icon in record["icons"]}

        first = fetch()
        self.assertEqual(first, streaming["iconRevisions"])
        self.desktop.write(icon, png((0, 200, 0)))
        changed = fetch()
        self.assertEqual(changed[PLAYER], first[PLAYER])
        self.assertNotEqual(changed[EDITOR], first[EDITOR])

    async def test_applications_are_launched_and_focused(self):
        self.desktop.start_bus()
        self.desktop.install(EDITOR)
        self.desktop.install_service(SERVICE)
        self.desktop.write_entry("org.example.Broken", Exec="/nonexistent/program")
        self.desktop.write_entry("org.example.Nobody", Exec="true", DBusActivatable="true")
        self.desktop.set_decks([app(EDITOR), app(SERVICE), app("org.example.Broken"),
                                app("org.example.Nobody"), action("up")])
        phone = self.paired_phone(self.start_agent())
        # While a phone is connected, the agent scans for running applications.
        client = await Client.connect(phone.token)
        self.assert_slot_outcomes(phone, "focus",
                                  ["not_found", "not_found", "not_found", "not_found",
                                   "not_an_app"])
        self.assert_slot_outcomes(phone, "tap", ["ok", "ok", "launch_failed", "launch_failed"])
        self.assertEqual(len(self.desktop.traced(EDITOR)), 1)
        self.assertEqual(len(self.desktop.activations(SERVICE)), 1)
        self.assertIn("/nonexistent/program", phone("tap", 3)["message"])
        unknown = await client.ask("app.launch", {"bundleId": "org.example.Unknown"})
        self.assertEqual(unknown["payload"]["message"],
                         "No application found for bundle identifier")
        wanted = {EDITOR, SERVICE}
        eventually(lambda: set(phone.decks()[0]["runningBundleIds"]) == wanted, "Running")
        self.assertEqual(set((await client.ping())["runningBundleIds"]), wanted)
        self.assert_slot_outcomes(phone, "focus", ["focus_failed", "ok", "not_found"])
        self.assert_slot_outcomes(phone, "tap", ["focus_failed", "ok"])
        self.assertEqual(self.desktop.activations(SERVICE),
                         ["Activate /org/example/Bus_Service ({},)"] * 3)
        self.assertEqual(len(self.desktop.trace(EDITOR)), 1, "started only once")
        await client.socket.close()

    async def test_decks_are_pushed_to_the_paired_phone_only(self):
        self.desktop.install(EDITOR)
        agent = self.start_agent()
        client = await Client.connect()
        token = await client.pair(agent.pin())
        self.assertRegex(token, "^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$")
        stranger = await Client.connect(TEA)
        for each in client, stranger:
            reply = await each.ask("deck.sync", {})
            self.assertEqual(reply["payload"]["code"], "unauthorized", "until it reconnects")
        phones = [await Client.connect(token, "x-glintboard-token") for _ in range(2)]
        for each in phones:
            await each.ping()
        agent.menu_shows("iPhone connected")
        self.desktop.set_decks([], [app(EDITOR)])
        os.kill(agent.pid, signal.SIGUSR1)
        for push in [await each.receive() for each in phones]:
            self.assertEqual(push["type"], "decks.snapshot")
            self.assertEqual([deck["tiles"] for deck in push["payload"]["decks"]],
                             [[], [{**app(EDITOR), "slot": 1}]])
        self.assertEqual((await stranger.ask("deck.sync", {}))["type"], "app.error",
                         "it gets no push")
        for each in *phones, stranger:
            await each.socket.close()
        agent.menu_shows("Waiting for iPhone")


if __name__ == "__main__":
    unittest.main()
