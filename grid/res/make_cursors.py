#!/usr/bin/env python3
"""Writes the grid header's four sizing cursors as 32x32 monochrome .cur files.

The cursors are committed beside this script, so building the library needs no Python; run it
again (python3 grid/res/make_cursors.py) after changing a shape. Each cursor is a black shape
with a one-pixel white outline on a transparent ground, hot spot in the middle:
  SizeHorz.cur    a vertical bar crossed by a double-headed left-right arrow (resize a column)
  RevealHorz.cur  the same with a double bar (drag a hidden column open)
  SizeVert.cur, RevealVert.cur  the same turned a quarter round, for rows.
"""

import os
import struct

SIZE = 32
HOT = 15


def arrow_shaft_and_heads():
    """A left-right double-headed arrow through the hot spot, two pixels thick."""
    black = set()
    for x in range(5, 27):
        black.update({(x, HOT), (x, HOT + 1)})
    for k in range(5):
        for y in range(HOT - k, HOT + 2 + k):
            black.add((5 + k, y))
            black.add((26 - k, y))
    return black


def bars(xs):
    black = set()
    for x in xs:
        for y in range(HOT - 9, HOT + 11):
            black.add((x, y))
    return black


def horizontal(reveal):
    # A double bar leaves a gap where the hidden item lies; the arrow crosses it.
    return arrow_shaft_and_heads() | bars((HOT - 1, HOT + 2) if reveal else (HOT, HOT + 1))


def turned(black):
    return {(y, x) for (x, y) in black}


def cur_file(black):
    white = set()
    for (x, y) in black:
        for dx in (-1, 0, 1):
            for dy in (-1, 0, 1):
                p = (x + dx, y + dy)
                if p not in black and 0 <= p[0] < SIZE and 0 <= p[1] < SIZE:
                    white.add(p)
    xor_rows = []
    and_rows = []
    for y in reversed(range(SIZE)):  # bitmaps run bottom-up
        xor_bits = 0
        and_bits = 0
        for x in range(SIZE):
            bit = 1 << (SIZE - 1 - x)
            if (x, y) in white:
                xor_bits |= bit
            elif (x, y) not in black:
                and_bits |= bit  # transparent
        xor_rows.append(struct.pack(">I", xor_bits))
        and_rows.append(struct.pack(">I", and_bits))
    image = (struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE * 2, 1, 1, 0, 0, 0, 0, 2, 0)
             + struct.pack("<II", 0x000000, 0xFFFFFF)
             + b"".join(xor_rows) + b"".join(and_rows))
    header = struct.pack("<HHH", 0, 2, 1)
    entry = struct.pack("<BBBBHHII", SIZE, SIZE, 0, 0, HOT, HOT, len(image), 6 + 16)
    return header + entry + image


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    shapes = {
        "SizeHorz.cur": horizontal(False),
        "RevealHorz.cur": horizontal(True),
        "SizeVert.cur": turned(horizontal(False)),
        "RevealVert.cur": turned(horizontal(True)),
    }
    for name, black in shapes.items():
        with open(os.path.join(here, name), "wb") as f:
            f.write(cur_file(black))


if __name__ == "__main__":
    main()
