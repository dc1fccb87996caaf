"""The pages of the manual as data: links, pictures, and the texts of the program that they quote."""
import glob
import html.parser
import os
import re
import struct
import xml.etree.ElementTree as ElementTree

VOID = {"br", "hr", "img", "link", "meta"}
QUOTES = {"b", "samp"}
CATALOGUES = ("resource/translations/*_cn.ts", "src/*/translations/*_cn.ts",
              "modules/*/translations/*_cn.ts", "extensions/*/translations/*_cn.ts")


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__(convert_charrefs=True)
        self.path = path
        self.faults, self.open_tags, self.tags = [], [], []
        self.ids, self.links, self.images = [], [], []
        self.quotes = []  # (tag, text, whether each character stands for a changing part)
        with open(path, encoding="utf-8") as file:
            self.feed(file.read())
        self.close()
        self.faults += [f"<{tag}> is not closed" for tag in self.open_tags]

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.tags.append(tag)
        if tag not in VOID:
            self.open_tags.append(tag)
        if tag in QUOTES:
            self.quotes.append((tag, "", ""))
        if "id" in attributes:
            self.ids.append(attributes["id"])
        for name in ("href", "src"):
            if name in attributes:
                self.links.append(attributes[name])
        if tag == "img":
            self.images.append(attributes)

    def handle_endtag(self, tag):
        if self.open_tags and self.open_tags[-1] == tag:
            self.open_tags.pop()
        else:
            self.faults.append(f"</{tag}> closes what is not open, line {self.getpos()[0]}")

    def handle_data(self, data):
        if QUOTES.isdisjoint(self.open_tags):
            return
        tag, text, changing = self.quotes[-1]
        mark = "v" if "var" in self.open_tags else " "
        self.quotes[-1] = (tag, text + data, changing + mark * len(data))


def pages(folder):
    """File name -> page."""
    return {os.path.basename(path): Page(path) for path in sorted(glob.glob(os.path.join(folder, "*.html")))}


def png_size(path):
    with open(path, "rb") as file:
        return struct.unpack(">II", file.read(24)[16:24])


def program_texts(root, language):
    """Every text that the program can show, as it stands in its catalogues."""
    found = set()
    for pattern in CATALOGUES:
        for path in glob.glob(os.path.join(root, pattern)):
            for message in ElementTree.parse(path).getroot().iter("message"):
                text = message.find("source" if language == "en" else "translation").text
                found.add((text or "").strip())
    return found


def label(text):
    """A text without its access key."""
    return re.sub(r"\(&\w\)|&(?=\S)", "", text)


def pattern_of(text):
    """Matches what the program makes of a text, place markers filled in; None when the text is little
    more than markers."""
    parts = re.split(r"%\d", text)
    letters = sum(character.isalnum() for part in parts for character in part)
    return re.compile("(.+)".join(map(re.escape, parts)), re.DOTALL) if letters >= 4 else None


def is_spoken(patterns, text, changing):
    """Whether the program has such a message; the changing parts must be those that it fills in."""
    for pattern in patterns:
        match = pattern.fullmatch(text)
        if not match:
            continue
        fixed = list(changing)
        for group in range(1, pattern.groups + 1):
            fixed[match.start(group):match.end(group)] = " " * (match.end(group) - match.start(group))
        if "v" not in fixed:
            return True
    return False
