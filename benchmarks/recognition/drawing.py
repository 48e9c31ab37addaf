"""Two pictures, as SVG written by hand: each says one thing."""

import math
from html import escape

_WIDTH, _HEIGHT = 720, 400
_LEFT, _TOP, _RIGHT, _BOTTOM = 64, 56, 170, 56
_COLOURS = ["#2f6fb3", "#7a8794", "#c0392b", "#d68910", "#1e8449", "#7d3c98"]


class _Picture:
    def __init__(self, title):
        self._parts = [
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {_WIDTH} {_HEIGHT}" '
            'font-family="sans-serif" font-size="13" fill="#333">',
            f"<title>{escape(title)}</title>",
            f'<rect width="{_WIDTH}" height="{_HEIGHT}" fill="#fff"/>',
        ]
        self.text(_LEFT, 28, title, size=16)

    def text(self, x, y, words, anchor="start", colour="#333", size=13):
        self._parts.append(f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" fill="{colour}" font-size="{size}">'
                           f"{escape(words)}</text>")

    def line(self, points, colour, width=2.0, dashes=""):
        # What was not measured is no number, and has no point.
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points if not math.isnan(y))
        self._parts.append(f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="{width}"'
                           f'{f" stroke-dasharray={chr(34)}{dashes}{chr(34)}" if dashes else ""}/>')

    def point(self, x, y, colour):
        if not math.isnan(y):
            self._parts.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3.5" fill="{colour}"/>')

    def bar(self, x, y, width, height, colour):
        self._parts.append(f'<rect x="{x:.1f}" y="{y:.1f}" width="{width:.1f}" height="{height:.1f}" fill="{colour}" '
                           'fill-opacity="0.7"/>')

    def scale_of_shares(self, highest, unit):
        for step in range(5):
            share = highest * step / 4
            y = _down(share / highest)
            self.line([(_LEFT, y), (_WIDTH - _RIGHT, y)], "#ddd", 1)
            self.text(_LEFT - 8, y + 4, f"{share:.0f}{unit}", "end")

    def legend(self, index, words, colour):
        y = _TOP + 20 * index
        self.line([(_WIDTH - _RIGHT + 14, y - 4), (_WIDTH - _RIGHT + 34, y - 4)], colour, 4)
        self.text(_WIDTH - _RIGHT + 40, y, words)

    def write(self, path):
        path.write_text("\n".join([*self._parts, "</svg>", ""]))


def _across(share):
    return _LEFT + share * (_WIDTH - _RIGHT - _LEFT)


def _down(share):
    return _HEIGHT - _BOTTOM - share * (_HEIGHT - _BOTTOM - _TOP)


def noise_picture(path, levels, curves, wrong):
    """Right answers for each kind of noise from clean to loud, and wrong ones among all of them."""
    picture = _Picture("Commands carried out, by how much louder the voice is than the rest")
    picture.scale_of_shares(100, " %")
    places = [_across(index / (len(levels) - 1)) for index in range(len(levels))]
    for place, level in zip(places, levels):
        picture.text(place, _HEIGHT - _BOTTOM + 22, level, "middle")
    for index, (name, shares) in enumerate(curves.items()):
        picture.line([(x, _down(share / 100)) for x, share in zip(places, shares)], _COLOURS[index])
        for x, share in zip(places, shares):
            picture.point(x, _down(share / 100), _COLOURS[index])
        picture.legend(index, name, _COLOURS[index])
    picture.line([(x, _down(share / 100)) for x, share in zip(places, wrong)], "#000", 2.5, "6 4")
    picture.legend(len(curves), "wrong, of all", "#000")
    picture.write(path)


def delay_picture(path, delays):
    """How many phrases were decided on after how long, in steps of 20 ms."""
    picture = _Picture("From the end of speech to the decision")
    step, longest = 0.02, 0.8
    counts = {name: [0] * round(longest / step) for name in delays}
    for name, values in delays.items():
        for value in values:
            counts[name][min(max(int(value / step), 0), len(counts[name]) - 1)] += 1
    # In four steps of whole phrases.
    highest = 4 * math.ceil(max(1, *(max(c) for c in counts.values())) / 4)
    picture.scale_of_shares(highest, "")
    for tenth in range(9):
        picture.text(_across(tenth / 8), _HEIGHT - _BOTTOM + 22, f"{tenth / 10:.1f} s", "middle")
    for index, (name, column) in enumerate(counts.items()):
        for place, count in enumerate(column):
            if count:
                height = _down(0) - _down(count / highest)
                width = _across(1 / len(column)) - _LEFT
                picture.bar(_across(place / len(column)), _down(count / highest), width - 1, height, _COLOURS[index * 3])
        picture.legend(index, name, _COLOURS[index * 3])
    picture.text(_across(0.5), _HEIGHT - 10, "phrases, by delay (right, clean; longer ones in the last column)", "middle")
    picture.write(path)
