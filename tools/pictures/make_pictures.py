#!/usr/bin/python3
"""Draws every picture, icon and cursor of the library.

usage: make_pictures.py FOLDER [SHEET.png]

Writes the files and pictures.rc, which names them, into FOLDER; SHEET.png shows them all with their numbers.
"""

import sys
from pathlib import Path

import cairo

import formats
import icons
import previews
import symbols
from canvas import rgb

CURSOR = 13002

# Of the sheet, in pixels
SHEET_WIDTH, MARGIN, LABEL_WIDTH, LABEL_HEIGHT = 1600, 10, 36, 14


def all_bitmaps():
    for source in (symbols.bitmaps, previews.layout_previews, previews.sheet_previews, previews.collate_previews,
                   previews.duplex_previews):
        yield from source()


def write(folder, bitmaps, icon_sets):
    folder.mkdir(parents=True, exist_ok=True)
    lines = []

    def put(number, kind, name, data):
        (folder / name).write_bytes(data)
        lines.append(f'{number} {kind} "{name}"\n')

    for number, canvas in bitmaps:
        put(number, "BITMAP", f"{number}.bmp", formats.bitmap8(canvas.opaque(), canvas.key))
    for number, pictures in icon_sets:
        put(number, "ICON", f"{number}.ico", formats.icon([p.straight() for p in pictures]))
    put(CURSOR, "CURSOR", f"{CURSOR}.cur", formats.cursor(symbols.hand().straight(), symbols.HAND_HOT_SPOT))
    (folder / "pictures.rc").write_text("".join(sorted(lines)))


def rows_of(pictures):
    """The pictures in rows as wide as the sheet, each with its place across."""
    rows, across = [[]], MARGIN
    for number, canvas in pictures:
        width = max(canvas.width, LABEL_WIDTH) + MARGIN
        if across + width > SHEET_WIDTH and rows[-1]:
            rows.append([])
            across = MARGIN
        rows[-1].append((across, number, canvas))
        across += width
    return rows


def contact_sheet(path, bitmaps, icon_sets):
    """All pictures by number, on the grounds that they are made for."""
    shown = sorted(bitmaps, key=lambda picture: picture[0])
    rows = rows_of(shown) + rows_of([(number, p) for number, pictures in icon_sets for p in pictures] +
                                    [(CURSOR, symbols.hand())])
    heights = [LABEL_HEIGHT + max(canvas.height for *_, canvas in row) + MARGIN for row in rows]
    surface = cairo.ImageSurface(cairo.FORMAT_RGB24, SHEET_WIDTH, sum(heights) + MARGIN)
    context = cairo.Context(surface)
    context.set_source_rgb(.8, .82, .85)
    context.paint()
    top = MARGIN
    for row, height in zip(rows, heights):
        for x, number, canvas in row:
            y = top + LABEL_HEIGHT
            context.set_source_rgb(0, 0, 0)
            context.move_to(x, y - 4)
            context.show_text(str(number))
            context.rectangle(x, y, canvas.width, canvas.height)
            context.set_source_rgb(*rgb(canvas.ground))
            context.fill()
            context.set_source_surface(canvas.surface, x, y)
            context.paint()
        top += height
    surface.write_to_png(str(path))


def main(arguments):
    if len(arguments) not in (1, 2):
        sys.exit(__doc__)
    bitmaps, icon_sets = list(all_bitmaps()), list(icons.icons())
    write(Path(arguments[0]), bitmaps, icon_sets)
    if len(arguments) == 2:
        contact_sheet(arguments[1], bitmaps, icon_sets)


if __name__ == "__main__":
    main(sys.argv[1:])
