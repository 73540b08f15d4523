#!/usr/bin/env python3
"""Draw the library's icon, a white water drop on a blue tile, into a Windows .ico file.

    python3 tools/windows/make_icon.py [OUTPUT]   (default src/desktop/windows/tavlib6.ico)

Writes 16, 32 and 48 pixel images, 32-bit with alpha. Standard library only; the committed icon
is this script's output.
"""
import math
import os
import struct
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SIZES = (16, 32, 48)
TILE = (0x1f, 0x5f, 0xa8)      # RGB
TILE_EDGE = (0x12, 0x3d, 0x70)
DROP = (0xff, 0xff, 0xff)
SHINE = (0x9c, 0xc8, 0xf0)
SAMPLES = 4                    # per axis, for smooth edges


def inside_tile(x, y):
    """A square with rounded corners over the unit square."""
    r = 0.2
    cx = min(max(x, r), 1 - r)
    cy = min(max(y, r), 1 - r)
    return (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def inside_drop(x, y):
    """A drop: a circle at the bottom whose tangents meet in a point at the top."""
    cx, cy, r = 0.5, 0.62, 0.24
    tip = 0.14
    if (x - cx) ** 2 + (y - cy) ** 2 <= r * r:
        return True
    # above the circle, the two tangent lines from the tip bound the drop
    d = cy - tip
    half_angle = math.asin(r / d)
    touch = tip + math.sqrt(d * d - r * r) * math.cos(half_angle)
    if y < tip or y > touch:
        return False
    return abs(x - cx) <= (y - tip) * math.tan(half_angle)


def inside_shine(x, y):
    return (x - 0.41) ** 2 / 0.003 + (y - 0.62) ** 2 / 0.01 <= 1.0


def pixel(size, px, py):
    """RGBA of one pixel, by supersampling; y grows downwards."""
    acc = [0.0, 0.0, 0.0, 0.0]
    n = SAMPLES * SAMPLES
    for sy in range(SAMPLES):
        for sx in range(SAMPLES):
            x = (px + (sx + 0.5) / SAMPLES) / size
            y = (py + (sy + 0.5) / SAMPLES) / size
            if not inside_tile(x, y):
                continue
            if inside_drop(x, y):
                colour = SHINE if inside_shine(x, y) else DROP
            elif not inside_tile(x * 0.92 + 0.04, y * 0.92 + 0.04):
                colour = TILE_EDGE
            else:
                colour = TILE
            for k in range(3):
                acc[k] += colour[k]
            acc[3] += 255
    if acc[3] == 0:
        return (0, 0, 0, 0)
    covered = acc[3] / 255
    return tuple(int(round(c / covered)) for c in acc[:3]) + (int(round(acc[3] / n)),)


def image(size):
    """The BMP part of one icon image: header, bottom-up BGRA rows, an empty AND mask."""
    rows = []
    for py in reversed(range(size)):
        row = b''
        for px in range(size):
            r, g, b, a = pixel(size, px, py)
            row += bytes((b, g, r, a))
        rows.append(row)
    mask_row = b'\0' * (((size + 31) // 32) * 4)
    pixels = b''.join(rows)
    header = struct.pack('<IiiHHIIiiII', 40, size, 2 * size, 1, 32, 0, len(pixels), 0, 0, 0, 0)
    return header + pixels + mask_row * size


def icon():
    images = [image(s) for s in SIZES]
    out = struct.pack('<HHH', 0, 1, len(images))
    offset = 6 + 16 * len(images)
    for size, data in zip(SIZES, images):
        out += struct.pack('<BBBBHHII', size, size, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    return out + b''.join(images)


def main():
    path = sys.argv[1] if len(sys.argv) > 1 else os.path.join(ROOT, 'src', 'desktop', 'windows', 'tavlib6.ico')
    with open(path, 'wb') as f:
        f.write(icon())
    return 0


if __name__ == '__main__':
    sys.exit(main())
