#!/usr/bin/env python3
"""make-ico.py OUT.ico IN.png... packs PNG pictures of up to 256 pixels into one Windows icon file."""
import struct
import sys


def size_of(png):
    if png[:8] != b"\x89PNG\r\n\x1a\n":
        sys.exit("make-ico.py: an input is not a PNG file")
    return struct.unpack(">II", png[16:24])


def main(out, names):
    pictures = [open(name, "rb").read() for name in names]
    offset = 6 + 16 * len(pictures)
    directory = struct.pack("<HHH", 0, 1, len(pictures))
    for png in pictures:
        width, height = size_of(png)
        # A side of 256 is written as 0.
        directory += struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, 1, 32, len(png), offset)
        offset += len(png)
    with open(out, "wb") as file:
        file.write(directory + b"".join(pictures))


main(sys.argv[1], sys.argv[2:])
