"""Banner, link, symbols and the other pictures of the dialogs, and the hand of the pointer."""

import math

import sample
from canvas import Canvas
from style import (BLUE, BLUE_DEEP, BLUE_LIGHT, BUTTON_FACE, EDGE, FULL, GREEN, INK, KEY_OLIVE, NEUTRAL, RED, WARM,
                   WHITE, Ink, blend, photo, sheet, text_lines)

BANNER_HEIGHT = 38
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
        canvas.context.move_to(x, 8)
        canvas.context.curve_to(x + 10, 18, x + 9, 30, x, 30)
        canvas.context.curve_to(x - 9, 30, x - 10, 18, x, 8)
        canvas.fill(colour, 0.92)
    canvas.text(56, BANNER_HEIGHT / 2, "Velmora", 16, WHITE, italic=True, centred=False)
    return canvas


def link(face, edge, down=0):
    """The button of the support page: a globe and an arrow outwards, on the banner."""
    canvas = Canvas(52, BANNER_HEIGHT)
    for y in range(BANNER_HEIGHT):
        canvas.box(0, y, 52, 1, banner_colour(y))
    canvas.rounded(5.5, 4.5, 41, 29, 5)
    canvas.fill(face)
    canvas.rounded(5.5, 4.5, 41, 29, 5)
    canvas.stroke(edge)
    x, y = 23 + down, 19 + down
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
    canvas = Canvas(19, 19, BUTTON_FACE)
    c = canvas.context
    c.select_font_face("Liberation Sans", 0, 1)
    c.set_font_size(22)
    extents = c.text_extents("A")
    c.move_to(9.5 - extents.width / 2 - extents.x_bearing, 9.5 + extents.height / 2)
    c.text_path("A")
    canvas.fill_preserved(WHITE)
    canvas.stroke(BLUE, 1.2)
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


def link_panel():
    """The ground of the two links of the support dialog."""
    canvas = Canvas(141, 36, BUTTON_FACE)
    canvas.rounded(0.5, 0.5, 140, 35, 3)
    canvas.fill(0xDCEAFA)
    canvas.rounded(0.5, 0.5, 140, 35, 3)
    canvas.stroke(blend(BLUE_LIGHT, WHITE, .2))
    return canvas


def support_picture():
    """A globe, and a page of questions and answers."""
    canvas = link_panel()
    c = canvas.context
    canvas.circle(21, 18, 14, 0xBFDCF7)
    c.save()
    c.arc(21, 18, 14, 0, 6.2832)
    c.clip()
    for points in (((9, 8), (19, 5), (23, 11), (17, 17), (11, 16)), ((23, 18), (33, 16), (34, 25), (26, 31)),
                   ((11, 22), (17, 22), (18, 30), (13, 28))):
        canvas.polygon(points, blend(GREEN, WHITE, .15))
    c.restore()
    c.arc(21, 18, 13.5, 0, 6.2832)
    canvas.stroke(BLUE, 1.6)
    canvas.arrow(42, 18, 56, 18, WARM, 2.5, 7)
    sheet(canvas, 63, 5, 70, 28)
    for y, sign, colour in ((12, "?", WARM), (24, "i", BLUE)):
        canvas.circle(71, y, 4.5, colour)
        canvas.text(71, y, sign, 7, WHITE, bold=True)
        text_lines(canvas, 80, y - 3, 46, 2, pitch=4, thick=2, heading=False, last=.7)
    return canvas


def supplies_picture():
    """Four cartridges and paper for the printer."""
    canvas = link_panel()
    for i, colour in enumerate((0x1C9AD6, 0xD93A86, 0xF2BE22, 0x2B2F36)):
        x = 10 + 15 * i
        canvas.rounded(x, 7, 12, 23, 2)
        canvas.fill(0x5A6672)
        canvas.box(x + 2, 13, 8, 14, colour)
        canvas.box(x + 3, 14, 2, 12, WHITE, .35)
        canvas.box(x + 3.5, 4, 5, 3, 0x49545F)
    for i in (2, 1, 0):
        sheet(canvas, 78 + 5 * i, 4 + 2 * i, 44, 26)
    photo(canvas, 82, 7, 34, 19, smooth=True)
    return canvas


def colour_picture(ink, strength_name):
    """What a colour mode does to a photograph."""
    canvas = Canvas(37, 29, BUTTON_FACE)
    sheet(canvas, 0, 0, 37, 29)
    photo(canvas, 2, 2, 31, 23, ink, smooth=strength_name != "off")
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
    canvas = Canvas(120, 90, BUTTON_FACE)
    canvas.context.scale(1.25, 1.25)
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
    canvas = Canvas(120, 90, BUTTON_FACE)
    canvas.context.scale(1.25, 1.25)
    canvas.polygon([(10, 44), (86, 44), (92, 66), (4, 66)], 0x66727E)
    canvas.polygon([(18, 48), (78, 48), (82, 62), (14, 62)], 0x49545F)
    sheet(canvas, 28, 5, 42, 46, 0xF1F4F8)
    for points, behind in (([(55, 49), (68, 49), (68, 36)], BUTTON_FACE), ([(60, 44), (68, 44), (68, 49), (55, 49)], 0x66727E),
                           ([(56, 48), (68, 48), (68, 49), (55, 49)], 0x49545F)):
        canvas.polygon(points, behind)
    canvas.polygon([(55, 49), (68, 36), (55, 36)], 0x5AA2E6)
    canvas.path([(55, 49), (55, 36), (68, 36)])
    canvas.stroke(EDGE)
    canvas.arrow(48, 12, 48, 32, WARM, 3, 9)
    return canvas


def service_picture():
    canvas = Canvas(64, 64)
    printer(canvas, 3, 6, 1.28)
    canvas.circle(49, 49, 14, WHITE)
    canvas.circle(49, 49, 12.5, WARM)
    canvas.text(49, 49, "i", 19, WHITE, bold=True, italic=True)
    return canvas


def favourites_picture(add):
    """Saving into, and restoring, the list of favourites."""
    canvas = Canvas(32, 32, BUTTON_FACE)
    sheet(canvas, 0, 3, 24, 29)
    text_lines(canvas, 4, 9, 15, 4, pitch=5)
    if add:
        star(canvas, 22, 10, 9, 0xF7B500)
    else:
        canvas.context.arc(22, 13, 7, -2.3, 2.2)
        canvas.stroke(BLUE, 3)
        canvas.polygon([(12, 6), (22, 5), (18, 13)], BLUE)
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
    yield 13047, support_picture()
    yield 13048, supplies_picture()
    yield 13030, colour_picture(FULL, "natural")
    yield 13031, colour_picture(Vivid(), "vivid")
    yield 13032, colour_picture(Ink(False, .45), "off")
    yield 13350, colour_symbol((0x18A0E0, 0xE0257F, 0xF5C400))
    yield 13351, colour_symbol((0x8C8C8C, 0x5A5A5A, 0xBDBDBD))
    yield 13355, photo_tray()
    yield 13356, photo_loading()
    yield 20301, sample.colour_sample()
    yield 20303, service_picture()
    yield 22321, favourites_picture(True)
    yield 22322, favourites_picture(False)
