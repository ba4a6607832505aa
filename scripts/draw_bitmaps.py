#!/usr/bin/env python3
"""Draws the bitmaps and icons of resources/.

Every picture is a list of coloured shapes in a square of 32 units; the last shape that holds a point gives its
colour. The tool bar's pictures lie in cells of 32 pixels, eight to a row, in the order of the tool bar's image
numbers; magenta is transparent in the coloured bitmap, white in the monochrome one. Lines lie on even units, so
that the pictures stay sharp at half the size.
"""

import argparse
import math
import pathlib
import struct
import zlib

CELL, ACROSS, DOWN = 32, 8, 3

PALETTE = {
    "black": 0x000000, "maroon": 0x800000, "green": 0x008000, "olive": 0x808000,
    "navy": 0x000080, "purple": 0x800080, "teal": 0x008080, "silver": 0xC0C0C0,
    "gray": 0x808080, "red": 0xFF0000, "lime": 0x00FF00, "yellow": 0xFFFF00,
    "blue": 0x0000FF, "magenta": 0xFF00FF, "cyan": 0x00FFFF, "white": 0xFFFFFF,
}
INDEX = {name: i for i, name in enumerate(PALETTE)}
PAPER = {None, "magenta", "white", "silver", "yellow", "cyan", "lime"}  # left empty in monochrome


# Shapes: functions that say whether they hold a point.

def rect(x0, y0, x1, y1):
    return lambda x, y: x0 <= x < x1 and y0 <= y < y1


def ellipse(cx, cy, rx, ry=None):
    ry = ry or rx
    return lambda x, y: ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1


def line(x0, y0, x1, y1, width):
    def inside(x, y):
        dx, dy = x1 - x0, y1 - y0
        t = max(0, min(1, ((x - x0) * dx + (y - y0) * dy) / (dx * dx + dy * dy)))
        return math.hypot(x - x0 - t * dx, y - y0 - t * dy) <= width / 2
    return inside


def poly(*points):
    def inside(x, y):
        odd = False
        for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
            if (ay > y) != (by > y) and x < (bx - ax) * (y - ay) / (by - ay) + ax:
                odd = not odd
        return odd
    return inside


def minus(shape, hole):
    return lambda x, y: shape(x, y) and not hole(x, y)


def both(a, b):
    return lambda x, y: a(x, y) and b(x, y)


def moved(picture, dx=0.0, dy=0.0, scale=1.0, degrees=0.0):
    """The picture scaled and turned about its centre, then moved."""
    c, s = math.cos(math.radians(-degrees)), math.sin(math.radians(-degrees))

    def wrap(shape):
        def inside(x, y):
            u, v = (x - dx - 16) / scale, (y - dy - 16) / scale
            return shape(u * c - v * s + 16, u * s + v * c + 16)
        return inside
    return [(colour, wrap(shape)) for colour, shape in picture]


# Parts that several pictures share.

def box(x0, y0, x1, y1, fill, edge="black"):
    return [(edge, rect(x0, y0, x1, y1)), (fill, rect(x0 + 2, y0 + 2, x1 - 2, y1 - 2))]


def page(x, y, w, h, lines=(), ink="navy", edge="black", fold=8):
    r, b = x + w, y + h
    picture = [
        (edge, poly((x, y), (r - fold, y), (r, y + fold), (r, b), (x, b))),
        ("white", poly((x + 2, y + 2), (r - fold - 0.6, y + 2), (r - 2, y + fold + 0.6), (r - 2, b - 2),
                       (x + 2, b - 2))),
        (edge, poly((r - fold, y), (r, y + fold), (r, y + fold + 2), (r - fold - 2, y + fold + 2), (r - fold - 2, y))),
        ("silver", poly((r - fold, y + 2), (r - fold, y + fold), (r - 2, y + fold))),
    ]
    return picture + [(ink, rect(x + 4, y + at, r - 4 - cut, y + at + 2)) for at, cut in lines]


def glass(cx, cy, r, handle):
    at = 0.71 * r
    return [("black", line(cx + at, cy + at, handle, handle, 6)),
            ("olive", line(cx + at + 1, cy + at + 1, handle, handle, 3)),
            ("black", ellipse(cx, cy, r)), ("cyan", ellipse(cx, cy, r - 2.6)),
            ("white", minus(ellipse(cx, cy, r - 4.2), ellipse(cx + 2, cy + 2, r - 4)))]


def hammer():
    return moved([("black", rect(13, 10, 19, 33)), ("olive", rect(15, 10, 17, 31)),
                  ("black", poly((4, 2), (23, 2), (28, 5), (28, 12), (4, 12))),
                  ("silver", poly((6, 4), (22.5, 4), (26, 6.2), (26, 10), (6, 10))),
                  ("gray", rect(6, 8, 26, 10))], dx=1, dy=0, degrees=40)


def gear(cx, cy, r):
    def teeth(x, y):
        turn = math.atan2(y - cy, x - cx) * 8 / (2 * math.pi)
        return math.hypot(x - cx, y - cy) <= r and abs(turn - round(turn)) < 0.26
    def edge(x, y):
        return teeth(x, y) or math.hypot(x - cx, y - cy) <= r * 0.78
    return [("black", edge), ("silver", minus(ellipse(cx, cy, r * 0.6), ellipse(cx, cy, r * 0.3))),
            ("white", ellipse(cx, cy, r * 0.22))]


def text_block(arrow):
    bars = [("black", rect(2, 4, 30, 6)), ("black", rect(2, 26, 30, 28))]
    return bars + [("black", rect(18, y, 30, y + 2)) for y in (10, 15, 20)] + arrow


# The pictures of the tool bar, by image number.

def folder():
    return [("black", poly((2, 28), (2, 8), (4, 6), (12, 6), (14, 10), (26, 10), (26, 28))),
            ("olive", poly((4, 26), (4, 9), (5, 8), (11, 8), (13, 12), (24, 12), (24, 26))),
            ("black", poly((2, 28), (8, 14), (32, 14), (26, 28))),
            ("yellow", poly((5.2, 26), (9.5, 16), (29, 16), (24.7, 26)))]


def floppy():
    return [("black", poly((4, 4), (26, 4), (28, 6), (28, 28), (4, 28))), ("navy", rect(6, 6, 26, 26)),
            ("silver", rect(10, 6, 22, 14)), ("black", rect(18, 8, 20, 12)), ("white", rect(8, 18, 24, 26)),
            ("gray", rect(10, 20, 22, 21)), ("gray", rect(10, 23, 22, 24))]


def cabinet():
    picture = [("black", rect(6, 2, 26, 30))]
    for top in (4, 13, 22):
        bottom = min(top + 7, 28)
        picture += [("silver", rect(8, top, 24, bottom)), ("white", rect(8, top, 24, top + 1)),
                    ("maroon", rect(13, top + 2, 19, top + 4))]
    return picture


def printer():
    return (box(10, 2, 22, 16, "white") + box(2, 12, 30, 24, "silver") + [("lime", rect(24, 15, 27, 17)),
            ("gray", rect(4, 20, 28, 22))] + box(8, 20, 24, 30, "white") +
            [("navy", rect(12, 23, 20, 24)), ("navy", rect(12, 26, 18, 27))])


def scissors():
    return [("gray", line(9, 3, 21, 21, 3.4)), ("black", line(23, 3, 11, 21, 3.4)),
            ("navy", minus(ellipse(9, 25, 5.5), ellipse(9, 25, 2.6))),
            ("navy", minus(ellipse(23, 25, 5.5), ellipse(23, 25, 2.6))), ("white", ellipse(16, 14, 1.2))]


def clipboard():
    return (box(4, 4, 26, 30, "olive") + box(10, 2, 20, 8, "silver") +
            page(12, 12, 18, 18, ((8, 4), (12, 0)), fold=6))


def undo():
    arc = minus(minus(ellipse(18, 17, 11.5), ellipse(18, 17, 6.5)), rect(0, 17, 18, 32))
    return [("navy", arc), ("navy", poly((1, 15), (17, 15), (9, 25))), ("navy", rect(14, 23.5, 19, 28.5))]


def replace():
    a = [("navy", poly((1, 16), (6.5, 1), (9.5, 1), (15, 16), (11.6, 16), (8, 5.5), (4.4, 16))),
         ("navy", rect(4, 10, 12, 12.6))]
    b = [("red", rect(18, 17, 21, 31)),
         ("red", both(minus(ellipse(22, 20.5, 6, 3.6), ellipse(22, 20.5, 3.2, 1.4)), rect(20, 16, 32, 32))),
         ("red", both(minus(ellipse(22, 27.2, 7, 3.9), ellipse(22, 27.2, 4, 1.5)), rect(20, 16, 32, 32)))]
    arrow = [("black", rect(16, 6, 26, 8)), ("black", rect(24, 6, 26, 11)), ("black", poly((20, 10), (30, 10), (25, 15)))]
    return a + b + arrow


def chain():
    def link(x0, y0, x1, y1, colour):
        return [("black", minus(line(x0, y0, x1, y1, 14), line(x0, y0, x1, y1, 4))),
                (colour, minus(line(x0, y0, x1, y1, 11), line(x0, y0, x1, y1, 7)))]
    lower, upper = link(8.5, 23.5, 13, 19, "silver"), link(19, 13, 23.5, 8.5, "yellow")
    over = [(colour, both(shape, rect(0, 0, 16.5, 32))) for colour, shape in lower]
    return lower + upper + over


def bug():
    legs = []
    for y0, y1 in ((14, 9), (19, 19), (23, 29)):
        legs += [("black", line(10, y0, 3, y1, 2)), ("black", line(22, y0, 29, y1, 2))]
    return legs + [("black", line(14, 7, 10, 2, 1.8)), ("black", line(18, 7, 22, 2, 1.8)), ("black", ellipse(16, 9, 5)),
                   ("black", ellipse(16, 19, 9, 11)), ("red", ellipse(16, 19, 7, 9)), ("black", rect(15, 10, 17, 29)),
                   ("black", ellipse(12.2, 16.5, 1.8)), ("black", ellipse(19.8, 16.5, 1.8)),
                   ("black", ellipse(12.6, 23, 1.8)), ("black", ellipse(19.4, 23, 1.8))]


def question():
    arc = minus(minus(ellipse(16, 10.5, 9.5, 9), ellipse(16, 10.5, 4.5, 4.2)), rect(0, 10.5, 16, 32))
    return [("navy", arc), ("navy", rect(14, 15.2, 19, 22)), ("navy", rect(14, 25, 19, 30))]


def bullseye():
    rings = [("black", 11.5), ("white", 9.8), ("red", 9.6), ("white", 6.6), ("red", 3.6)]
    return [(colour, ellipse(19.5, 19.5, r)) for colour, r in rings]


def tool_pictures():
    left = [("blue", poly((2, 16), (10, 9), (10, 23))), ("blue", rect(10, 14, 15, 18))]
    right = [("blue", poly((15, 16), (7, 9), (7, 23))), ("blue", rect(2, 14, 7, 18))]
    lines = ((10, 0), (14, 2), (18, 0), (22, 6))
    return [
        page(6, 2, 20, 28), folder(), floppy(), cabinet(), printer(), scissors(),
        page(2, 2, 18, 20, ((6, 8), (10, 0), (14, 0))) + page(12, 10, 18, 20, ((8, 4), (12, 0), (16, 0)), fold=6),
        clipboard(), text_block(left), text_block(right), undo(), glass(13, 13, 11, 27), replace(),
        page(2, 2, 16, 22, fold=6) + page(8, 6, 16, 24, fold=6) + glass(18, 17, 8, 28.5),
        hammer(), bullseye() + moved(hammer(), dx=-6.5, dy=-6.5, scale=0.6),
        page(2, 2, 20, 28, lines) + gear(22, 22, 10), chain(),
        [("black", poly((7, 2), (7, 30), (29, 16))), ("green", poly((9, 5.6), (9, 26.4), (25.4, 16)))],
        bug(), question(),
    ]


# The icons; their colours may be any.

def program_icon():
    tile = both(rect(1, 1, 31, 31), lambda x, y: abs(x - 16) ** 6 + abs(y - 16) ** 6 <= 15 ** 6)
    return [(0x0B5563, tile), (0x10707F, both(tile, lambda x, y: y < 16)),
            (0xFFFFFF, rect(6, 6, 26, 10.5)), (0xFFFFFF, rect(13.5, 10, 18.5, 19)),
            (0xFFB52E, poly((7.5, 17.5), (24.5, 17.5), (16, 27.5)))]


def sheet(marks):
    return [(0x4A5A66, poly((5, 1), (20, 1), (27, 8), (27, 31), (5, 31))),
            (0xFFFFFF, poly((6.4, 2.4), (19.4, 2.4), (25.6, 8.6), (25.6, 29.6), (6.4, 29.6))),
            (0xA9B7C0, poly((19, 1.6), (26.4, 9), (19, 9)))] + marks


def icons():
    def bars(rows, colour):
        return [(colour, rect(9, y, x, y + 2)) for y, x in rows]
    text = bars(((8, 16), (12, 23), (16, 20), (20, 23), (24, 17)), 0x10707F)
    log = bars(((12, 23), (24, 21)), 0x4A5A66) + [(0xC62828, rect(9, 16, 12, 19)), (0xC62828, rect(14, 16.5, 23, 18.5)),
                                                  (0x2E7D32, rect(9, 7, 12, 10))]
    dump = [(0x10707F, rect(x, y, x + 3, y + 3)) for y in (11, 16, 21, 26) for x in (9, 14, 19)]
    return {"tarrow": program_icon(), "edit": sheet(text), "log": sheet(log), "view": sheet(dump)}


# Pictures to pixels, pixels to files.

def colour_at(picture, x, y):
    found = None
    for colour, shape in picture:
        if shape(x, y):
            found = colour
    return found


def most_common(picture, x, y, samples=4):
    votes = {}
    for i in range(samples):
        for j in range(samples):
            colour = colour_at(picture, x + (i + 0.5) / samples, y + (j + 0.5) / samples)
            votes[colour] = votes.get(colour, 0) + 1
    return max(votes, key=votes.get)


def tool_pixels():
    rows = [[None] * (CELL * ACROSS) for _ in range(CELL * DOWN)]
    for number, picture in enumerate(tool_pictures()):
        left, top = number % ACROSS * CELL, number // ACROSS * CELL
        for y in range(CELL):
            for x in range(CELL):
                rows[top + y][left + x] = most_common(picture, x, y)
    return rows


def bitmap_file(rows, bits, index, palette):
    per_byte = 8 // bits
    data = b""
    for row in reversed(rows):
        packed = bytearray()
        for at in range(0, len(row), per_byte):
            value = 0
            for pixel in row[at:at + per_byte]:
                value = value << bits | index(pixel)
            packed.append(value)
        data += bytes(packed) + bytes(-len(packed) % 4)
    colours = b"".join(struct.pack("<I", colour) for colour in palette)
    info = struct.pack("<IiiHHIIiiII", 40, len(rows[0]), len(rows), 1, bits, 0, len(data), 3780, 3780, len(palette), 0)
    offset = 14 + len(info) + len(colours)
    return struct.pack("<2sIHHI", b"BM", offset + len(data), 0, 0, offset) + info + colours + data


def blend(picture, size, x, y, samples):
    """The average colour and cover of one pixel of an icon, as red, green, blue, alpha."""
    total, cover = [0, 0, 0], 0
    for i in range(samples):
        for j in range(samples):
            at = [(v + (k + 0.5) / samples) * 32 / size for v, k in ((x, i), (y, j))]
            colour = colour_at(picture, *at)
            if colour is not None:
                cover += 1
                for channel in range(3):
                    total[channel] += colour >> (16 - 8 * channel) & 0xFF
    alpha = round(255 * cover / samples ** 2)
    return [round(t / cover) if cover else 0 for t in total] + [alpha]


def png(pixels):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    raw = b"".join(b"\0" + bytes(channel for pixel in row for channel in pixel) for row in pixels)
    head = struct.pack(">IIBBBBB", len(pixels[0]), len(pixels), 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b"")


def icon_bitmap(pixels):
    size = len(pixels)
    body = b"".join(bytes((p[2], p[1], p[0], p[3])) for row in reversed(pixels) for p in row)
    mask = bytes((size + 31) // 32 * 4 * size)  # the alpha channel says it all
    return struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, len(body) + len(mask), 0, 0, 0, 0) + body + mask


def icon_file(picture):
    entries, images, offset = b"", b"", 6 + 16 * 6
    for size in (16, 24, 32, 48, 64, 256):
        samples = 2 if size == 256 else 4
        pixels = [[blend(picture, size, x, y, samples) for x in range(size)] for y in range(size)]
        image = png(pixels) if size == 256 else icon_bitmap(pixels)
        entries += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset + len(images))
        images += image
    return struct.pack("<HHH", 0, 1, 6) + entries + images


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", nargs="?", type=pathlib.Path,
                        default=pathlib.Path(__file__).resolve().parent.parent / "resources",
                        help="where to write (default: resources/)")
    folder = parser.parse_args().folder
    rows = tool_pixels()
    colours = bitmap_file(rows, 4, lambda pixel: INDEX[pixel or "magenta"], PALETTE.values())
    mono = bitmap_file(rows, 1, lambda pixel: int(pixel in PAPER), (0x000000, 0xFFFFFF))
    (folder / "tools_color.bmp").write_bytes(colours)
    (folder / "tools_mono.bmp").write_bytes(mono)
    for name, picture in icons().items():
        (folder / f"{name}.ico").write_bytes(icon_file(picture))


if __name__ == "__main__":
    main()
