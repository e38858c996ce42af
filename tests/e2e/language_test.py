# SPDX-License-Identifier: MIT
"""The agent in the user's language, and the translation files."""

import os
import pathlib
import re
import shutil
import subprocess
import unittest
import xml.etree.ElementTree

from desktop import DesktopTest, eventually

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def places(text):
    """The placeholders and tags."""
    return sorted(re.findall(r"%L?[1-9n]|<[^>]*>", text or ""))


class Language(DesktopTest):
    def test_every_text_is_translated_into_every_language(self):
        folder = self.desktop.root / "translations"
        shutil.copytree(ROOT / "translations", folder)
        told = subprocess.run(
            [ROOT / "tools/update-translations"], check=True, text=True, stderr=subprocess.PIPE,
            env={**os.environ, "GLINTBOARD_TRANSLATIONS": str(folder)}).stderr
        self.assertNotIn("unknown", told, "a class without its namespace is not found")
        languages = sorted(folder.glob("*.ts"))
        self.assertGreaterEqual(len(languages), 4)
        for file in languages:
            kept = (ROOT / "translations" / file.name).read_text()
            self.assertEqual(file.read_text(), kept, "tools/update-translations was not run")
            for message in xml.etree.ElementTree.parse(file).iter("message"):
                source, translation = message.findtext("source"), message.find("translation")
                with self.subTest(file=file.name, text=source):
                    self.assertIsNone(translation.get("type"), "unfinished")
                    for text in list(translation) or [translation]:
                        self.assertEqual(places(text.text), places(source))
                        self.assertTrue(text.text.strip())

    def test_the_menu_uses_the_first_supported_language(self):
        for language, edit, quit_button in (
                ({"LANG": "de_DE.UTF-8"}, "Deck bearbeiten", "Beenden"),
                ({"LANG": "C.UTF-8", "LANGUAGE": "de_AT:fr"}, "Deck bearbeiten", "beenden"),
                ({"LANG": "de_DE.UTF-8", "LC_MESSAGES": "es_MX.UTF-8"}, "Editar el deck", "Quit"),
                ({"LANGUAGE": "xx:fr_CA"}, "Modifier le deck", "quit"),
                ({"LC_ALL": "ja_JP.UTF-8"}, "デッキを編集", "2"),
                ({"LANGUAGE": "en_GB:de"}, "Edit Deck", "Quit"),
                ({"LANG": "POSIX"}, "Edit Deck", "Quit"),
                ({"LANG": "xx_XX.UTF-8"}, "Edit Deck", "Quit")):
            with self.subTest(**language):
                self.desktop.env = {**self.desktop.env, "LANG": "C.UTF-8", **language}
                agent = self.desktop.start_agent()
                agent.menu_shows(f"1. {edit}\n")
                agent.press(quit_button)
                self.assertEqual(agent.exit_code(), 0)
                for name in language:
                    self.desktop.env.pop(name)

    def test_phones_are_answered_in_english(self):
        self.desktop.env["LC_ALL"] = "de_DE.UTF-8"
        agent = self.desktop.start_agent()
        agent.menu_shows("Bereit für das iPhone")
        code = eventually(lambda: re.search(r"^Code zum Eintippen (\d{6})$", agent.menu(), re.M),
                          "A code")[1]
        phone = self.phone("Anna")
        self.assertEqual(phone.pair("000000" if code != "000000" else "111111")["message"],
                         "Invalid PIN")
        self.assertTrue(phone.pair(code)["ok"])
        agent.menu_shows("Anna", "Kopplungscode anzeigen\u00a0…")
        names = [deck["name"] for deck in phone.decks()]
        self.assertEqual(names, ["Streaming", "Gaming"])


if __name__ == "__main__":
    unittest.main()
