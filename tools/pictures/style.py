"""One hand for all pictures: the colours, and the things that they are made of."""

KEY_MAGENTA = 0xFF00FF
KEY_OLIVE = 0x808000

PAPER = 0xFFFFFF
PAPER_BACK = 0xF1F4F8
EDGE = 0x8A94A0
SHADE = 0x20303F
BUTTON_FACE = 0xF0F0F0
INK = 0x33404D
BLUE = 0x1F5FBF
BLUE_LIGHT = 0x7FB0EA
BLUE_DEEP = 0x123A78
WARM = 0xF08A24
GREEN = 0x4E9F3D
RED = 0xD8433B
NEUTRAL = 0xB4BCC6
WHITE = 0xFFFFFF


def grey_of(colour):
    """The shade that a colour prints as without colour (ITU-R BT.601 weights)."""
    red, green, blue = (colour >> shift & 0xFF for shift in (16, 8, 0))
    grey = (299 * red + 587 * green + 114 * blue + 500) // 1000
    return grey << 16 | grey << 8 | grey


def blend(colour, other, share):
    """`share` of `other` in `colour`."""
    channels = []
    for shift in (16, 8, 0):
        a, b = colour >> shift & 0xFF, other >> shift & 0xFF
        channels.append(round(a + (b - a) * share))
    return channels[0] << 16 | channels[1] << 8 | channels[2]


class Ink:
    """How the chosen quality puts colours on paper: colour or greys, and how strong."""

    def __init__(self, colour=True, strength=1.0):
        self.colour, self.strength = colour, strength

    def __call__(self, colour):
        if not self.colour:
            colour = grey_of(colour)
        return blend(PAPER, colour, self.strength)


FULL = Ink()


def sheet(canvas, x, y, width, height, colour=PAPER, edge=EDGE):
    """A sheet of paper with a one-pixel edge and a soft shade of two pixels to the right and below; the shade is
    inside of the given place."""
    for step, alpha in ((2, 0.10), (1, 0.22)):
        canvas.box(x + step, y + step, width - 2, height - 2, SHADE, alpha)
    canvas.box(x, y, width - 2, height - 2, colour)
    canvas.frame(x, y, width - 2, height - 2, edge)


def text_lines(canvas, x, y, width, count, pitch=5, thick=2, ink=FULL, heading=True, last=0.6, coarse=False):
    """Text as bars on a regular grid, the first one a heading in the accent colour."""
    for i in range(count):
        length = width * (0.55 if heading and i == 0 else last if i == count - 1 else 1.0)
        colour = ink(BLUE if heading and i == 0 else NEUTRAL if not coarse else blend(NEUTRAL, INK, 0.15))
        at = y + i * pitch
        if coarse:
            for dot in range(int(length) // 3):
                canvas.box(round(x) + 3 * dot, at, 2, thick, colour)
        else:
            canvas.box(round(x), at, round(length), thick, colour)


def photo(canvas, x, y, width, height, ink=FULL, grain=0, smooth=False):
    """A small coloured picture: sky, sun, hills. `grain` lays a screen of dots over it, as drafts have."""
    c = canvas.context
    c.save()
    c.rectangle(x, y, width, height)
    c.clip()
    bands = 12 if smooth else 4
    for i in range(bands):
        share = i / (bands - 1)
        canvas.box(x, y + height * i / bands, width, height / bands + 1,
                   ink(blend(0x5AA2E6, 0xD8ECFB, share)))
    if smooth:
        canvas.circle(x + width * 0.76, y + height * 0.27, min(width, height) * 0.17, ink(0xFFF0B8))
    canvas.circle(x + width * 0.76, y + height * 0.27, min(width, height) * 0.12, ink(0xFFC53D))
    for points, colour in (
            (((0, .72), (.28, .38), (.52, .62), (.72, .46), (1, .7), (1, 1), (0, 1)), 0x5C9E6B),
            (((0, .86), (.3, .66), (.62, .84), (1, .6), (1, 1), (0, 1)), 0x3C7F45)):
        canvas.polygon([(x + width * px, y + height * py) for px, py in points], ink(colour))
    if smooth:
        canvas.polygon([(x + width * px, y + height * py)
                        for px, py in ((.28, .38), (.35, .462), (.3, .48), (.24, .46), (.2, .48))], ink(0xEAF3F5))
    if grain:
        for row in range(0, int(height), grain):
            for column in range((row // grain) % 2 * grain // 2, int(width), grain):
                canvas.box(x + column, y + row, 1, 1, PAPER, 0.75)
    c.restore()
    canvas.frame(x, y, width, height, ink(EDGE))


def badge(canvas, x, y, text, size=9):
    """A small round mark with a sign in it."""
    canvas.circle(x, y, size * 0.75, BLUE)
    canvas.text(x, y, text, size, WHITE, bold=True)
