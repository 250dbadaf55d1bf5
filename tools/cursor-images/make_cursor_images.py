#!/usr/bin/env python3
"""Draws the software cursor images into resources/cursor-image/.

Each shape is a white body with a one-pixel black outline on a transparent background,
rasterised from a vector outline at pixel centres, once at normal size and once at twice the
size for outputs wider than 1920 pixels ("-max"). Each body is drawn around the hotspot the
cursor code uses for its shape (the arrow's tip at (0, 0), the hand's fingertip at (9, 1), the
cross and split shapes centred on (12, 12), ...).
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


def double_arrow(length, centre, across):
    """A two-headed arrow along x (length units) through `centre`; swap the axes for y."""
    def covers(u, v):
        d = abs(u - centre[0])
        off = abs(v - centre[1])
        half = length / 2
        if d > half:
            return False
        head = half - d  # distance from the nearer tip
        if head < across:
            return off <= head + 0.5
        return off <= 1.5
    return covers


def up_arrow(x, y):
    # Tip at (13, 2): a head of half-width 6 over a shaft 3 wide.
    if 2 <= y <= 9:
        return abs(x - 13) <= (y - 2) * 6 / 7 + 0.5
    return 9 <= y <= 22 and abs(x - 13) <= 1.5


def cross(x, y):
    return (abs(x - 12.5) <= 1.5 and 0 <= y <= 25) or (abs(y - 12.5) <= 1.5 and 0 <= x <= 25)


def hourglass(x, y):
    # Rims at the top (y 2..4) and bottom, two triangles meeting at the waist.
    if 2 <= y <= 4 or 18 <= y <= 20:
        return 0.5 <= x <= 12
    if 4 <= y <= 18:
        return abs(x - 6.25) <= abs(y - 11) * 5 / 7 + 0.9
    return False


def ibeam(x, y):
    return (abs(x - 9.5) <= 1 and 2 <= y <= 20) or (abs(x - 9.5) <= 4 and (2 <= y <= 4 or 18 <= y <= 20))


def size_v(x, y):
    return double_arrow(22, (12.5, 13.5), 6)(y, x) if 1 <= y <= 24 else False


def size_h(x, y):
    return double_arrow(24, (12, 6.5), 6)(x, y)


def vsplit(x, y):
    bars = abs(y - 11.5) <= 1 or abs(y - 14.5) <= 1
    return (bars and 2 <= x <= 23) or (double_arrow(24, (13, 12.5), 6)(y, x) and abs(y - 13) > 2.5)


def hsplit(x, y):
    bars = abs(x - 11.5) <= 1 or abs(x - 14.5) <= 1
    return (bars and 2 <= y <= 23) or (double_arrow(24, (13, 12.5), 6)(x, y) and abs(x - 13) > 2.5)


def forbidden(x, y):
    r = ((x - 6.5) ** 2 + (y - 6.5) ** 2) ** 0.5
    ring = 4.5 <= r <= 6.5
    slash = r <= 6.5 and abs((x - 6.5) - (y - 6.5)) <= 1.6
    return ring or slash


def whatsthis(x, y):
    # The arrow with a question mark beside it.
    q = ((x - 16) ** 2 + (y - 6) ** 2) ** 0.5
    hook = 2 <= q <= 4 and not (y > 6 and x < 16)
    stem = abs(x - 16) <= 1 and 8 <= y <= 12
    dot = abs(x - 16) <= 1 and 14 <= y <= 16
    return arrow(x, y) or hook or stem or dot


def busy(x, y):
    # The arrow with a small hourglass at its side.
    return arrow(x, y) or hourglass((x - 11) * 1.6, (y - 8) * 1.6)


def open_hand(x, y):
    fingers = any(abs(x - fx) <= 1.4 and 1 <= y <= 12 for fx in (5, 8.5, 12, 15.5))
    palm = 3 <= x <= 17 and 10 <= y <= 20
    thumb = inside_polygon(x, y, [(3, 12), (0.2, 7.5), (1.4, 6.8), (4, 10.5)])
    return fingers or palm or thumb


def closed_hand(x, y):
    knuckles = any(abs(x - fx) <= 1.6 and 6 <= y <= 12 for fx in (5, 8.5, 12, 15.5))
    palm = 3 <= x <= 17 and 9 <= y <= 19
    return knuckles or palm


def drop(x, y):
    # The arrow carrying a small box.
    box = 10 <= x <= 20 and 13 <= y <= 21
    return arrow(x, y) or box


# name -> (body, width, height) in normal-size pixels; hotspots live in the cursor code.
SHAPES = {
    "arrow": (arrow, 13, 20),
    "cursor-uparrow": (up_arrow, 27, 24),
    "cursor-cross": (cross, 26, 26),
    "cursor-wait": (hourglass, 13, 22),
    "cursor-ibeam": (ibeam, 19, 22),
    "cursor-sizev": (size_v, 27, 26),
    "cursor-sizeh": (size_h, 25, 14),
    "cursor-vsplit": (vsplit, 26, 26),
    "cursor-hsplit": (hsplit, 26, 26),
    "cursor-hand": (hand, 18, 22),
    "cursor-forbidden": (forbidden, 14, 14),
    "cursor-whatsthis": (whatsthis, 21, 20),
    "cursor-busy": (busy, 22, 22),
    "cursor-openhand": (open_hand, 18, 21),
    "cursor-closehand": (closed_hand, 18, 20),
    "cursor-drop": (drop, 21, 22),
}


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
