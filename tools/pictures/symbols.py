"""Banner, link, symbols and the other pictures of the dialogs, and the hand of the pointer."""

import math

from canvas import Canvas
from style import (BLUE, BLUE_DEEP, BLUE_LIGHT, BUTTON_FACE, EDGE, FULL, GREEN, INK, KEY_OLIVE, NEUTRAL, RED, WARM,
                   WHITE, Ink, blend, photo, sheet, text_lines)

BANNER_HEIGHT = 40
BANNER_TOP, BANNER_BOTTOM = 0x1B4F9C, 0x0C2A5B


def banner_colour(y):
    return blend(BANNER_TOP, BANNER_BOTTOM, y / (BANNER_HEIGHT - 1))


def banner_column():
    canvas = Canvas(4, BANNER_HEIGHT)
    for y in range(BANNER_HEIGHT):
        canvas.box(0, y, 4, 1, banner_colour(y))
    return canvas


def banner_logo():
    """Three inks that become a sheet, left of the model's name."""
    canvas = Canvas(118, BANNER_HEIGHT, ground=banner_colour(BANNER_HEIGHT // 2))
    for x, colour in ((16, 0x35B6E8), (27, 0xE8468C), (38, 0xF7C842)):
        canvas.context.move_to(x, 9)
        canvas.context.curve_to(x + 10, 19, x + 9, 31, x, 31)
        canvas.context.curve_to(x - 9, 31, x - 10, 19, x, 9)
        canvas.fill(colour, 0.92)
    canvas.text(56, BANNER_HEIGHT / 2, "Velmora", 16, WHITE, italic=True, centred=False)
    return canvas


def link(face, edge, down=0):
    """The button of the support page: a globe and an arrow outwards, on the banner."""
    canvas = Canvas(52, BANNER_HEIGHT)
    for y in range(BANNER_HEIGHT):
        canvas.box(0, y, 52, 1, banner_colour(y))
    canvas.rounded(5.5, 4.5, 41, 31, 5)
    canvas.fill(face)
    canvas.rounded(5.5, 4.5, 41, 31, 5)
    canvas.stroke(edge)
    x, y = 23 + down, 20 + down
    c = canvas.context
    canvas.circle(x, y, 10, WHITE)
    c.save()
    c.arc(x, y, 10, 0, 6.2832)
    c.clip()
    for squeeze in (1, .42):
        c.save()
        c.translate(x, y)
        c.scale(squeeze, 1)
        c.arc(0, 0, 9.5, 0, 6.2832)
        c.restore()
        canvas.stroke(BLUE, 1.2)
    for offset in (-4.5, 0, 4.5):
        canvas.line(x - 10, y + offset, x + 10, y + offset, BLUE, 1.2)
    c.restore()
    canvas.rounded(x + 5, y - 12, 13, 12, 2)
    canvas.fill(WARM)
    canvas.arrow(x + 8, y - 3, x + 15.5, y - 10, WHITE, 1.8, 5)
    return canvas


def help_mark():
    canvas = Canvas(16, 16, BUTTON_FACE)
    canvas.circle(8, 8, 7.5, BLUE)
    canvas.circle(8, 8, 6.3, blend(BLUE, WHITE, .12))
    canvas.text(8, 8, "?", 11, WHITE, bold=True)
    return canvas


def fit_to_paper():
    """A page that grows to the paper."""
    canvas = Canvas(32, 24)
    sheet(canvas, 1, 7, 13, 16)
    text_lines(canvas, 4, 10, 7, 3, pitch=3, thick=1)
    canvas.arrow(13, 7, 20, 3, WARM, 2, 6)
    sheet(canvas, 17, 1, 15, 22)
    text_lines(canvas, 20, 6, 8, 5, pitch=3, thick=1)
    return canvas


def outlined_letter():
    canvas = Canvas(32, 32, BUTTON_FACE)
    c = canvas.context
    c.select_font_face("Liberation Sans", 0, 1)
    c.set_font_size(32)
    extents = c.text_extents("A")
    c.move_to(16 - extents.width / 2 - extents.x_bearing, 16 + extents.height / 2)
    c.text_path("A")
    canvas.fill_preserved(WHITE)
    canvas.stroke(BLUE, 1.4)
    return canvas


def printer(canvas, x, y, scale):
    """The printer, 40 units wide and 34 high."""
    c = canvas.context
    c.save()
    c.translate(x, y)
    c.scale(scale, scale)
    canvas.polygon([(9, 0), (31, 0), (31, 12), (9, 12)], WHITE)
    canvas.frame(9, 0, 22, 12, EDGE)
    photo(canvas, 12, 3, 16, 8)
    canvas.rounded(0, 10, 40, 16, 3)
    canvas.fill(0x49545F)
    canvas.rounded(0, 10, 40, 6, 3)
    canvas.fill(0x66727E)
    canvas.circle(35, 19, 1.6, 0x7ED957)
    canvas.box(7, 22, 26, 3, 0x2A323A)
    canvas.polygon([(9, 24), (31, 24), (34, 34), (6, 34)], WHITE)
    canvas.path([(9, 24), (31, 24), (34, 34), (6, 34)])
    canvas.stroke(EDGE)
    for i, width in enumerate((18, 20)):
        canvas.box(20 - width / 2, 27 + 3 * i, width, 1.2, BLUE if i == 0 else NEUTRAL)
    c.restore()


def printer_picture():
    canvas = Canvas(48, 48)
    printer(canvas, 3, 6, 1.05)
    return canvas


def globe_symbol(ground):
    canvas = Canvas(36, 36, ground)
    c = canvas.context
    canvas.circle(18, 18, 15, 0xDCEBFB)
    c.save()
    c.arc(18, 18, 15, 0, 6.2832)
    c.clip()
    for points in (((6, 8), (16, 5), (20, 11), (14, 17), (8, 16)), ((20, 18), (30, 16), (31, 25), (23, 31)),
                   ((8, 22), (14, 22), (15, 30), (10, 28))):
        canvas.polygon(points, blend(GREEN, WHITE, .15))
    c.restore()
    c.arc(18, 18, 14.5, 0, 6.2832)
    canvas.stroke(BLUE, 1.6)
    canvas.circle(27, 27, 8, WARM)
    canvas.text(27, 27, "?", 12, WHITE, bold=True)
    return canvas


def update_symbol(ground):
    canvas = Canvas(36, 36, ground)
    canvas.rounded(4.5, 21.5, 27, 10, 3)
    canvas.fill(0x5A6672)
    canvas.circle(26, 26.5, 1.6, 0x7ED957)
    canvas.arrow(18, 3, 18, 24, BLUE, 5, 11)
    return canvas


def colour_picture(ink, strength_name):
    """What a colour mode does to a photograph."""
    canvas = Canvas(44, 34, BUTTON_FACE)
    sheet(canvas, 0, 0, 44, 34)
    photo(canvas, 3, 3, 36, 26, ink, smooth=strength_name != "off")
    return canvas


class Vivid(Ink):
    """Colours pushed away from grey."""

    def __call__(self, colour):
        red, green, blue = (colour >> shift & 0xFF for shift in (16, 8, 0))
        middle = (red + green + blue) / 3
        pushed = [max(0, min(255, round(middle + (v - middle) * 1.75 - 8))) for v in (red, green, blue)]
        return pushed[0] << 16 | pushed[1] << 8 | pushed[2]


def colour_symbol(colours):
    """Three overlapping drops of ink, 16 pixels high."""
    canvas = Canvas(16, 16, WHITE, KEY_OLIVE)
    for (x, y), colour in zip(((5.5, 5.5), (10.5, 5.5), (8, 10)), colours):
        canvas.circle(x, y, 4.6, colour, .88)
    return canvas


def photo_tray():
    """The paper tray from above, its lever set to photo paper: first step of the notice on photo sizes."""
    canvas = Canvas(96, 72, BUTTON_FACE)
    canvas.rounded(8, 8, 80, 56, 5)
    canvas.fill(0x66727E)
    canvas.rounded(13, 13, 70, 46, 3)
    canvas.fill(0xDDE2E8)
    sheet(canvas, 17, 18, 34, 36)
    photo(canvas, 17, 18, 32, 34, smooth=True)
    canvas.rounded(63, 18, 10, 36, 5)
    canvas.fill(0x49545F)
    canvas.circle(68, 24, 7, WARM)
    canvas.arrow(80, 46, 80, 22, WARM, 2.5, 7)
    return canvas


def photo_loading():
    """Photo paper going in with its printing side down: second step."""
    canvas = Canvas(96, 72, BUTTON_FACE)
    canvas.polygon([(10, 44), (86, 44), (92, 66), (4, 66)], 0x66727E)
    canvas.polygon([(18, 48), (78, 48), (82, 62), (14, 62)], 0x49545F)
    sheet(canvas, 28, 5, 42, 46, 0xF1F4F8)
    canvas.polygon([(70 - 15, 49), (68, 49), (68, 36)], BUTTON_FACE)
    canvas.polygon([(55, 49), (68, 36), (55, 36)], 0x5AA2E6)
    canvas.path([(55, 49), (55, 36), (68, 36)])
    canvas.stroke(EDGE)
    canvas.arrow(48, 12, 48, 32, WARM, 3, 9)
    return canvas


def colour_sample():
    """A still life with greys, skin, sky and pure inks, on which colour adjustments can be judged."""
    canvas = Canvas(140, 110)
    photo(canvas, 0, 0, 140, 74, smooth=True)
    canvas.circle(34, 52, 15, 0xE9B08F)
    canvas.circle(34, 45, 15, 0x5B3A29, 0.0)
    canvas.polygon([(14, 74), (20, 62), (48, 62), (54, 74)], 0x2E5AA8)
    canvas.polygon([(19, 50), (22, 36), (46, 36), (49, 50), (44, 42), (24, 42)], 0x4A2F22)
    for x, colour in ((84, RED), (100, WARM), (116, GREEN)):
        canvas.circle(x, 64, 8, colour)
        canvas.circle(x - 2.5, 61, 2.2, WHITE, .6)
    inks = (0x00A0E0, 0xD8007C, 0xF7E000, 0x000000, 0xE02020, 0x18A040, 0x2030B0)
    for i, colour in enumerate(inks):
        canvas.box(20 * i, 74, 20, 18, colour)
    for i in range(14):
        canvas.box(10 * i, 92, 10, 18, round(255 * i / 13) * 0x010101)
    return canvas


def service_picture():
    canvas = Canvas(48, 48)
    printer(canvas, 2, 3, .95)
    canvas.circle(36, 36, 11, WHITE)
    canvas.circle(36, 36, 10, WARM)
    canvas.text(36, 36, "i", 15, WHITE, bold=True, italic=True)
    return canvas


def favourites_picture(add):
    """Saving into, and restoring, the list of favourites."""
    canvas = Canvas(40, 32, BUTTON_FACE)
    sheet(canvas, 1, 3, 26, 28)
    text_lines(canvas, 5, 8, 17, 4, pitch=5)
    if add:
        star(canvas, 28, 13, 10, 0xF7B500)
    else:
        canvas.context.arc(28, 16, 8, -2.4, 2.2)
        canvas.stroke(BLUE, 3)
        canvas.polygon([(17, 8), (27, 7), (23, 15)], BLUE)
    return canvas


def star(canvas, x, y, radius, colour):
    points = []
    for i in range(10):
        reach = radius if i % 2 == 0 else radius * .43
        angle = -math.pi / 2 + i * math.pi / 5
        points.append((x + reach * math.cos(angle), y + reach * math.sin(angle)))
    canvas.polygon(points, colour)
    canvas.path(points)
    canvas.stroke(blend(colour, INK, .35))


def hand():
    """The hand of links; its hot spot is the tip of the finger."""
    canvas = Canvas(32, 32)
    outline = [(9, 1), (12, 1), (13, 3), (13, 10), (15, 9.5), (16.5, 10.5), (18.5, 10), (20, 11.5), (21.5, 11.5),
               (23, 13), (23, 19), (21, 24), (21, 28), (10, 28), (10, 25), (5, 19), (3, 15.5), (4, 14), (6, 14.3),
               (8, 17), (8, 3)]
    canvas.polygon(outline, WHITE)
    canvas.path(outline)
    canvas.stroke(0x000000, 1.3)
    for x in (13, 16.5, 20):
        canvas.line(x, 11, x, 16, 0x000000, 1)
    return canvas


HAND_HOT_SPOT = (10, 1)


def bitmaps():
    """(id, canvas) of every single picture."""
    yield 13003, help_mark()
    yield 13010, banner_logo()
    yield 13013, banner_column()
    yield 13011, link(0x2C66BC, blend(BLUE_LIGHT, BLUE, .3))
    yield 13012, link(0x153B78, BLUE_DEEP, down=1)
    yield 13014, link(0x4E8CE0, WHITE)
    yield 13015, fit_to_paper()
    yield 13022, outlined_letter()
    yield 13040, printer_picture()
    yield 13047, globe_symbol(BUTTON_FACE)
    yield 13048, update_symbol(BUTTON_FACE)
    yield 13030, colour_picture(FULL, "natural")
    yield 13031, colour_picture(Vivid(), "vivid")
    yield 13032, colour_picture(Ink(False, .45), "off")
    yield 13350, colour_symbol((0x18A0E0, 0xE0257F, 0xF5C400))
    yield 13351, colour_symbol((0x8C8C8C, 0x5A5A5A, 0xBDBDBD))
    yield 13355, photo_tray()
    yield 13356, photo_loading()
    yield 20301, colour_sample()
    yield 20303, service_picture()
    yield 22321, favourites_picture(True)
    yield 22322, favourites_picture(False)
