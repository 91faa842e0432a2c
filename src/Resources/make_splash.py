#!/usr/bin/env python3
"""Draws img/splash.png, the picture shown while the program starts: a cat's head, half wireframe and half shaded.

Needs nothing but Python: the head is a subdivided icosahedron pushed into shape, drawn back to front into a grid of
palette indices several times as fine as the picture, which is then averaged and written as PNG.

    python3 make_splash.py [OUT.png]
"""

import math
import os
import struct
import sys
import zlib

WIDTH, HEIGHT = 1024, 512
FINE = 3  # samples a pixel, each way

PALETTE = []


def colour(text):
    """Index of the colour "#rrggbb" in the palette."""
    rgb = tuple(int(text[i:i + 2], 16) for i in (1, 3, 5))
    if rgb not in PALETTE:
        PALETTE.append(rgb)
    return PALETTE.index(rgb)


BACKGROUND = [colour(c) for c in ("#20242e", "#222733", "#252a37", "#282e3c")]
FUR = [colour(c) for c in ("#8f3d3a", "#c65a45", "#ef8354", "#ffb27a")]
INNER_EAR = [colour(c) for c in ("#6d2f3f", "#93435a", "#b75a74", "#d77c92")]
MUZZLE = [colour(c) for c in ("#b9a79b", "#dccbbd", "#f6e9dc", "#fff7ee")]
OUTLINE = colour("#14171e")
WIRE = colour("#5fd0e6")
POINT = colour("#d8f6ff")
EYE = colour("#2fb38a")
GLINT = colour("#ffffff")
NOSE = colour("#7a2c3a")
LETTER = colour("#f4f1ea")
LETTER_SHADE = colour("#ef8354")


NOSE_TIP = (0, -0.33, 1.22)


class Canvas:
    def __init__(self):
        self.width, self.height = WIDTH * FINE, HEIGHT * FINE
        self.rows = [bytearray([BACKGROUND[0]]) * self.width for _ in range(self.height)]

    def polygon(self, points, index):
        """Fills a polygon given in pixels of the picture."""
        points = [(x * FINE, y * FINE) for x, y in points]
        first = max(0, math.ceil(min(y for _, y in points) - 0.5))
        last = min(self.height - 1, math.floor(max(y for _, y in points) - 0.5))
        for row in range(first, last + 1):
            self._fill_row(points, row, index)

    def _fill_row(self, points, row, index):
        middle = row + 0.5
        crossings = []
        for (x0, y0), (x1, y1) in zip(points, points[1:] + points[:1]):
            if (y0 <= middle) != (y1 <= middle):
                crossings.append(x0 + (middle - y0) * (x1 - x0) / (y1 - y0))
        crossings.sort()
        for left, right in zip(crossings[::2], crossings[1::2]):
            start = max(0, math.ceil(left - 0.5))
            end = min(self.width, math.floor(right - 0.5) + 1)
            if end > start:
                self.rows[row][start:end] = bytes([index]) * (end - start)

    def line(self, a, b, thickness, index):
        length = math.hypot(b[0] - a[0], b[1] - a[1])
        if length == 0:
            return
        nx, ny = (b[1] - a[1]) / length * thickness / 2, (a[0] - b[0]) / length * thickness / 2
        self.polygon([(a[0] + nx, a[1] + ny), (b[0] + nx, b[1] + ny), (b[0] - nx, b[1] - ny), (a[0] - nx, a[1] - ny)],
                     index)

    def disc(self, centre, radius, index, squash=1.0):
        steps = 24
        self.polygon([(centre[0] + radius * squash * math.cos(2 * math.pi * i / steps),
                       centre[1] + radius * math.sin(2 * math.pi * i / steps)) for i in range(steps)], index)

    def pixels(self):
        """The averaged picture as rows of RGB bytes."""
        share = FINE * FINE
        for top in range(0, self.height, FINE):
            rows = self.rows[top:top + FINE]
            out = bytearray()
            for left in range(0, self.width, FINE):
                samples = b"".join(bytes(row[left:left + FINE]) for row in rows)
                if samples.count(samples[0]) == share:
                    out += bytes(PALETTE[samples[0]])
                else:
                    out += bytes(sum(PALETTE[s][c] for s in samples) // share for c in range(3))
            yield bytes(out)

    def save(self, path):
        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

        raw = b"".join(b"\0" + row for row in self.pixels())
        with open(path, "wb") as out:
            out.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", WIDTH, HEIGHT, 8, 2, 0, 0, 0))
                      + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b""))


def normalised(v):
    length = math.sqrt(sum(c * c for c in v))
    return tuple(c / length for c in v)


def icosphere(levels):
    """Vertices on the unit sphere and triangles, mirror-symmetric in x."""
    g = (1 + math.sqrt(5)) / 2
    points = [normalised(p) for p in (
        (-1, g, 0), (1, g, 0), (-1, -g, 0), (1, -g, 0), (0, -1, g), (0, 1, g),
        (0, -1, -g), (0, 1, -g), (g, 0, -1), (g, 0, 1), (-g, 0, -1), (-g, 0, 1))]
    faces = [(0, 11, 5), (0, 5, 1), (0, 1, 7), (0, 7, 10), (0, 10, 11), (1, 5, 9), (5, 11, 4), (11, 10, 2), (10, 7, 6),
             (7, 1, 8), (3, 9, 4), (3, 4, 2), (3, 2, 6), (3, 6, 8), (3, 8, 9), (4, 9, 5), (2, 4, 11), (6, 2, 10),
             (8, 6, 7), (9, 8, 1)]
    for _ in range(levels):
        middles = {}

        def middle(a, b):
            key = (min(a, b), max(a, b))
            if key not in middles:
                middles[key] = len(points)
                points.append(normalised(tuple((p + q) / 2 for p, q in zip(points[a], points[b]))))
            return middles[key]

        split = []
        for a, b, c in faces:
            ab, bc, ca = middle(a, b), middle(b, c), middle(c, a)
            split += [(a, ab, ca), (b, bc, ab), (c, ca, bc), (ab, bc, ca)]
        faces = split
    return points, faces


def shaped(p):
    """Turns a point of the sphere into one of the head: wide cheeks, flat back, a short muzzle."""
    x, y, z = p
    cheek = math.exp(-((y + 0.25) / 0.35) ** 2)
    x *= 1.12 + 0.16 * cheek * (z > -0.5)
    muzzle = math.exp(-((x / 0.42) ** 2 + ((y + 0.36) / 0.3) ** 2)) * max(0.0, z)
    z = z * (0.92 if z > 0 else 0.8) + 0.34 * muzzle
    y = y * 0.92 - 0.04 * muzzle
    return x, y, z


def head():
    """Vertices, and triangles each with the colours of its part."""
    sphere, triangles = icosphere(2)
    points = [shaped(p) for p in sphere]
    faces = []
    for face in triangles:
        x, y, z = (sum(points[i][c] for i in face) / 3 for c in range(3))
        part = MUZZLE if z > 0.55 and math.hypot(x / 0.5, (y + 0.36) / 0.34) < 1 else FUR
        faces.append((face, part))
    for side in (-1, 1):
        base = len(points)
        points += [(side * x, y, z) for x, y, z in (
            (0.22, 0.80, 0.22), (0.98, 0.42, 0.16), (0.62, 0.52, -0.38), (0.86, 1.42, 0.02),
            (0.36, 0.80, 0.27), (0.86, 0.52, 0.25), (0.78, 1.22, 0.12))]
        ear = [((0, 1, 3), FUR), ((1, 2, 3), FUR), ((2, 0, 3), FUR), ((4, 5, 6), INNER_EAR)]
        for face, part in ear:
            turned = face if side > 0 else (face[0], face[2], face[1])
            faces.append((tuple(base + i for i in turned), part))
    return points, faces


class View:
    """Looks at the head from the front, a little from the side and from above."""

    def __init__(self, centre, scale, yaw, pitch):
        self.centre, self.scale, self.yaw, self.pitch = centre, scale, yaw, pitch

    def turned(self, p):
        x, y, z = p
        c, s = math.cos(self.yaw), math.sin(self.yaw)
        x, z = c * x + s * z, c * z - s * x
        c, s = math.cos(self.pitch), math.sin(self.pitch)
        return x, c * y - s * z, s * y + c * z

    def placed(self, p):
        x, y, _ = self.turned(p)
        return self.centre[0] + x * self.scale, self.centre[1] - y * self.scale


def face_normal(a, b, c):
    u = [q - p for p, q in zip(a, b)]
    v = [q - p for p, q in zip(a, c)]
    return normalised((u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]))


def tone(normal):
    """One of four steps of light, as a toon shader gives."""
    light = normalised((0.45, 0.75, 0.65))
    amount = sum(n * l for n, l in zip(normal, light))
    return sum(amount > limit for limit in (0.0, 0.4, 0.86))


def clipped(polygon, split, keep_right):
    """The part of a polygon on one side of the upright line x = split."""
    inside = (lambda p: p[0] >= split) if keep_right else (lambda p: p[0] <= split)
    out = []
    for a, b in zip(polygon, polygon[1:] + polygon[:1]):
        if inside(a):
            out.append(a)
        if inside(a) != inside(b):
            out.append((split, a[1] + (split - a[0]) * (b[1] - a[1]) / (b[0] - a[0])))
    return out


def draw_background(canvas):
    """Large triangles in nearly the same dark colour."""
    step = 128
    for row in range(HEIGHT // step):
        for column in range(-1, WIDTH // step + 1):
            x, y = column * step + (row % 2) * step / 2, row * step
            shift = (row * 7 + column * 5) % 4
            canvas.polygon([(x, y), (x + step, y), (x + step / 2, y + step)], BACKGROUND[shift])
            canvas.polygon([(x + step, y), (x + step * 1.5, y + step), (x + step / 2, y + step)],
                           BACKGROUND[(shift + 2) % 4])


def middle_of_face(view):
    """Where wireframe and shading meet: at the tip of the nose."""
    return view.placed(NOSE_TIP)[0]


def draw_head(canvas, view):
    points, faces = head()
    split = middle_of_face(view)
    turned = [view.turned(p) for p in points]
    flat = [view.placed(p) for p in points]
    front = []
    for face, part in faces:
        normal = face_normal(*(turned[i] for i in face))
        if normal[2] > 0:
            front.append((sum(turned[i][2] for i in face), face, part, normal))
    front.sort(key=lambda entry: entry[0])

    shaded = [(clipped([flat[i] for i in face], split, True), part[tone(normal)]) for _, face, part, normal in front]
    shaded = [(shape, index) for shape, index in shaded if len(shape) > 2]
    for shape, _ in shaded:  # a dark hull slightly larger than the head makes its outline
        for a, b in zip(shape, shape[1:] + shape[:1]):
            if a[0] > split + 0.1 or b[0] > split + 0.1:
                canvas.line(a, b, 9, OUTLINE)
                canvas.disc(a, 4.5, OUTLINE)
    for shape, index in shaded:
        canvas.polygon(shape, index)

    for _, face, _, _ in front:
        shape = clipped([flat[i] for i in face], split, False)
        if len(shape) < 3:
            continue
        canvas.polygon(shape, BACKGROUND[0])
        for a, b in zip(shape, shape[1:] + shape[:1]):
            if min(a[0], b[0]) < split - 0.1:
                canvas.line(a, b, 1.5, WIRE)
        for i in face:
            if flat[i][0] < split:
                canvas.disc(flat[i], 2.6, POINT)


def draw_face(canvas, view):
    split = middle_of_face(view)
    draw_eye_shaded(canvas, view.placed((0.47, 0.1, 0.82)))
    draw_eye_wired(canvas, view.placed((-0.47, 0.1, 0.82)))

    nose = [view.placed(p) for p in ((-0.13, -0.2, 1.18), (0.13, -0.2, 1.18), NOSE_TIP)]
    canvas.polygon(clipped(nose, split, True), NOSE)
    canvas.line(nose[0], (split, nose[0][1]), 2, WIRE)
    canvas.line(nose[0], nose[2], 2, WIRE)
    canvas.disc(nose[0], 2.6, POINT)

    mouth = (split, view.placed((0, -0.46, 1.2))[1])
    canvas.line(mouth, view.placed((-0.2, -0.56, 1.1)), 2, WIRE)
    canvas.line(nose[2], mouth, 4, OUTLINE)
    canvas.line(mouth, view.placed((0.2, -0.56, 1.1)), 4, OUTLINE)


def draw_eye_shaded(canvas, centre):
    canvas.disc(centre, 30, OUTLINE, 0.82)
    canvas.disc(centre, 25, EYE, 0.82)
    canvas.disc(centre, 21, OUTLINE, 0.36)
    canvas.disc((centre[0] + 7, centre[1] - 10), 5.5, GLINT)


def draw_eye_wired(canvas, centre):
    steps = 12
    ring = [(centre[0] + 25 * math.cos(2 * math.pi * i / steps), centre[1] + 30 * math.sin(2 * math.pi * i / steps))
            for i in range(steps)]
    canvas.polygon(ring, BACKGROUND[0])
    for a, b in zip(ring, ring[1:] + ring[:1]):
        canvas.line(a, b, 2, WIRE)
        canvas.line(a, centre, 1.2, WIRE)
    for point in ring:
        canvas.disc(point, 2.6, POINT)


# Strokes of the letters on a grid of 4 by 6.
LETTERS = {
    "K": [[(0, 0), (0, 6)], [(4, 0), (0, 3.4)], [(1.3, 2.4), (4, 6)]],
    "E": [[(4, 0), (0, 0), (0, 6), (4, 6)], [(0, 3), (3.2, 3)]],
    "L": [[(0, 0), (0, 6), (4, 6)]],
    "M": [[(0, 6), (0, 0), (2.4, 3.6), (4.8, 0), (4.8, 6)]],
    "O": [[(1.2, 0), (3.2, 0), (4.4, 1.4), (4.4, 4.6), (3.2, 6), (1.2, 6), (0, 4.6), (0, 1.4), (1.2, 0)]],
    "2": [[(0, 1.2), (1.1, 0), (2.9, 0), (4, 1.2), (4, 2.2), (0, 6), (4, 6)]],
}


def draw_name(canvas, text, left, top, unit, thickness):
    for letter in text:
        index = LETTER_SHADE if letter.isdigit() else LETTER
        for stroke in LETTERS[letter]:
            points = [(left + x * unit, top + y * unit) for x, y in stroke]
            for a, b in zip(points, points[1:]):
                canvas.line(a, b, thickness, index)
            for point in points:
                canvas.disc(point, thickness / 2, index)
        left += (max(x for stroke in LETTERS[letter] for x, _ in stroke) + 1.9) * unit


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(os.path.abspath(__file__)),
                                                             "img", "splash.png")
    canvas = Canvas()
    view = View((268, 304), 168, math.radians(8), math.radians(6))
    draw_background(canvas)
    draw_head(canvas, view)
    draw_face(canvas, view)
    draw_name(canvas, "KELMO2", 550, 208, 12.4, 15)
    canvas.save(out)


if __name__ == "__main__":
    main()
