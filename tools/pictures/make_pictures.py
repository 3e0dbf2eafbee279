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

CURSOR = 13002


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


def contact_sheet(path, bitmaps, icon_sets):
    """All pictures in rows, on the grounds that they are made for."""
    shown = bitmaps + [(number, p) for number, pictures in icon_sets for p in pictures] + [(CURSOR, symbols.hand())]
    columns, cell_width, cell_height = 12, 150, 142
    rows = -(-len(shown) // columns)
    surface = cairo.ImageSurface(cairo.FORMAT_RGB24, columns * cell_width, rows * cell_height)
    context = cairo.Context(surface)
    context.set_source_rgb(.8, .82, .85)
    context.paint()
    for i, (number, canvas) in enumerate(shown):
        x, y = i % columns * cell_width + 5, i // columns * cell_height + 16
        context.set_source_rgb(0, 0, 0)
        context.move_to(x, y - 4)
        context.show_text(str(number))
        context.rectangle(x, y, canvas.width, canvas.height)
        context.set_source_rgb(*(((canvas.ground >> s & 0xFF) / 255) for s in (16, 8, 0)))
        context.fill()
        context.set_source_surface(canvas.surface, x, y)
        context.paint()
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
