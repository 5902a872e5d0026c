# SPDX-License-Identifier: MIT
"""Bars beside each other as an SVG picture: a row for each name, a column for each scene."""

from dataclasses import dataclass
from xml.sax.saxutils import escape

NAMES_WIDTH = 150
COLUMN_WIDTH = 210
BAR_WIDTH = 150  # of the longest; the rest of the column is for its number
ROW_HEIGHT = 19
BAR_HEIGHT = 13
TOP = 74
BOTTOM = 14

STYLES = {
    "ours": 'fill="#1f6fb4"',
    "right": 'fill="#5f6b7a"',
    "wrong": 'fill="#c3cad3"',
    "recorded": 'fill="white" stroke="#5f6b7a" stroke-dasharray="3 2"',
}
LEGEND = {"ours": "this project", "right": "right picture", "wrong": "wrong picture", "recorded": "recorded elsewhere"}
HALO = 'stroke="white" stroke-width="3" paint-order="stroke"'  # around numbers that the goal's line may cross
GOAL = 'stroke="#d1495b" stroke-width="2"'


@dataclass(frozen=True)
class Bar:
    value: float
    style: str  # one of STYLES


@dataclass(frozen=True)
class Column:
    title: str
    bars: dict[str, Bar]  # of a name; names without one leave a gap
    goal: float | None  # marked by a line


def _text(x: float, y: float, text: str, anchor: str = "start", more: str = "") -> str:
    place = f'x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}"'
    return f"<text {place} {more}>{escape(text)}</text>"


def _legend() -> list[str]:
    parts = []
    x = 12.0
    for style, words in LEGEND.items():
        parts.append(f'<rect x="{x:.1f}" y="31" width="14" height="10" {STYLES[style]}/>')
        parts.append(_text(x + 19, 40, words))
        x += 38 + 6.2 * len(words)
    parts.append(f'<line x1="{x:.1f}" x2="{x:.1f}" y1="29" y2="43" {GOAL}/>')
    parts.append(_text(x + 6, 40, "goal in motion"))
    return parts


def _column(left: float, names: list[str], column: Column) -> list[str]:
    parts = [_text(left, TOP - 10, column.title, more='font-weight="bold"')]
    most = max([bar.value for bar in column.bars.values()] + [column.goal or 0.0, 1e-9])
    if column.goal:
        x = left + column.goal / most * BAR_WIDTH
        bottom = TOP + len(names) * ROW_HEIGHT
        parts.append(f'<line x1="{x:.1f}" x2="{x:.1f}" y1="{TOP - 4}" y2="{bottom}" {GOAL}/>')
    for row, name in enumerate(names):
        if name not in column.bars:
            continue
        bar = column.bars[name]
        top = TOP + row * ROW_HEIGHT
        length = bar.value / most * BAR_WIDTH
        parts.append(f'<rect x="{left}" y="{top}" width="{length:.1f}" height="{BAR_HEIGHT}" {STYLES[bar.style]}/>')
        parts.append(_text(left + length + 5, top + 11, f"{bar.value:.0f}", more=HALO))
    return parts


def draw(title: str, names: list[str], columns: list[Column]) -> str:
    width = max(NAMES_WIDTH + COLUMN_WIDTH * len(columns), 680)
    height = TOP + ROW_HEIGHT * len(names) + BOTTOM
    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" height="{height}" '
        'font-family="sans-serif" font-size="12" fill="#222">',
        '<rect width="100%" height="100%" fill="white"/>',
        _text(12, 20, title, more='font-size="14"'),
        *_legend(),
    ]
    for row, name in enumerate(names):
        parts.append(_text(NAMES_WIDTH - 8, TOP + row * ROW_HEIGHT + 11, name, "end"))
    for index, column in enumerate(columns):
        parts += _column(NAMES_WIDTH + index * COLUMN_WIDTH, names, column)
    return "\n".join([*parts, "</svg>", ""])
