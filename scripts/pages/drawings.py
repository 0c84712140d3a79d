#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Draws the conventions into docs/drawings. Every number is computed here by its formula, and what is drawn carries its
numbers in attributes (data-...), which tests/docs/DrawingNumbersTest.cpp holds against the component.

drawings.py             draws
drawings.py --check     fails when a drawing is not what would be drawn
"""

import math
import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parents[2] / "docs/drawings"

INK, SOFT, BLUE, GREEN, ORANGE = "#1f2937", "#9aa4b2", "#1d4ed8", "#047857", "#b45309"


def number(value: float) -> str:
    return f"{value:.6g}" if abs(value) > 1e-12 else "0"


def numbers(values) -> str:
    return " ".join(repr(float(value)) for value in values)


class Drawing:
    """A picture with y upwards, in units of its own."""

    def __init__(self, width: int, height: int, title: str) -> None:
        self._height = height
        self._parts = [
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" '
            f'height="{height}" font-family="sans-serif" font-size="14" fill="{INK}">',
            f"<title>{title}</title>",
            f'<rect width="{width}" height="{height}" fill="white"/>',
            '<defs><marker id="head" viewBox="0 0 10 10" refX="9" refY="5" markerWidth="8" markerHeight="8" '
            'orient="auto-start-reverse"><path d="M0 0L10 5L0 10z" fill="context-stroke"/></marker></defs>',
        ]

    def _at(self, point) -> tuple[str, str]:
        return f"{point[0]:.1f}", f"{self._height - point[1]:.1f}"

    def line(self, start, end, colour=INK, width=1.5, arrow=False, dashed=False, **data) -> None:
        (x1, y1), (x2, y2) = self._at(start), self._at(end)
        self._parts.append(
            f'<line x1="{x1}" y1="{y1}" x2="{x2}" y2="{y2}" stroke="{colour}" stroke-width="{width}"'
            + (' marker-end="url(#head)"' if arrow else "") + (' stroke-dasharray="5 4"' if dashed else "")
            + attributes(data) + "/>")

    def shape(self, points, colour=INK, fill="none", closed=True, width=1.5) -> None:
        path = "M" + "L".join(" ".join(self._at(point)) for point in points) + ("Z" if closed else "")
        self._parts.append(f'<path d="{path}" stroke="{colour}" stroke-width="{width}" fill="{fill}"/>')

    def circle(self, centre, radius, colour=INK, fill="none", dashed=False) -> None:
        x, y = self._at(centre)
        self._parts.append(f'<circle cx="{x}" cy="{y}" r="{radius}" stroke="{colour}" stroke-width="1.5" fill="{fill}"'
                           + (' stroke-dasharray="5 4"' if dashed else "") + "/>")

    def dot(self, point, colour=INK, **data) -> None:
        x, y = self._at(point)
        self._parts.append(f'<circle cx="{x}" cy="{y}" r="4" fill="{colour}"{attributes(data)}/>')

    def text(self, point, words, anchor="start", colour=INK, size=14) -> None:
        x, y = self._at(point)
        self._parts.append(f'<text x="{x}" y="{y}" text-anchor="{anchor}" fill="{colour}" font-size="{size}">'
                           f"{words}</text>")

    def finish(self) -> str:
        return "\n".join([*self._parts, "</svg>"]) + "\n"


def attributes(data: dict) -> str:
    return "".join(f' data-{key.replace("_", "-")}="{numbers(values)}"' for key, values in data.items())


def cross(a, b):
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def unit(a):
    length = math.sqrt(sum(x * x for x in a))
    return tuple(x / length for x in a)


def plus(a, b, factor=1.0):
    return tuple(x + factor * y for x, y in zip(a, b))


def view_frame() -> str:
    drawing = Drawing(640, 340, "World axes and the axes of a view")

    origin = (190, 150)

    def seen(point):  # isometric: x comes to the lower right, z to the lower left
        x, y, z = point
        return (origin[0] + 58 * (x - z) * math.sqrt(0.75), origin[1] + 58 * (y - (x + z) / 2))

    for axis, name in (((2, 0, 0), "x"), ((0, 2, 0), "y"), ((0, 0, 2), "z")):
        drawing.line(origin, seen(axis), arrow=True)
        drawing.text(plus(seen(axis), (-18, 2) if name == "z" else (8, -4)), name)
    drawing.text(plus(origin, (0, -62)), "world, right-handed", anchor="middle")

    eye, lookat, up = (6.0, 4.0, 1.5), (0.0, 0.0, 0.0), (0.0, 1.0, 0.0)
    backwards = unit(plus(eye, lookat, -1))
    right = unit(cross(up, backwards))
    above = cross(backwards, right)
    drawing.line(seen(eye), seen(lookat), colour=SOFT, dashed=True)
    for axis, colour, name, shift in ((right, BLUE, "x, right", (10, -4)), (above, GREEN, "y, up", (10, -2)),
                                      (backwards, ORANGE, "z, backwards", (8, -8))):
        drawing.line(seen(eye), seen(plus(eye, axis, 1.3)), colour=colour, width=2.5, arrow=True,
                     eye=eye, lookat=lookat, up=up, axis=axis)
        drawing.text(plus(seen(plus(eye, axis, 1.3)), shift), name, colour=colour)
    drawing.line(seen(eye), seen(plus(eye, backwards, -1.6)), width=2.5, arrow=True)
    drawing.text(plus(seen(plus(eye, backwards, -1.6)), (-14, 16)), "looks along -z", anchor="end")
    drawing.dot(seen(eye))
    drawing.text(plus(seen(eye), (-6, -24)), "eye (6, 4, 1.5)")
    drawing.text((20, 20), "Seen from the tip of an axis, a positive turn about it runs counterclockwise.", colour=INK)
    return drawing.finish()


def frustum() -> str:
    drawing = Drawing(640, 360, "A perspective frustum from the side, and its depths")
    near, far, angle = 1.0, 3.0, math.pi / 4
    top = near * math.tan(angle / 2)
    eye, scale = (50, 210), 105

    def seen(y, z):
        return (eye[0] - scale * z, eye[1] + scale * y)

    corners = [seen(top, -near), seen(top * far / near, -far), seen(-top * far / near, -far), seen(-top, -near)]
    drawing.shape(corners, colour=BLUE, fill="#eff4ff", width=2)
    for corner in (corners[1], corners[2]):
        drawing.line(eye, corner, colour=SOFT, dashed=True)
    drawing.line(eye, seen(0, -3.4), colour=INK, arrow=True)
    drawing.text(plus(seen(0, -3.4), (-4, 8)), "-z", anchor="end")
    drawing.line(eye, plus(eye, (0, 80)), colour=GREEN, arrow=True)
    drawing.text(plus(eye, (-8, 84)), "y", anchor="end", colour=GREEN)
    drawing.dot(eye)
    drawing.text(plus(eye, (-4, -22)), "eye", anchor="middle")
    drawing.text(plus(corners[0], (-4, 10)), f"top {number(top)}", anchor="end", colour=BLUE)
    drawing.text(plus(corners[3], (-4, -20)), f"bottom {number(-top)}", anchor="end", colour=BLUE)
    drawing.text(plus(corners[3], (0, -40)), f"near {number(near)}", anchor="middle", colour=BLUE)
    drawing.text(plus(corners[2], (0, -20)), f"far {number(far)}", anchor="middle", colour=BLUE)

    columns = (440, 520, 595)
    for x, heading in zip(columns, ("view z", "clip z / w", "depth")):
        drawing.text((x, 330), heading, anchor="middle")
    for row, distance in enumerate((1.0, 1.5, 2.0, 3.0)):
        clip = (far + near - 2 * far * near / distance) / (far - near)
        depth = (clip + 1) / 2
        drawing.dot(seen(0, -distance), colour=ORANGE, view=(0.0, 0.0, -distance), clip=(clip,), depth=(depth,))
        for x, value in zip(columns, (-distance, clip, depth)):
            drawing.text((x, 302 - 24 * row), number(value), anchor="middle", colour=ORANGE)
    drawing.text((20, 20), "Depth is not proportional to distance in perspective; in an orthographic projection it is.")
    return drawing.finish()


def screen() -> str:
    drawing = Drawing(640, 370, "A surface and its viewport")
    width, height = 640, 480
    left, bottom, part_width, part_height = 0.25, 0.25, 0.5, 0.5
    origin, scale = (70, 60), 0.56

    def seen(x, y):
        return (origin[0] + scale * x, origin[1] + scale * y)

    drawing.shape([seen(0, 0), seen(width, 0), seen(width, height), seen(0, height)], fill="#f3f4f6", width=2)
    x1, y1 = width * left, height * bottom
    x2, y2 = x1 + width * part_width, y1 + height * part_height
    drawing.shape([seen(x1, y1), seen(x2, y1), seen(x2, y2), seen(x1, y2)], colour=BLUE, fill="#dbe6ff", width=2)
    drawing.line(seen(0, 0), seen(120, 0), width=2.5, arrow=True)
    drawing.line(seen(0, 0), seen(0, 120), width=2.5, arrow=True)
    drawing.text(plus(seen(120, 0), (6, -16)), "x")
    drawing.text(plus(seen(0, 120), (-18, 0)), "y")
    drawing.dot(seen(0, 0))
    drawing.text(plus(seen(0, 0), (-8, -20)), "(0, 0)", anchor="middle")
    drawing.text(plus(seen(width, height), (0, 10)), f"({width}, {height})", anchor="middle")
    drawing.text(plus(seen(width / 2, height), (0, -20)), f"surface, {width} by {height} pixels", anchor="middle")
    drawing.text(plus(seen((x1 + x2) / 2, y2), (0, -20)), "viewport 0.25, 0.25, 0.5, 0.5", anchor="middle",
                 colour=BLUE, size=12)
    for x, y, shift in ((-1, -1, (0, -20)), (0, 0, (0, -20)), (1, 1, (0, 10))):
        pixel = (x1 + (x + 1) / 2 * (x2 - x1), y1 + (y + 1) / 2 * (y2 - y1))
        drawing.dot(seen(*pixel), colour=ORANGE, device=(x, y), pixel=pixel)
        drawing.text(plus(seen(*pixel), shift), f"({number(pixel[0])}, {number(pixel[1])})", anchor="middle",
                     colour=ORANGE)
    for row, (what, colour) in enumerate((("normalised device", INK), ("(-1, -1): lower left", ORANGE),
                                          ("(0, 0): middle", ORANGE), ("(1, 1): upper right", ORANGE),
                                          ("of the viewport", INK))):
        drawing.text((455, 240 - 24 * row), what, colour=colour)
    drawing.text((20, 14), "A window's mouse counts rows from the top: y = height - 1 - row.")
    return drawing.finish()


def on_ball(pixel, size):
    x, y = (2 * pixel[0] / size - 1, 2 * pixel[1] / size - 1)
    radius = math.hypot(x, y)
    return unit((x, y, 0.5 / radius)) if radius > 0.5 else (x, y, math.sqrt(1 - radius * radius))


def arcball() -> str:
    drawing = Drawing(640, 350, "The arcball's mapping of a square window")
    size = 480
    origin, scale = (30, 60), 260 / 480

    def seen(x, y):
        return (origin[0] + scale * x, origin[1] + scale * y)

    drawing.shape([seen(0, 0), seen(size, 0), seen(size, size), seen(0, size)], fill="#f3f4f6", width=2)
    centre = (size / 2, size / 2)
    drawing.circle(seen(*centre), scale * size / 2, colour=SOFT)
    drawing.circle(seen(*centre), scale * size / 4, colour=BLUE, dashed=True)
    drawing.text(plus(seen(*centre), (0, -scale * size / 4 - 16)), "radius 0.5", anchor="middle", colour=BLUE)
    drawing.text(plus(seen(*centre), (0, -scale * size / 2 + 8)), "radius 1", anchor="middle")

    middle, unit_length = (475, 130), 118

    def section(radius, z):
        return (middle[0] + unit_length * radius, middle[1] + unit_length * z)

    drawing.line(section(-1.2, 0), section(1.3, 0), colour=SOFT, arrow=True)
    drawing.line(section(0, 0), section(0, 1.35), colour=SOFT, arrow=True)
    drawing.text(plus(section(1.3, 0), (0, -18)), "radius", anchor="end")
    drawing.text(plus(section(0, 1.35), (8, -4)), "z, to the viewer")
    inner = [(radius / 100, math.sqrt(1 - (radius / 100) ** 2)) for radius in range(-50, 51)]
    drawing.shape([section(*point) for point in inner], colour=BLUE, closed=False, width=2.5)
    for side in (-1, 1):
        sheet = [(side * radius / 100, 50 / radius) for radius in range(50, 121)]
        drawing.shape([section(*point) for point in sheet], colour=GREEN, closed=False, width=2.5)
        whole = [(side * math.sin(angle / 60), math.cos(angle / 60)) for angle in range(31, 95)]
        drawing.shape([section(*point) for point in whole], colour=SOFT, closed=False)
    drawing.text((475, 96), "up to 0.5: the ball, z = sqrt(1 - radius²)", anchor="middle", colour=BLUE, size=13)
    drawing.text((475, 76), "beyond: the sheet z = 0.5 / radius, then drawn", anchor="middle", colour=GREEN, size=13)
    drawing.text((475, 58), "towards the centre until its length is 1", anchor="middle", colour=GREEN, size=13)

    for pixel, shift in (((336, 240), (-40, -20)), ((240, 432), (8, 0))):
        ball = on_ball(pixel, size)
        angle = math.acos(ball[2])
        drawing.line(seen(*centre), seen(*pixel), colour=ORANGE, width=2.5, arrow=True, drag_from=centre, drag_to=pixel,
                     turn=(angle,))
        drawing.text(plus(seen(*pixel), shift), f"{angle:.3f} rad", colour=ORANGE, size=13)
    drawing.dot(seen(*centre), colour=ORANGE)
    drawing.text((30, 34), "A drag turns by the angle between its two points of the ball; these start in the middle.",
                 size=13)
    drawing.text((30, 14), "Orange: how far a drag along the arrow turns. At radius 0.5 there is a step.", size=13)
    return drawing.finish()


def main() -> int:
    drawings = {"view-frame": view_frame(), "frustum": frustum(), "screen": screen(), "arcball": arcball()}
    if sys.argv[1:] == ["--check"]:
        present = {file.stem: file.read_text() for file in FOLDER.glob("*.svg")}
        wrong = sorted(name for name in present.keys() | drawings.keys() if present.get(name) != drawings.get(name))
        for name in wrong:
            print(f"docs/drawings/{name}.svg is not what scripts/pages/drawings.py draws", file=sys.stderr)
        return 1 if wrong else 0
    if sys.argv[1:]:
        print(__doc__, file=sys.stderr)
        return 2
    FOLDER.mkdir(exist_ok=True)
    for name, text in drawings.items():
        (FOLDER / f"{name}.svg").write_text(text)
    return 0


if __name__ == "__main__":
    sys.exit(main())
