"""Files as the resource compiler takes them: bitmaps of 8 bits a pixel, icons and cursors of 32.

Layouts: BITMAPINFOHEADER, ICONDIR and CURSORDIR as the platform publishes them.
"""

import struct

_HEADER = struct.Struct("<IiiHHIIiiII")
_MOST_COLOURS = 256
_PIXELS_PER_METRE = 3780  # 96 to the inch


def _reduced(rows, key):
    """The rows with at most 256 colours, keeping the key exact: channels lose bits until it is enough."""
    for bits in (8, 7, 6, 5, 4, 3):
        step, half = 1 << (8 - bits), (1 << (8 - bits)) >> 1

        def channel(value):
            return min(255, (value + half) // step * step) if bits < 8 else value

        def reduce(colour):
            if colour == key:
                return colour
            red, green, blue = (channel(colour >> shift & 0xFF) for shift in (16, 8, 0))
            reduced = red << 16 | green << 8 | blue
            return reduced if reduced != key else reduced ^ 0x000800

        known = {colour: reduce(colour) for colour in {c for row in rows for c in row}}
        if len(set(known.values())) <= _MOST_COLOURS:
            return [[known[c] for c in row] for row in rows]
    raise ValueError("a picture of eight colours a channel is too colourful")


def bitmap8(rows, key):
    """A .bmp file of 8 bits a pixel, bottom up, whose header counts its colours."""
    rows = _reduced(rows, key)
    palette = sorted({c for row in rows for c in row})
    index = {c: i for i, c in enumerate(palette)}
    width, height = len(rows[0]), len(rows)
    padding = bytes(-width % 4)
    pixels = b"".join(bytes(index[c] for c in row) + padding for row in reversed(rows))
    colours = b"".join(struct.pack("<I", c) for c in palette)
    header = _HEADER.pack(_HEADER.size, width, height, 1, 8, 0, len(pixels), _PIXELS_PER_METRE,
                          _PIXELS_PER_METRE, len(palette), 0)
    offset = 14 + len(header) + len(colours)
    return struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset) + header + colours + pixels


def _image32(rows):
    """An icon's image: 32-bit pixels bottom up, then the one-bit mask of what is transparent."""
    width, height = len(rows[0]), len(rows)
    pixels = b"".join(struct.pack("<4B", blue, green, red, alpha)
                      for row in reversed(rows) for red, green, blue, alpha in row)
    mask = b""
    for row in reversed(rows):
        bits = "".join("1" if alpha < 128 else "0" for *_, alpha in row)
        bits += "0" * (-width % 32)
        mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
    return _HEADER.pack(_HEADER.size, width, 2 * height, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0) + pixels + mask


def _directory(kind, images, fields):
    offset = 6 + 16 * len(images)
    entries, data = b"", b""
    for rows, (first, second) in zip(images, fields):
        image = _image32(rows)
        entries += struct.pack("<BBBBHHII", len(rows[0]) & 0xFF, len(rows) & 0xFF, 0, 0, first, second,
                               len(image), offset + len(data))
        data += image
    return struct.pack("<HHH", 0, kind, len(images)) + entries + data


def icon(images):
    """An .ico file of several sizes, each given as rows of (red, green, blue, alpha)."""
    return _directory(1, images, [(1, 32)] * len(images))


def cursor(rows, hot_spot):
    return _directory(2, [rows], [hot_spot])
