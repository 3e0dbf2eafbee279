"""The twenty icons that favourites are marked with. Each is drawn in a field of 24 x 24 units and rendered for
three sizes, the smallest with less detail."""

from canvas import Canvas
from style import BLUE, BLUE_LIGHT, EDGE, GREEN, INK, NEUTRAL, RED, WARM, WHITE, blend
from symbols import star

SIZES = (16, 24, 32, 48)
FIELD = 24


def _paper(c, x=4, y=2, width=16, height=20):
    c.rounded(x, y, width, height, 1)
    c.fill(WHITE)
    c.rounded(x + .5, y + .5, width - 1, height - 1, 1)
    c.stroke(INK)


def _lines(c, x, y, width, count, pitch=3, colour=NEUTRAL, heading=True):
    for i in range(count):
        c.box(x, y + i * pitch, width * (.6 if heading and i == 0 else 1), 1.4,
              BLUE if heading and i == 0 else colour)


def _scene(c, x, y, width, height):
    c.box(x, y, width, height, 0xA9D3F5)
    c.circle(x + width * .74, y + height * .3, min(width, height) * .16, 0xF9B233)
    c.polygon([(x, y + height), (x + width * .36, y + height * .4), (x + width * .72, y + height)], GREEN)
    c.polygon([(x + width * .4, y + height), (x + width * .72, y + height * .55), (x + width, y + height)],
              blend(GREEN, INK, .25))


def document(c, fine):
    _paper(c)
    _lines(c, 7, 6, 10, 5 if fine else 3, 3 if fine else 4.5)


def graphics(c, fine):
    _paper(c)
    _lines(c, 7, 5, 10, 2)
    _scene(c, 7, 11, 10, 8)


def two_pages(c, fine):
    _paper(c, 1, 4, 22, 16)
    c.line(12, 5, 12, 19, INK)
    for x, number in ((6.5, "1"), (17.5, "2")):
        c.text(x, 12, number, 10, BLUE, bold=True)


def four_pages(c, fine):
    _paper(c, 3, 1, 18, 22)
    c.line(12, 2, 12, 22, INK)
    c.line(4, 12, 20, 12, INK)
    for i in range(4):
        c.text(7.5 + 9 * (i % 2), 7 + 10 * (i // 2), str(i + 1), 7.5, BLUE, bold=True)


def photograph(c, fine):
    _paper(c, 1, 4, 22, 16)
    _scene(c, 3, 6, 18, 12)


def card(c, fine):
    _paper(c, 1, 5, 22, 14)
    c.circle(6.5, 10.5, 2.6, WARM)
    _lines(c, 11, 9, 9, 3, heading=False)
    c.box(4, 15, 5, 1.4, BLUE)


def _stamp(c, x, y):
    c.box(x, y, 4.5, 5.5, RED)
    c.box(x + 1.2, y + 1.4, 2.1, 2.7, WHITE, .85)


def postcard(c, fine):
    _paper(c, 1, 4, 22, 16)
    c.line(12.5, 6.5, 12.5, 17.5, NEUTRAL)
    _stamp(c, 16.5, 6)
    _lines(c, 14.5, 14, 6, 2, heading=False)
    if fine:
        _lines(c, 3.5, 8, 7, 4, heading=False)


def scaling(c, fine):
    _paper(c, 1, 11, 9, 11)
    _paper(c, 11, 1, 12, 17)
    c.arrow(7, 12, 15, 5, WARM, 2, 5)


def star_icon(c, fine):
    star(c, 12, 12.8, 11, 0xF7B500)


def heart(c, fine):
    for colour, paint in ((RED, c.fill), (blend(RED, INK, .35), c.stroke)):
        c.context.move_to(12, 21)
        c.context.curve_to(-2, 11, 2, 2, 7.5, 3)
        c.context.curve_to(10, 3.2, 11.5, 5, 12, 6.5)
        c.context.curve_to(12.5, 5, 14, 3.2, 16.5, 3)
        c.context.curve_to(22, 2, 26, 11, 12, 21)
        paint(colour)


def poster(c, fine):
    for i in range(4):
        x, y = 2 + 10.5 * (i % 2), 1 + 11.5 * (i // 2)
        c.box(x, y, 9.5, 10.5, WHITE)
    c.context.save()
    for i in range(4):
        c.context.rectangle(2 + 10.5 * (i % 2), 1 + 11.5 * (i // 2), 9.5, 10.5)
    c.context.clip()
    _scene(c, 3, 2, 18, 20)
    c.context.restore()
    for i in range(4):
        c.frame(2 + 10.5 * (i % 2), 1 + 11.5 * (i // 2), 9.5, 10.5, INK)


def _orientation(c, x, y, width, height):
    _paper(c, x, y, width, height)
    c.text(x + width / 2, y + height / 2, "A", 12, BLUE, bold=True)


def portrait(c, fine):
    _orientation(c, 4, 1, 16, 22)


def landscape(c, fine):
    _orientation(c, 1, 4, 22, 16)


def calendar(c, fine):
    _paper(c, 2, 3, 20, 19)
    c.box(2.5, 3.5, 19, 5, RED)
    for x in (7, 16):
        c.box(x, 1, 1.6, 5, INK)
    if fine:
        for i in range(12):
            c.box(5 + 4 * (i % 4), 11 + 3.5 * (i // 4), 2.4, 2, WARM if i == 6 else NEUTRAL)
    else:
        c.text(12, 15, "7", 11, INK, bold=True)


def chart(c, fine):
    c.line(3, 2, 3, 21.5, INK, 1.4)
    c.line(2, 21.5, 23, 21.5, INK, 1.4)
    for x, height, colour in ((6, 8, BLUE), (11.5, 13, GREEN), (17, 17, WARM)):
        c.box(x, 21 - height, 4, height, colour)


def web_page(c, fine):
    _paper(c, 1, 3, 22, 18)
    c.box(1.5, 3.5, 21, 4, BLUE)
    for i in range(3):
        c.circle(4 + 3 * i, 5.5, .9, WHITE)
    _lines(c, 4, 10, 8, 3, heading=False)
    _scene(c, 14, 10, 7, 8)


def mail(c, fine):
    c.context.arc(12, 12, 10.5, 0, 6.2832)
    c.fill(blend(BLUE_LIGHT, WHITE, .6))
    c.text(12, 11.5, "@", 16, BLUE, bold=True)


def envelope(c, fine):
    _paper(c, 1, 5, 22, 14)
    c.path([(1.5, 5.5), (12, 14), (22.5, 5.5)], closed=False)
    c.stroke(INK, 1.2)


def address(c, fine):
    _paper(c, 1, 5, 22, 14)
    _stamp(c, 17, 6.5)
    _lines(c, 8, 13, 9, 2, heading=False)
    if fine:
        _lines(c, 3, 8, 6, 2, 2.5, heading=False)


def glossy_postcard(c, fine):
    _paper(c, 1, 4, 22, 16)
    _scene(c, 2.5, 5.5, 19, 13)
    c.polygon([(4, 5.5), (10, 5.5), (5, 18.5), (2.5, 18.5), (2.5, 9)], WHITE, .45)
    star(c, 19, 6.5, 4, 0xF7D44C)


ICONS = [document, graphics, two_pages, four_pages, photograph, card, postcard, scaling, star_icon, heart, poster,
         portrait, landscape, calendar, chart, web_page, mail, envelope, address, glossy_postcard]
FIRST_ICON = 22301


def icons():
    """(id, pictures of every size)."""
    for i, draw in enumerate(ICONS):
        pictures = []
        for size in SIZES:
            canvas = Canvas(size, size)
            canvas.context.scale(size / FIELD, size / FIELD)
            draw(canvas, size >= FIELD)
            pictures.append(canvas)
        yield FIRST_ICON + i, pictures
