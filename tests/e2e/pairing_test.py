"""Pairings over time: renewed, replaced, ended, kept over restarts, damaged."""

import stat
import unittest

from client import Client
from desktop import HIDE, SHOW, DesktopTest, eventually


class PairingLife(DesktopTest):
    async def is_known(self, client):
        return (await client.ask("deck.sync", {}))["type"] == "decks.snapshot"

    async def test_a_phone_that_pairs_again_gets_a_new_token_and_loses_the_old(self):
        agent = self.start_agent()
        phone = self.paired_phone(agent)
        client = await Client.connect(phone.token)
        self.assertTrue(await self.is_known(client))
        agent.menu_shows(SHOW, "iPhone connected")
        again = phone.pair(agent.show_code())
        self.assertNotEqual(again["token"], phone.token)
        self.assertFalse(await self.is_known(client))
        self.assertEqual(phone.outcome("decks"), "ok")
        agent.menu_shows(SHOW, "Waiting for iPhone")

    def test_another_phone_replaces_the_first_only_while_the_code_is_shown(self):
        agent = self.start_agent()
        pin = agent.pin()
        first, second = self.paired_phone(agent, "First"), self.phone("Second")
        self.assertEqual(second.outcome("pair", pin), "already_paired")
        agent.menu_shows(SHOW, "First")
        shown = agent.show_code()
        agent.press(HIDE)
        agent.menu_shows(SHOW)
        self.assertEqual(second.outcome("pair", shown), "already_paired")
        self.assertEqual(first.outcome("decks"), "ok")
        self.assertTrue(second.pair(agent.show_code())["ok"])
        self.assertEqual(first.outcome("decks"), "unauthorized")
        self.assertEqual(second.outcome("decks"), "ok")
        self.assertNotIn("First", agent.menu_shows(SHOW, "Second"))

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

    def test_a_pairing_outlives_the_agent_in_a_file_that_only_the_user_can_read(self):
        agent = self.start_agent()
        phone = self.paired_phone(agent)
        file = self.desktop.keychain_file
        self.assertEqual([stat.S_IMODE(path.stat().st_mode) for path in (file, file.parent)],
                         [0o600, 0o700])
        agent.end()
        agent = self.start_agent()
        agent.menu_shows("Phone", "Waiting for iPhone", "Unpair iPhone")
        self.assertEqual(phone.outcome("decks"), "ok")
        agent.end()
        content = file.read_bytes()
        for damaged in content[:-1], content.replace(b'"pairedAt"', b'"at"'), b"\xff\xfe", b"":
            with self.subTest(damaged=damaged):
                file.write_bytes(damaged)
                agent = self.start_agent()
                agent.menu_shows("Manual code")
                self.assertEqual(phone.outcome("decks"), "unauthorized")
                agent.end()
        agent = self.start_agent()
        self.assertTrue(phone.pair(agent.pin())["ok"])
        eventually(lambda: file.stat().st_size > 0, "A new list")


if __name__ == "__main__":
    unittest.main()
