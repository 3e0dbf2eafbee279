"""The page as it will be printed, in the preview of the main dialog and beside duplex and collate settings.

All previews are 120 pixels square; the page lies where a click on it is looked for: a portrait sheet from
(17, 0) to (107, 120), a landscape sheet from (0, 16) to (120, 106).
"""

from canvas import Canvas
from style import (BLUE, BLUE_LIGHT, BUTTON_FACE, EDGE, INK, NEUTRAL, PAPER_BACK, WARM, Ink, badge, blend, photo,
                   sheet, text_lines)

SIZE = 120
PORTRAIT, LANDSCAPE = (17, 0, 90, 120), (0, 16, 120, 90)

# How each quality level prints, from draft to photo: ink strength, grain of pictures (0 = none), dotted text,
# smooth pictures.
QUALITIES = [
    (0.45, 3, True, False),
    (0.65, 4, False, False),
    (0.85, 0, False, False),
    (1.00, 0, False, False),
    (1.00, 0, False, True),
    (1.00, 0, False, True),
]


def page(canvas, place, landscape, ink, grain, dotted, smooth, whole_photo):
    """The example page: a heading, text, a picture. The best level shows a photograph that fills the page."""
    x, y, width, height = place
    sheet(canvas, x, y, width, height)
    left, top, inner, deep = x + 8, y + 9, width - 18, height - 20
    if whole_photo:
        photo(canvas, x + 5, y + 5, width - 12, height - 12, ink, grain, smooth)
    elif landscape:
        column = 46
        text_lines(canvas, left, top, inner, 3, ink=ink, coarse=dotted)
        photo(canvas, left, top + 18, column + 6, deep - 18, ink, grain, smooth)
        text_lines(canvas, left + column + 12, top + 19, inner - column - 12, 10, ink=ink, heading=False,
                   coarse=dotted)
    else:
        text_lines(canvas, left, top, inner, 6, ink=ink, coarse=dotted)
        photo(canvas, left, top + 33, inner, 42, ink, grain, smooth)
        text_lines(canvas, left, top + 81, inner, 4, ink=ink, heading=False, coarse=dotted)


def cut_lines(canvas, place, parts):
    """Where a poster's sheets meet."""
    x, y, width, height = place
    for i in range(1, parts):
        across, down = x + (width - 2) * i / parts, y + (height - 2) * i / parts
        for colour, wide in ((0xFFFFFF, 3), (WARM, 1)):
            canvas.line(round(across) + .5, y + 1, round(across) + .5, y + height - 3, colour, wide,
                        (4, 3) if wide == 1 else ())
            canvas.line(x + 1, round(down) + .5, x + width - 3, round(down) + .5, colour, wide,
                        (4, 3) if wide == 1 else ())


def layout_previews():
    for level, (strength, grain, dotted, smooth) in enumerate(QUALITIES):
        for landscape in (False, True):
            for monochrome in (False, True):
                for poster in (1, 2, 3):
                    canvas = Canvas(SIZE, SIZE)
                    place = LANDSCAPE if landscape else PORTRAIT
                    page(canvas, place, landscape, Ink(not monochrome, strength), grain, dotted, smooth,
                         level == len(QUALITIES) - 1)
                    if poster > 1:
                        cut_lines(canvas, place, poster)
                    number = 13100 + 20 * level + 10 * landscape + 5 * monochrome + poster - 1
                    yield number, canvas


def small_page(canvas, x, y, width, height, number):
    """One of several pages on a sheet, with its number."""
    canvas.box(x, y, width, height, 0xFFFFFF)
    canvas.frame(x, y, width, height, blend(EDGE, 0xFFFFFF, .35))
    size = max(9, min(width, height) * .5)
    if min(width, height) > 34:
        text_lines(canvas, x + 5, y + 6, width - 10, 3, pitch=4, thick=1)
        text_lines(canvas, x + 5, y + height - 14, width - 10, 3, pitch=4, thick=1, heading=False)
    canvas.text(x + width / 2, y + height / 2, str(number), size, BLUE, bold=True)


def several(place, columns, rows, order):
    """A sheet with columns x rows pages; `order` gives the cell (column, row) of each page in turn."""
    canvas = Canvas(SIZE, SIZE)
    x, y, width, height = place
    sheet(canvas, x, y, width, height, PAPER_BACK)
    margin, gap = 4, 3 if columns * rows < 9 else 2
    across = (width - 2 - 2 * margin - gap * (columns - 1)) / columns
    down = (height - 2 - 2 * margin - gap * (rows - 1)) / rows
    for number, (column, row) in enumerate(order, 1):
        left, top = round(x + margin + column * (across + gap)), round(y + margin + row * (down + gap))
        small_page(canvas, left, top, round(across), round(down), number)
    return canvas


# Page orders by their number in the settings: right then down, down then right, left then down, down then left.
def ordered(n, order):
    by_row = [(column, row) for row in range(n) for column in range(n)]
    by_column = [(column, row) for column in range(n) for row in range(n)]
    mirror = {(column, row): (n - 1 - column, row) for column, row in by_row}
    return [by_row, by_column, [mirror[c] for c in by_row], [mirror[c] for c in by_column]][order]


def sheet_previews():
    yield 13301, several(LANDSCAPE, 2, 1, [(0, 0), (1, 0)])
    yield 13302, several(LANDSCAPE, 2, 1, [(1, 0), (0, 0)])
    yield 13316, several(PORTRAIT, 1, 2, [(0, 0), (0, 1)])
    for place, first in ((PORTRAIT, (13303, 13307, 13311)), (LANDSCAPE, (13318, 13322, 13326))):
        for n, base in zip((2, 3, 4), first):
            for order in range(4):
                yield base + order, several(place, n, n, ordered(n, order))


def stack(canvas, x, y, numbers, width=20, height=28, step=5):
    """Sheets in a pile; the first number lies on top."""
    for i, number in reversed(list(enumerate(numbers))):
        left, top = x + i * step, y + (len(numbers) - 1 - i) * 4
        sheet(canvas, left, top, width, height)
        canvas.text(left + 7, top + 8, str(number), 10, BLUE, bold=True)
    return x + (len(numbers) - 1) * step + width


def collate_previews():
    piles = {
        13251: [[1, 2, 3]],
        13252: [[3, 2, 1]],
        13253: [[1, 2, 3], [1, 2, 3]],
        13254: [[3, 2, 1], [3, 2, 1]],
        13255: [[1, 1], [2, 2], [3, 3]],
        13256: [[3, 3], [2, 2], [1, 1]],
    }
    for number, sets in piles.items():
        canvas = Canvas(88, 40, BUTTON_FACE)
        spans = [20 + 5 * (len(numbers) - 1) for numbers in sets]
        gap = 5
        x = (canvas.width - sum(spans) - gap * (len(sets) - 1)) // 2
        for numbers, span in zip(sets, spans):
            stack(canvas, x, (canvas.height - 28 - 4 * (len(numbers) - 1)) // 2, numbers)
            x += span + gap
        yield number, canvas


DUPLEX = 96


def leaf(canvas, place, edge, mark=True):
    """A two-sided sheet bound at `edge`; its opposite corner is turned, so that the back shows."""
    x, y, width, height = place
    sheet(canvas, x, y, width, height)
    landscape = width > height
    text_lines(canvas, x + 12, y + 12, width - 28, 3, pitch=6)
    photo(canvas, x + 12, y + 32, width - 26, height - (52 if not landscape else 46), smooth=True)
    fold = 18
    right, bottom = x + width - 2, y + height - 2
    corners = {
        "left": [(right, bottom - fold), (right - fold, bottom), (right, bottom), (right - fold, bottom - fold)],
        "right": [(x, bottom - fold), (x + fold, bottom), (x, bottom), (x + fold, bottom - fold)],
        "top": [(right, bottom - fold), (right - fold, bottom), (right, bottom), (right - fold, bottom - fold)],
        "bottom": [(right, y + fold), (right - fold, y), (right, y), (right - fold, y + fold)],
    }
    first, second, corner, tip = corners[edge]
    canvas.polygon([first, second, corner], BUTTON_FACE)
    pad = {"left": 2, "right": -2, "top": 2, "bottom": 2}[edge]
    lift = -2 if edge == "bottom" else 2
    canvas.polygon([first, second, (corner[0] + pad, corner[1] + lift), ], BUTTON_FACE)
    canvas.box(min(corner[0], corner[0] + pad * 1.5), min(corner[1], corner[1] + lift * 1.5), 3, 3, BUTTON_FACE)
    canvas.polygon([first, second, tip], blend(BLUE_LIGHT, 0xFFFFFF, .55))
    canvas.path([first, tip, second])
    canvas.stroke(EDGE)
    if mark:
        binding(canvas, place, edge)


def binding(canvas, place, edge):
    """Stitches along the edge that the sheets are bound at."""
    x, y, width, height = place
    for i in range(3):
        share = (i + 1) / 4
        if edge in ("left", "right"):
            at = x + 5 if edge == "left" else x + width - 7
            canvas.line(at, y + height * share - 5, at, y + height * share + 5, WARM, 2)
        else:
            at = y + 5 if edge == "top" else y + height - 7
            canvas.line(x + width * share - 5, at, x + width * share + 5, at, WARM, 2)


def booklet(canvas, place, horizontal, turned):
    """A sheet folded in its middle, with the pages of a signature on it."""
    x, y, width, height = place
    sheet(canvas, x, y, width, height)
    numbers = (3, 2) if turned else (2, 3)
    if horizontal:
        middle = y + (height - 2) / 2
        canvas.box(x + 1, middle - 3, width - 4, 3, INK, .10)
        canvas.line(x + 1, middle + .5, x + width - 3, middle + .5, WARM, 1, (5, 3))
        places = [(x, y, width - 2, height / 2 - 1), (x, middle, width - 2, height / 2 - 1)]
    else:
        middle = x + (width - 2) / 2
        canvas.box(middle - 3, y + 1, 3, height - 4, INK, .10)
        canvas.line(middle + .5, y + 1, middle + .5, y + height - 3, WARM, 1, (5, 3))
        places = [(x, y, width / 2 - 1, height - 2), (middle, y, width / 2 - 1, height - 2)]
    for number, (px, py, pw, ph) in zip(numbers, places):
        text_lines(canvas, px + 7, round(py + 8), pw - 14, 3, pitch=5, thick=2)
        badge(canvas, px + pw / 2, py + ph - 12, str(number), 10)


UPRIGHT, LYING = (11, 2, 74, 92), (2, 13, 92, 70)


def duplex_previews():
    # Edge of the binding by type: long edge first and second, short edge first and second, then the types whose
    # pages may change their orientation: they keep the first and second long edge.
    for base, place, edges in ((13371, UPRIGHT, ("left", "right", "top", "bottom", "left", "right")),
                               (13378, LYING, ("top", "bottom", "right", "left", "top", "bottom"))):
        for kind, edge in enumerate(edges):
            canvas = Canvas(DUPLEX, DUPLEX, BUTTON_FACE)
            leaf(canvas, place, edge)
            if kind >= 4:
                mixed(canvas, place)
            yield base + kind, canvas
    for number, place, horizontal, turned in ((13384, LYING, False, False), (13385, LYING, False, True),
                                              (13386, UPRIGHT, True, False), (13387, UPRIGHT, True, True)):
        canvas = Canvas(DUPLEX, DUPLEX, BUTTON_FACE)
        booklet(canvas, place, horizontal, turned)
        yield number, canvas


def mixed(canvas, place):
    """A small upright and a small lying sheet: both orientations in one job."""
    x, y, width, height = place
    middle = x + width / 2 - 1
    bottom = y + height - 10
    for left, wide, high in ((middle - 17, 13, 17), (middle + 1, 17, 13)):
        canvas.box(left, bottom - high, wide, high, 0xFFFFFF)
        canvas.frame(left, bottom - high, wide, high, BLUE)
        canvas.box(left + 3, bottom - high + 4, wide - 6, 1, NEUTRAL)
        canvas.box(left + 3, bottom - high + 7, wide - 6, 1, NEUTRAL)
