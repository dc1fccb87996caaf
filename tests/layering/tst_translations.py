#!/usr/bin/env python3
"""The catalogues: every text of the sources is there, and every entry is translated."""
import glob
import os
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

import totals

CATALOGUES = ("resource/translations/*.ts", "src/*/translations/*.ts", "modules/*/translations/*.ts",
              "extensions/*/translations/*.ts", "demo/translations/*.ts")


def catalogues():
    return sorted(path for pattern in CATALOGUES for path in glob.glob(os.path.join(totals.ROOT, pattern)))


def texts(path):
    """(context, source, comment) -> translation forms, without what lupdate marks as gone."""
    entries = {}
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            if translation.get("type") in ("vanished", "obsolete"):
                continue
            key = (context.findtext("name"), message.findtext("source"), message.findtext("comment"))
            forms = translation.findall("numerusform")
            words = [form.text or "" for form in forms] if forms else ["".join(translation.itertext())]
            entries[key] = (translation.get("type"), words)
    return entries


def untranslated(path):
    return [key for key, (state, words) in texts(path).items()
            if state == "unfinished" or not all(word.strip() for word in words)]


class Translations(unittest.TestCase):
    def test_every_entry_is_translated(self):
        for path in catalogues():
            with self.subTest(os.path.relpath(path, totals.ROOT)):
                self.assertEqual([], untranslated(path))

    def test_every_text_of_the_sources_is_in_its_catalogue(self):
        with tempfile.TemporaryDirectory() as folder:
            script = os.path.join(totals.ROOT, "scripts", "update-translations")
            subprocess.run([script, "--into", folder], check=True, capture_output=True)
            for path in catalogues():
                updated = texts(os.path.join(folder, os.path.basename(path)))
                with self.subTest(os.path.relpath(path, totals.ROOT)):
                    self.assertEqual([], sorted(set(updated) - set(texts(path)), key=str))

    def test_every_part_with_texts_has_a_catalogue(self):
        for folder in sorted(glob.glob(os.path.join(totals.ROOT, "src/Ov*")) +
                             glob.glob(os.path.join(totals.ROOT, "modules/*/")) +
                             glob.glob(os.path.join(totals.ROOT, "extensions/*/"))):
            if self.uses_tr(folder) and os.path.basename(folder) != "OvTarnpick":
                self.assertTrue(glob.glob(os.path.join(folder, "translations/*_cn.ts")), folder)

    @staticmethod
    def uses_tr(folder):
        files = glob.glob(os.path.join(folder, "**/*.cpp"), recursive=True)
        return any(mark in open(path, encoding="utf-8").read()
                   for path in files for mark in (" tr(", "(tr(", "translate("))

    def test_an_unfinished_entry_is_found(self):
        entry = ('<TS><context><name>A</name><message><source>Yes</source>'
                 '<translation type="unfinished"></translation></message></context></TS>')
        with tempfile.NamedTemporaryFile("w", suffix=".ts") as file:
            file.write(entry)
            file.flush()
            self.assertEqual([("A", "Yes", None)], untranslated(file.name))


totals.main()
