# SPDX-License-Identifier: MIT
"""Pairings over time: renewed, replaced, ended, kept over restarts, damaged."""

import stat
import unittest

from client import Client
from desktop import HIDE, SHOW, DesktopTest, eventually


class PairingLife(DesktopTest):
    async def is_known(self, client):
        return (await client.ask("deck.sync", {}))["type"] == "decks.snapshot"

    async def test_a_new_pairing_replaces_the_old_one(self):
        agent = self.start_agent()
        first, second = self.paired_phone(agent, "First"), self.phone("Second\x1b[31m")
        client = await Client.connect(first.token)
        self.assertTrue(await self.is_known(client))
        agent.menu_shows(SHOW, "First", "iPhone connected")
        self.assertNotEqual(first.pair(agent.show_code())["token"], first.token)
        self.assertFalse(await self.is_known(client))
        agent.menu_shows(SHOW, "Waiting for iPhone")
        shown = agent.show_code()
        agent.press(HIDE)
        agent.menu_shows(SHOW)
        self.assertEqual(second.outcome("pair", shown), "already_paired")
        self.assertEqual(first.outcome("decks"), "ok")
        self.assertTrue(second.pair(agent.show_code())["ok"])
        self.assertEqual(first.outcome("decks"), "unauthorized")
        self.assertEqual(second.outcome("decks"), "ok")
        self.assertNotIn("First", agent.menu_shows(SHOW, "Second[31m"))

    async def test_unpairing_takes_effect_on_open_connections(self):
        agent = self.start_agent()
        phone = self.paired_phone(agent)
        client = await Client.connect(phone.token)
        agent.menu_shows("iPhone connected", "Unpair iPhone")
        agent.press("Unpair iPhone")
        agent.menu_shows("Ready for iPhone", "Manual code")
        self.assertFalse(await self.is_known(client))
        file = self.desktop.keychain_file
        eventually(lambda: not file.exists() or phone.token not in file.read_text(),
                   "A file without the token")
        agent.end()
        self.start_agent().menu_shows("Manual code")
        self.assertEqual(phone.outcome("decks"), "unauthorized")

    def test_a_pairing_survives_restarts_in_a_private_file(self):
        agent = self.start_agent()
        phone = self.paired_phone(agent)
        file = self.desktop.keychain_file
        self.assertEqual(stat.S_IMODE(file.stat().st_mode), 0o600)
        agent.end()
        agent = self.start_agent()
        agent.menu_shows("Phone", "Waiting for iPhone", "Unpair iPhone")
        self.assertEqual(phone.outcome("decks"), "ok")
        agent.end()
        file.write_bytes(file.read_bytes()[:-1])
        agent = self.start_agent()
        agent.menu_shows("Manual code")
        self.assertEqual(phone.outcome("decks"), "unauthorized")
        token = phone.pair(agent.pin())["token"]
        eventually(lambda: token in file.read_text(), "A new list")


if __name__ == "__main__":
    unittest.main()
