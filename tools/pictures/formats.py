"""Files as the resource compiler takes them: bitmaps of 8 bits a pixel, icons and cursors of 32.

Layouts: BITMAPINFOHEADER, ICONDIR and CURSORDIR as the platform publishes them.
"""

import struct
from collections import Counter

_HEADER = struct.Struct("<IiiHHIIiiII")
_MOST_COLOURS = 256
_PIXELS_PER_METRE = 3780  # 96 to the inch


def _channels(colour):
    return [colour >> shift & 0xFF for shift in (16, 8, 0)]


def _widest(counts):
    """How far a group of colours reaches in its widest channel, and which that is."""
    spans = [max(channel) - min(channel) for channel in zip(*map(_channels, counts))]
    return max(spans), spans.index(max(spans))


def _halves(counts):
    """A group of colours cut at the median of its widest channel; both halves have colours."""
    channel = _widest(counts)[1]
    ordered = sorted(counts, key=lambda colour: (_channels(colour)[channel], colour))
    half, seen = sum(counts.values()) / 2, 0
    for cut, colour in enumerate(ordered[:-1], 1):
        seen += counts[colour]
        if seen >= half:
            break
    return [{c: counts[c] for c in part} for part in (ordered[:cut], ordered[cut:])]


def _average(counts):
    pixels = sum(counts.values())
    sums = [sum(_channels(c)[i] * n for c, n in counts.items()) for i in range(3)]
    red, green, blue = ((s + pixels // 2) // pixels for s in sums)
    return red << 16 | green << 8 | blue


def _reduced(rows, key):
    """The rows with at most 256 colours, the key kept exact: the group of colours that is worst shown by one colour
    is halved until there are enough groups."""
    counts = Counter(c for row in rows for c in row)
    if len(counts) <= _MOST_COLOURS:
        return rows
    counts.pop(key, None)
    groups = [dict(counts)]
    while len(groups) < _MOST_COLOURS - 1:
        worst = max(range(len(groups)), key=lambda i: _widest(groups[i])[0] ** 2 * sum(groups[i].values()))
        groups[worst:worst + 1] = _halves(groups[worst])
    known = {key: key}
    for group in groups:
        shown = _average(group)
        known.update(dict.fromkeys(group, shown if shown != key else shown ^ 0x000800))
    return [[known[c] for c in row] for row in rows]


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
