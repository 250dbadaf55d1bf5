#!/usr/bin/env python3
"""Draws the software cursor images into resources/cursor-image/.

Each shape is a white body with a one-pixel black outline on a transparent background,
rasterised from a vector outline at pixel centres, once at normal size and once at twice the
size for outputs wider than 1920 pixels ("-max"). The tip of the arrow and of the hand's
finger sit on the hotspots the cursor code uses: arrow (0, 0), cursor-hand (9, 1).
Run: python3 tools/cursor-images/make_cursor_images.py [output-dir]
"""
import os
import struct
import sys
import zlib

WHITE = (255, 255, 255, 255)
BLACK = (0, 0, 0, 255)
CLEAR = (0, 0, 0, 0)


def inside_polygon(x, y, poly):
    hit = False
    for i in range(len(poly)):
        (x1, y1), (x2, y2) = poly[i], poly[(i + 1) % len(poly)]
        if (y1 > y) != (y2 > y) and x < x1 + (y - y1) * (x2 - x1) / (y2 - y1):
            hit = not hit
    return hit


def render(width, height, scale, covers):
    """covers(x, y) tells whether a point in normal-size units lies in the body."""
    w, h = width * scale, height * scale
    body = [[covers((x + 0.5) / scale, (y + 0.5) / scale) for x in range(w)] for y in range(h)]
    # The outline is the body's own border pixels, so the tip pixel stays on the hotspot.
    def solid(x, y):
        return 0 <= x < w and 0 <= y < h and body[y][x]
    rows = []
    for y in range(h):
        row = []
        for x in range(w):
            if not body[y][x]:
                row.append(CLEAR)
            elif all(solid(x + dx, y + dy) for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1))):
                row.append(WHITE)
            else:
                row.append(BLACK)
        rows.append(row)
    return w, h, rows


def write_png(path, w, h, rows):
    raw = b"".join(b"\0" + bytes(c for px in row for c in px) for row in rows)

    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data +
                struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF))

    with open(path, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n")
        f.write(chunk(b"IHDR", struct.pack(">IIBBBBB", w, h, 8, 6, 0, 0, 0)))
        f.write(chunk(b"IDAT", zlib.compress(raw, 9)))
        f.write(chunk(b"IEND", b""))


ARROW = [(0, 0), (0, 16.5), (4, 12.8), (6.8, 19), (9.6, 17.8), (6.9, 11.7), (11.8, 11.7)]


def arrow(x, y):
    return inside_polygon(x, y, ARROW)


def hand(x, y):
    # A finger pointing up from a palm; the fingertip's top centre is (9, 1).
    finger = 7.5 <= x <= 11 and 2.7 <= y <= 12
    tip = (x - 9.25) ** 2 + (y - 2.75) ** 2 <= 1.75 ** 2 + 0.3
    knuckles = 11 <= x <= 16.5 and 8 <= y <= 13
    palm = 4.5 <= x <= 16.5 and 11 <= y <= 19
    thumb = inside_polygon(x, y, [(4.5, 12), (1, 9.5), (0.2, 11), (4.5, 16.5)])
    wrist = 6 <= x <= 15 and 18 <= y <= 21
    return finger or tip or knuckles or palm or thumb or wrist


SHAPES = {"arrow": (arrow, 13, 20), "cursor-hand": (hand, 18, 22)}


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "..", "resources",
                                                             "cursor-image")
    os.makedirs(out, exist_ok=True)
    for name, (covers, width, height) in SHAPES.items():
        for suffix, scale in (("", 1), ("-max", 2)):
            w, h, rows = render(width, height, scale, covers)
            write_png(os.path.join(out, name + suffix + ".png"), w, h, rows)


if __name__ == "__main__":
    main()
