#!/usr/bin/env python3
"""Draws the floors of docs/architecture.md, read from its table, as docs/pictures/architecture.svg.

    scripts/floors_picture.py
"""

import os
import re
from xml.sax.saxutils import escape

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
WIDTH, LEFT, GAP, BOX, STEP = 920, 64, 8, 54, 66
# How many characters of the small type fit into a unit of width.
SMALL = 6.0
QT_FOLDERS = {"app", "ui"}


def read_floors():
    """The rows of the table as (floor, folder, what is in it), from the top floor down."""
    with open(os.path.join(ROOT, "docs/architecture.md"), encoding="utf-8") as file:
        return re.findall(r"^\| (\d+) \| `(\w+)/` \| ([^|]*?) \|", file.read(), re.M)


def beginning(text, width):
    """As many parts of a sentence as fit."""
    parts = re.split(r"(?<=[,:;]) ", text.replace("`", ""))
    while len(parts) > 1 and len(" ".join(parts)) * SMALL > width:
        parts.pop()
    return " ".join(parts).rstrip(",:;")


def draw(rows):
    floors = sorted({int(floor) for floor, _, _ in rows}, reverse=True)
    height = len(floors) * STEP + GAP + 40
    out = ['<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 %d %d" font-family="sans-serif">' % (WIDTH, height),
           "<title>The folders by floor: a file includes its own folder and lower floors</title>",
           '<rect width="%d" height="%d" fill="#ffffff"/>' % (WIDTH, height)]
    for at, floor in enumerate(floors):
        y = GAP + at * STEP
        folders = [(folder, what) for number, folder, what in rows if int(number) == floor]
        width = (WIDTH - LEFT - GAP * len(folders)) / len(folders)
        out.append('<text x="%d" y="%d" font-size="20" fill="#555555">%d</text>' % (24, y + 33, floor))
        for place, (folder, what) in enumerate(folders):
            x = LEFT + place * (width + GAP)
            fill = "#fde9c8" if folder in QT_FOLDERS else "#dbe9f6"
            out.append('<rect x="%.0f" y="%d" width="%.0f" height="%d" rx="4" fill="%s" stroke="#456789"/>' %
                       (x, y, width, BOX, fill))
            out.append('<text class="folder" x="%.0f" y="%d" font-size="16" font-weight="bold">%s/</text>' %
                       (x + 10, y + 22, escape(folder)))
            out.append('<text x="%.0f" y="%d" font-size="11">%s</text>' %
                       (x + 10, y + 41, escape(beginning(what, width - 20))))
    y = GAP + len(floors) * STEP + 18
    out.append('<text x="%d" y="%d" font-size="12" fill="#555555">A file includes its own folder and lower floors. '
               'Qt stands in the yellow folders alone.</text>' % (LEFT, y))
    return "\n".join(out + ["</svg>", ""])


with open(os.path.join(ROOT, "docs/pictures/architecture.svg"), "w", encoding="utf-8") as picture:
    picture.write(draw(read_floors()))
