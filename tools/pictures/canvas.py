"""A picture in the making: drawn with Cairo in device pixels, read back as plain rows of colours."""

import math

import cairo

from style import KEY_MAGENTA


def rgb(colour):
    """0xRRGGBB as three numbers from 0 to 1."""
    return tuple((colour >> shift & 0xFF) / 255 for shift in (16, 8, 0))


class Canvas:
    """Pixels that nothing was drawn on come out as the key colour; half covered ones are laid on the ground, the
    colour that the control is filled with. So the key never bleeds into an edge."""

    def __init__(self, width, height, ground=0xFFFFFF, key=KEY_MAGENTA):
        self.width, self.height, self.ground, self.key = width, height, ground, key
        self.surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, width, height)
        self.context = cairo.Context(self.surface)
        self.context.set_antialias(cairo.ANTIALIAS_BEST)

    # ---- shapes -------------------------------------------------------------------------------------------

    def fill(self, colour, alpha=1.0):
        self.context.set_source_rgba(*rgb(colour), alpha)
        self.context.fill()

    def fill_preserved(self, colour):
        self.context.set_source_rgb(*rgb(colour))
        self.context.fill_preserve()

    def stroke(self, colour, width=1.0, alpha=1.0, dashes=()):
        self.context.set_source_rgba(*rgb(colour), alpha)
        self.context.set_line_width(width)
        self.context.set_dash(dashes)
        self.context.stroke()

    def box(self, x, y, width, height, colour, alpha=1.0):
        self.context.rectangle(x, y, width, height)
        self.fill(colour, alpha)

    def frame(self, x, y, width, height, colour, line=1.0):
        self.context.rectangle(x + line / 2, y + line / 2, width - line, height - line)
        self.stroke(colour, line)

    def rounded(self, x, y, width, height, radius):
        c = self.context
        c.new_sub_path()
        c.arc(x + width - radius, y + radius, radius, -math.pi / 2, 0)
        c.arc(x + width - radius, y + height - radius, radius, 0, math.pi / 2)
        c.arc(x + radius, y + height - radius, radius, math.pi / 2, math.pi)
        c.arc(x + radius, y + radius, radius, math.pi, 3 * math.pi / 2)
        c.close_path()

    def polygon(self, points, colour, alpha=1.0):
        self.path(points)
        self.fill(colour, alpha)

    def path(self, points, closed=True):
        self.context.move_to(*points[0])
        for point in points[1:]:
            self.context.line_to(*point)
        if closed:
            self.context.close_path()

    def line(self, x1, y1, x2, y2, colour, width=1.0, dashes=()):
        self.context.move_to(x1, y1)
        self.context.line_to(x2, y2)
        self.stroke(colour, width, dashes=dashes)

    def circle(self, x, y, radius, colour, alpha=1.0):
        self.context.arc(x, y, radius, 0, 2 * math.pi)
        self.fill(colour, alpha)

    def arrow(self, x1, y1, x2, y2, colour, width=2.0, head=5.0):
        """A straight arrow that ends in a filled head at (x2, y2)."""
        angle = math.atan2(y2 - y1, x2 - x1)
        neck = (x2 - head * math.cos(angle), y2 - head * math.sin(angle))
        self.line(x1, y1, *neck, colour, width)
        side = head * 0.62
        self.polygon([(x2, y2),
                      (neck[0] - side * math.sin(angle), neck[1] + side * math.cos(angle)),
                      (neck[0] + side * math.sin(angle), neck[1] - side * math.cos(angle))], colour)

    def text(self, x, y, text, size, colour, bold=False, italic=False, centred=True):
        """Text around (x, y), or from x with y as its middle."""
        c = self.context
        c.select_font_face("Liberation Sans", cairo.FONT_SLANT_ITALIC if italic else cairo.FONT_SLANT_NORMAL,
                           cairo.FONT_WEIGHT_BOLD if bold else cairo.FONT_WEIGHT_NORMAL)
        c.set_font_size(size)
        extents = c.text_extents(text)
        left = x - extents.x_bearing - (extents.width / 2 if centred else 0)
        c.move_to(left, y - extents.y_bearing - extents.height / 2)
        c.set_source_rgb(*rgb(colour))
        c.show_text(text)

    # ---- pixels -------------------------------------------------------------------------------------------

    def straight(self):
        """Rows of (red, green, blue, alpha), not premultiplied."""
        self.surface.flush()
        data, stride = bytes(self.surface.get_data()), self.surface.get_stride()
        rows = []
        for y in range(self.height):
            row = []
            for x in range(self.width):
                blue, green, red, alpha = data[y * stride + 4 * x: y * stride + 4 * x + 4]
                if alpha:
                    red, green, blue = (min(255, (v * 255 + alpha // 2) // alpha) for v in (red, green, blue))
                row.append((red, green, blue, alpha))
            rows.append(row)
        return rows

    def opaque(self):
        """Rows of 0xRRGGBB, with the key where nothing was drawn."""
        ground = [self.ground >> shift & 0xFF for shift in (16, 8, 0)]
        rows = []
        for row in self.straight():
            out = []
            for red, green, blue, alpha in row:
                if alpha == 0:
                    out.append(self.key)
                    continue
                mixed = [(v * alpha + g * (255 - alpha) + 127) // 255
                         for v, g in zip((red, green, blue), ground)]
                colour = mixed[0] << 16 | mixed[1] << 8 | mixed[2]
                out.append(colour ^ 0x000100 if colour == self.key else colour)
            rows.append(out)
        return rows
