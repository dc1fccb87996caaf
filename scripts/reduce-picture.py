#!/usr/bin/env python3
"""reduce-picture.py FILE: fewer colours in a picture of the program, in place.

The fine shades along wiggles take most of the room. They become a few greys; colours that fill areas,
and those of icons and picks, stay. FILE is a PNG of at most 256 colours, as pngquant writes it."""
import struct
import sys
import zlib

GREYS = [(grey, grey, grey) for grey in (0, 96, 216, 255)]
AREA = 0.01  # of the picture: a colour that fills more stays
SAME = 8  # difference of channels, summed: to the eye the same colour
NEAR = 60
MOST_COLORS = 16  # two pixels in a byte


def chunks(data):
    position = 8
    while position < len(data):
        length, kind = struct.unpack(">I4s", data[position:position + 8])
        yield kind, data[position + 8:position + 8 + length]
        position += length + 12


def chunk(kind, content):
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))


def is_grey(color):
    return max(color) - min(color) <= 16


def distance(one, other):
    return sum(abs(a - b) for a, b in zip(one, other))


def nearest(color, others):
    return min(others, key=lambda other: distance(color, other))


def palette_of(colors, counts, pixels):
    """The colours of areas, and those that all others become."""
    by_count = [colors[i] for i in sorted(range(len(colors)), key=lambda i: -counts[i])]
    areas = [color for color, count in zip(colors, counts) if count > AREA * pixels and color not in GREYS]
    bright = []
    for color in by_count:
        if not is_grey(color) and all(distance(color, other) > NEAR for other in areas + bright):
            bright.append(color)
    return areas, (GREYS + bright)[:MOST_COLORS - len(areas)]


def replacement(color, areas, others):
    same = [area for area in areas if distance(color, area) <= SAME]
    if same:
        return same[0]
    return nearest(color, GREYS if is_grey(color) else others + areas)


def packed(row):
    row += b"\0" * (len(row) % 2)
    return bytes(left << 4 | right for left, right in zip(row[::2], row[1::2]))


def reduced(data):
    parts = {}
    for kind, content in chunks(data):
        parts[kind] = parts.get(kind, b"") + content
    width, height, depth, kind = struct.unpack(">IIBB", parts[b"IHDR"][:10])
    rows = zlib.decompress(parts[b"IDAT"])
    stride = width + 1
    if (depth, kind) != (8, 3) or any(rows[i * stride] for i in range(height)):
        return data  # so few colours that pngquant has packed them: small enough
    indices = b"".join(rows[i * stride + 1:(i + 1) * stride] for i in range(height))
    palette = parts[b"PLTE"]
    colors = [tuple(palette[i:i + 3]) for i in range(0, len(palette), 3)]
    counts = [indices.count(i) for i in range(len(colors))]
    areas, others = palette_of(colors, counts, width * height)
    if len(areas) > MOST_COLORS - len(GREYS):
        return data  # a picture of shades, each of which says something
    chosen = areas + others
    table = bytes(chosen.index(replacement(color, areas, others)) for color in colors)
    indices = indices.translate(table.ljust(256, b"\0"))
    rows = b"".join(b"\0" + packed(indices[i * width:(i + 1) * width]) for i in range(height))
    header = struct.pack(">IIBBBBB", width, height, 4, 3, 0, 0, 0)
    return (data[:8] + chunk(b"IHDR", header) + chunk(b"PLTE", bytes(sum(chosen, ())))
            + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def main():
    path = sys.argv[1]
    with open(path, "rb") as file:
        data = file.read()
    with open(path, "wb") as file:
        file.write(reduced(data))


if __name__ == "__main__":
    main()
