"""The sample of the colour settings: a scene on which a change of colours can be judged. Skin, sky, foliage and pure
colours under soft light, with patches of pure inks and a ramp of greys below."""

import math

import cairo

from canvas import Canvas, rgb
from style import blend

WIDTH, HEIGHT = 180, 136
SCENE = 104  # rows; patches and ramp share the rest


def gradient(pattern, stops):
    for place, colour, alpha in stops:
        pattern.add_color_stop_rgba(place, *rgb(colour), alpha)
    return pattern


def pour(canvas, pattern):
    canvas.context.set_source(pattern)
    canvas.context.fill()


def falling(top, bottom, *stops):
    """A gradient from row `top` to row `bottom`; stops are (share, colour)."""
    return gradient(cairo.LinearGradient(0, top, 0, bottom), [(share, colour, 1) for share, colour in stops])


def ball(canvas, x, y, radius, light, colour, dark, height=1.0):
    """A round thing with the light from the upper left; `height` squeezes it."""
    c = canvas.context
    c.save()
    c.translate(x, y)
    c.scale(1, height)
    c.arc(0, 0, radius, 0, 2 * math.pi)
    pour(canvas, gradient(cairo.RadialGradient(-radius * .35, -radius * .4, radius * .1, 0, 0, radius * 1.05),
                          [(0, light, 1), (.45, colour, 1), (1, dark, 1)]))
    c.restore()


def glow(canvas, x, y, radius, colour, alpha):
    canvas.context.arc(x, y, radius, 0, 2 * math.pi)
    pour(canvas, gradient(cairo.RadialGradient(x, y, 0, x, y, radius), [(0, colour, alpha), (1, colour, 0)]))


def curve(canvas, points, pattern):
    """A smooth line of hills through `points`, filled down to the scene's edge."""
    c = canvas.context
    c.move_to(*points[0])
    for (x1, y1), (x2, y2) in zip(points, points[1:]):
        middle = (x1 + x2) / 2
        c.curve_to(middle, y1, middle, y2, x2, y2)
    c.line_to(WIDTH, SCENE)
    c.line_to(0, SCENE)
    c.close_path()
    pour(canvas, pattern)


def landscape(canvas):
    canvas.context.rectangle(0, 0, WIDTH, SCENE)
    pour(canvas, falling(0, 72, (0, 0x2F74C8), (.55, 0x86B9E8), (1, 0xE9F1F4)))
    glow(canvas, 148, 18, 40, 0xFFF3C4, .95)
    canvas.circle(148, 18, 8, 0xFFF8DC)
    for x, y, radius in ((78, 20, 13), (90, 17, 15), (103, 21, 12), (118, 36, 9), (127, 34, 10), (62, 24, 8)):
        glow(canvas, x, y, radius, 0xFFFFFF, .85)
    curve(canvas, [(0, 58), (34, 46), (74, 60), (112, 44), (150, 56), (WIDTH, 48)],
          falling(44, 72, (0, 0x6F93B5), (1, 0xA7BFCB)))
    curve(canvas, [(0, 66), (50, 58), (104, 68), (146, 60), (WIDTH, 66)],
          falling(58, 84, (0, 0x5C8C53), (1, 0x86A95F)))
    curve(canvas, [(0, 80), (60, 73), (120, 79), (WIDTH, 72)], falling(72, SCENE, (0, 0x7FB043), (1, 0x2F6B2A)))


def tree(canvas, x, y):
    canvas.polygon([(x - 2.5, y), (x - 1.5, y - 16), (x + 1.5, y - 16), (x + 2.5, y)], 0x5D4129)
    for dx, dy, radius in ((-7, -17, 8), (7, -18, 8), (0, -26, 10), (-3, -14, 7), (4, -13, 6)):
        ball(canvas, x + dx, y + dy, radius, 0x8FBF4D, 0x3F7D33, 0x1D4A22)


def portrait(canvas, x, y):
    """Head and shoulders; (x, y) is the tip of the chin."""
    c = canvas.context
    c.move_to(x - 30, SCENE)
    c.curve_to(x - 29, y + 14, x - 16, y + 9, x - 8, y + 7)
    c.line_to(x + 8, y + 7)
    c.curve_to(x + 16, y + 9, x + 29, y + 14, x + 30, SCENE)
    c.close_path()
    pour(canvas, falling(y + 6, SCENE, (0, 0xC8324A), (1, 0x7C1730)))
    ball(canvas, x, y - 24, 20, 0x7A4B2C, 0x4A2B1A, 0x24130B, 1.12)  # hair
    c.move_to(x - 7, y - 8)
    c.line_to(x - 8, y + 8)
    c.curve_to(x - 4, y + 15, x + 4, y + 15, x + 8, y + 8)
    c.line_to(x + 7, y - 8)
    c.close_path()
    pour(canvas, falling(y - 8, y + 13, (0, 0xB77B57), (1, 0xDDA682)))
    ball(canvas, x, y - 16, 15, 0xFBE0C8, 0xE9B592, 0xB9784F, 1.2)
    for side in (-1, 1):
        glow(canvas, x + side * 8.5, y - 11, 5, 0xE0705C, .40)
        canvas.box(x + side * 6 - 3, y - 24.5, 6, 1.4, 0x4A2B1A)
        ball(canvas, x + side * 6, y - 19.5, 2, 0x6B4A2E, 0x2E1C10, 0x1A0F08)
        canvas.circle(x + side * 6 - .6, y - 20.2, .6, 0xFFFFFF)
    c.move_to(x - .5, y - 18)
    c.curve_to(x + 2.5, y - 13, x + 2, y - 12.4, x - 1, y - 12)
    canvas.stroke(0xA96A45, 1.1)
    c.move_to(x - 5, y - 7)
    c.curve_to(x - 2, y - 3, x + 2, y - 3, x + 5, y - 7)
    c.curve_to(x + 2, y - 6.2, x - 2, y - 6.2, x - 5, y - 7)
    canvas.fill(0xB8413F)
    c.move_to(x - 15.5, y - 18)
    c.curve_to(x - 15, y - 38, x + 2, y - 39, x + 15.5, y - 20)
    c.curve_to(x + 15, y - 30, x + 10, y - 37, x - 1, y - 37)
    c.curve_to(x - 11, y - 37, x - 17, y - 30, x - 15.5, y - 18)
    pour(canvas, falling(y - 38, y - 18, (0, 0x6B4227), (1, 0x3A2114)))


def fruit(canvas):
    for x, y, radius, light, colour, dark in ((122, 92, 10, 0xFF9A86, 0xD3202C, 0x6E0B14),
                                              (142, 93, 9, 0xFFD08A, 0xF08A12, 0x9A4C05),
                                              (160, 94, 8, 0xFFF6A8, 0xF2CF1B, 0x9C7A06),
                                              (151, 83, 7, 0xC9A8F0, 0x6A2FB0, 0x2F0F5C)):
        glow(canvas, x + 2, y + radius, radius * 1.2, 0x14300F, .35)
        ball(canvas, x, y, radius, light, colour, dark)
        glow(canvas, x - radius * .4, y - radius * .45, radius * .35, 0xFFFFFF, .9)


def patches(canvas):
    colours = (0xE2001A, 0xF08A12, 0xFFE600, 0x009640, 0x00A0E0, 0x1D3C9A, 0x8A2A8C, 0xE4007D, 0x7A4A32, 0xE9B592)
    for i, colour in enumerate(colours):
        canvas.box(18 * i, SCENE, 18, 14, colour)
    for i in range(WIDTH // 10):
        canvas.box(10 * i, SCENE + 14, 10, HEIGHT - SCENE - 14, blend(0x000000, 0xFFFFFF, i / (WIDTH // 10 - 1)))
    canvas.box(0, SCENE, WIDTH, 1, 0xFFFFFF)


def colour_sample():
    canvas = Canvas(WIDTH, HEIGHT)
    landscape(canvas)
    tree(canvas, 96, 80)
    portrait(canvas, 42, 84)
    fruit(canvas)
    patches(canvas)
    return canvas
