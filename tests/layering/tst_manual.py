#!/usr/bin/env python3
"""The manual: whole, the same in both languages, true to the texts of the program, served where F1 looks."""
import glob
import os
import re
import signal
import socket
import subprocess
import time
import unittest
import urllib.error
import urllib.request

import manual
import totals

FOLDER = os.path.join(totals.ROOT, "docs", "manual")
LANGUAGES = ("en", "zh")
COVER = "w_cover.html"
ADDRESS = "http://127.0.0.1:8642/ManualWeb/onlinehelp/"
MOST_BYTES, MOST_BYTES_IN_ALL = 120_000, 2_000_000


def source(*names):
    with open(os.path.join(totals.ROOT, *names), encoding="utf-8") as file:
        return file.read()


def target_of(page, link):
    """Path and anchor that a link of a page leads to."""
    path, _, anchor = link.partition("#")
    place = os.path.join(os.path.dirname(page.path), path) if path else page.path
    return os.path.normpath(place), anchor


class Pages(unittest.TestCase):
    def setUp(self):
        self.pages = {language: manual.pages(os.path.join(FOLDER, language)) for language in LANGUAGES}

    def every_page(self):
        return [page for language in LANGUAGES for page in self.pages[language].values()]

    def test_both_languages_have_the_same_pages(self):
        english, chinese = (self.pages[language] for language in LANGUAGES)
        self.assertGreater(len(english), 10)
        self.assertEqual(sorted(english), sorted(chinese))

    def test_both_languages_say_the_same(self):
        for name, english in self.pages["en"].items():
            chinese = self.pages["zh"][name]
            with self.subTest(name):
                self.assertEqual(english.ids, chinese.ids)
                for tag in ("h2", "h3", "tr", "td", "th", "li", "img", "samp", "pre"):
                    self.assertEqual(english.tags.count(tag), chinese.tags.count(tag), tag)

    def test_pages_are_well_formed(self):
        for page in self.every_page():
            with self.subTest(page.path):
                self.assertEqual(page.faults, [])
                self.assertEqual(page.tags.count("h1"), 1)
                self.assertEqual(page.tags.count("title"), 1)
                self.assertEqual(len(page.ids), len(set(page.ids)))

    def test_links_lead_somewhere_inside_the_manual(self):
        by_path = {os.path.normpath(page.path): page for page in self.every_page()}
        for page in self.every_page():
            for link in page.links:
                path, anchor = target_of(page, link)
                with self.subTest(f"{page.path}: {link}"):
                    self.assertTrue(path.startswith(FOLDER + os.sep))
                    self.assertTrue(os.path.isfile(path))
                    if anchor:
                        self.assertIn(anchor, by_path[path].ids)

    def test_the_cover_leads_to_every_page(self):
        for language in LANGUAGES:
            linked = set(self.pages[language][COVER].links)
            self.assertEqual(set(self.pages[language]) - linked - {COVER}, set(), language)

    def test_each_page_leads_to_itself_in_the_other_language(self):
        for language, other in zip(LANGUAGES, reversed(LANGUAGES)):
            for name, page in self.pages[language].items():
                self.assertIn(f"../{other}/{name}", page.links)

    def test_pictures_are_small_described_and_used(self):
        used = set()
        for page in self.every_page():
            for image in page.images:
                path, _ = target_of(page, image["src"])
                used.add(path)
                with self.subTest(path):
                    self.assertTrue(image.get("alt"))
                    self.assertEqual((int(image["width"]), int(image["height"])), manual.png_size(path))
        stored = set(glob.glob(os.path.join(FOLDER, "*", "images", "*")))
        self.assertEqual(used, stored)
        sizes = [os.path.getsize(path) for path in stored]
        self.assertLess(max(sizes), MOST_BYTES)
        self.assertLess(sum(sizes), MOST_BYTES_IN_ALL)


class Quotes(unittest.TestCase):
    """What the pages show as a text of the program, the program says."""

    def quotes(self, language, wanted):
        for name, page in manual.pages(os.path.join(FOLDER, language)).items():
            for tag, text, changing in page.quotes:
                if tag == wanted:
                    yield name, text, changing

    def test_labels(self):
        for language in LANGUAGES:
            labels = {manual.label(text) for text in manual.program_texts(totals.ROOT, language)}
            patterns = [pattern for pattern in map(manual.pattern_of, labels) if pattern]
            for name, text, changing in self.quotes(language, "b"):
                with self.subTest(f"{language}/{name}: {text}"):
                    self.assertTrue(text in labels or "v" in changing and manual.is_spoken(patterns, text, changing))

    def test_messages(self):
        for language in LANGUAGES:
            texts = manual.program_texts(totals.ROOT, language)
            patterns = [pattern for pattern in map(manual.pattern_of, texts) if pattern]
            for name, text, changing in self.quotes(language, "samp"):
                with self.subTest(f"{language}/{name}: {text}"):
                    plain = text.strip()
                    changing = changing[len(text) - len(text.lstrip()):][:len(plain)]
                    self.assertTrue(plain in texts or manual.is_spoken(patterns, plain, changing))

    def test_a_message_that_the_program_does_not_have_is_noticed(self):
        patterns = [manual.pattern_of("Cannot write %1: %2")]
        self.assertTrue(manual.is_spoken(patterns, "Cannot write a: b", " " * 13 + "v" + "  " + "v"))
        self.assertFalse(manual.is_spoken(patterns, "Cannot read a: b", " " * 16))
        self.assertFalse(manual.is_spoken(patterns, "Cannot write a: b", "v" * 17))


class Help(unittest.TestCase):
    """Where the program looks for its help."""

    def test_help_pages_of_dialogs_exist(self):
        named = set()
        for path in glob.glob(os.path.join(totals.ROOT, "src/**/*Dlg.cpp"), recursive=True) + glob.glob(
                os.path.join(totals.ROOT, "modules/*/*Dlg.cpp")):
            named.update(re.findall(r"::helpPage\(\) const\s*\{\s*return QStringLiteral\(\"([^\"]+)\"\)", source(path)))
        self.assertGreaterEqual(len(named), 4)
        for name in named:
            for language in LANGUAGES:
                self.assertTrue(os.path.isfile(os.path.join(FOLDER, language, name)), name)

    def test_all_parts_use_the_same_address(self):
        for name in ("src/OvTarnpick/OvTarnpick.cpp", "src/OvBase/OvBaseUtil.cpp"):
            self.assertIn(f'"{ADDRESS}en/"', source(name), name)
        for name in ("resource/translations/Tarnpick_cn.ts", "src/OvBase/translations/OvBase_cn.ts"):
            self.assertIn(f"<translation>{ADDRESS}zh/</translation>", source(name), name)


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Server(unittest.TestCase):
    SCRIPT = os.path.join(totals.ROOT, "scripts", "help-server")

    def setUp(self):
        self.port = free_port()
        self.server = subprocess.Popen([self.SCRIPT, str(self.port)], stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.stop)
        self.lines = [self.server.stdout.readline() for _ in range(3)]
        while self.server.poll() is None and not self.listens():
            pass

    def stop(self):
        if self.server.poll() is None:
            self.server.kill()
        self.server.wait()
        self.server.stdout.close()

    def listens(self):
        with socket.socket() as probe:
            return probe.connect_ex(("127.0.0.1", self.port)) == 0

    def get(self, path):
        address = f"http://127.0.0.1:{self.port}/ManualWeb/onlinehelp/{path}"
        with urllib.request.urlopen(address, timeout=20) as answer:
            return answer.read()

    def test_serves_every_file_where_the_program_looks(self):
        self.assertIn(f"http://127.0.0.1:{self.port}/ManualWeb/onlinehelp/en/{COVER}", self.lines[0])
        for place, _, names in os.walk(FOLDER):
            for name in names:
                path = os.path.join(place, name)
                with self.subTest(path), open(path, "rb") as file:
                    self.assertEqual(self.get(os.path.relpath(path, FOLDER)), file.read())
        with self.assertRaises(urllib.error.HTTPError):
            self.get("en/no_such_page.html")

    def test_a_second_start_finds_the_first(self):
        again = subprocess.run([self.SCRIPT, str(self.port)], capture_output=True, text=True, timeout=30)
        self.assertEqual(again.returncode, 0, again.stderr)
        self.assertIn("already", again.stdout)
        self.assertIn(COVER, again.stdout)

    def test_interrupt_ends_it(self):
        self.server.send_signal(signal.SIGINT)
        self.server.wait(timeout=20)
        # A process that it forked for the last connection may hold the port for a moment longer.
        deadline = time.monotonic() + 20
        while self.listens() and time.monotonic() < deadline:
            pass
        self.assertFalse(self.listens())

    def test_with_a_reader_it_ends_with_its_input(self):
        port = free_port()
        run = subprocess.Popen([self.SCRIPT, "--while-open", str(port)], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        while run.stdout.readline() not in ("ready\n", ""):
            pass
        address = f"http://127.0.0.1:{port}/ManualWeb/onlinehelp/en/{COVER}"
        with urllib.request.urlopen(address, timeout=20) as answer:
            self.assertIn(b"Maravel Manual", answer.read())
        run.stdin.close()
        self.assertEqual(run.wait(timeout=20), 0)
        run.stdout.close()
        with self.assertRaises(urllib.error.URLError):
            urllib.request.urlopen(address, timeout=20)

    def test_a_port_in_other_hands_is_refused(self):
        with socket.socket() as other:
            other.bind(("127.0.0.1", 0))
            other.listen()
            run = subprocess.Popen([self.SCRIPT, str(other.getsockname()[1])], stderr=subprocess.PIPE, text=True)
            connection, _ = other.accept()
            connection.sendall(b"HTTP/1.0 200 OK\r\n\r\nsomething else")
            connection.close()
            _, errors = run.communicate(timeout=30)
        self.assertEqual(run.returncode, 1)
        self.assertIn("another program", errors)


if __name__ == "__main__":
    totals.main()
