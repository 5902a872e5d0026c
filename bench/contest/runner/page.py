# SPDX-License-Identifier: MIT
"""The page of a contest and its charts."""

from pathlib import Path

import bar_chart
import goals
import recorded
from goals import Goal
from programs import Scene
from results import LIMITS, MOTION, OURS, Results

KINDS = {
    "blit": "Upright, natural size, at whole pixels",
    "upright": "Upright, natural size, at half pixels",
    "rotated": "Rotated in the plane, 0.6 to 1.6 times the natural size",
    "minified": "A picture of 240 x 336 drawn at 71 x 96, rotated",
    "tilted": "Tilted in perspective",
}
PICTURES = "contest-cards.png"  # in the folder of images

INTRODUCTION = """# The contest of renderers

What a program would otherwise draw its cards with, measured beside this project's renderer: the same scenes, in one
run, taking turns on one core, one thread each. Made by

    scripts/contest

which installs the other libraries, builds `bench/contest/`, runs it and writes this page and its charts
(`scripts/contest --help`: fewer repetitions, some scenes or contestants only, magnified pictures).

**Scenes.** Frames of 52 cards, corners at multiples of half a pixel; the number in a scene's name is the width of the
picture (71 x 96 or 240 x 336), the target has 800 x 600 pixels, with `hd` 1920 x 1080. All cards of a scene show one
picture; with `-52` each has its own, as a real deck does. Tilted cards are turned by up to 60 degrees about x and y.

**Speed** is the area of the cards that lies in the target, in millions of pixels a second of processor time, without
clearing the target; medians of the repetitions. What a renderer makes of a picture once, such as filtered copies, does
not count: a scene is drawn before it is timed, one with `-52` until each picture was shown in all sizes. For these
there is a second figure, *first*: the first tenths of a second, in which that work does count. Other programs may run
on the machine: trust ratios, which are the medians of those within a repetition (so not always the quotient of the two
medians), and take differences below 15 % for a tie.

**Quality** is the distance of one frame from brute force with 256 points a pixel, in decibels over the pixels that
cards touch or border. *Area*: the mean of the pixel's area, what one should see. *Conformance*: one exact bilinear
sample times the exact coverage, what bilinear renderers set out to draw; *edges*: the same, of edge pixels alone. A
picture is *right* when conformance and edges reach 40 dB, or its area is as good as that of the best peer whose do. The
card is drawn by the program: decibels of area depend on it, compare them within a scene.
"""


def _number(value: float | None, unit: str) -> str:
    if value is None:
        return "-"
    formats = {"x": "{:.2f}", "dB": "{:.1f} dB", "levels": "{:.1f} levels", "%": "{:.1f} %"}
    return formats[unit].format(value * 100.0 if unit == "%" else value)


def _table(head: list[str], rows: list[list[str]], words: int = 1) -> str:
    """The first columns hold words, the others numbers."""
    lines = [head, ["---"] * words + ["---:"] * (len(head) - words), *rows]
    return "".join("| " + " | ".join(line) + " |\n" for line in lines)


def _goal_row(goal: Goal) -> list[str]:
    sign = "at most " if goal.at_most else ""
    verdict = {True: "yes", False: "**no**", None: "-"}[goal.reached]
    return [goal.scene, goal.what, sign + _number(goal.wanted, goal.unit), _number(goal.measured, goal.unit), verdict]


def goal_table(judged: list[Goal]) -> str:
    return _table(["scene", "goal", "wanted", "measured", "reached"], [_goal_row(goal) for goal in judged], words=2)


def _order(results: Results, scenes: list[Scene]) -> list[str]:
    """Ours, the others by their best ratio to the fastest, the limits."""
    names = [name for name in (*results.contestants, *recorded.MULTIPLES) if name not in (*OURS, *LIMITS)]

    def best_share(name: str) -> float:
        shares = [results.ratio(scene, name, results.fastest(scene, results.peers(scene))) for scene in scenes]
        return max((share for share in shares if share), default=0.0)

    drawing = [name for name in names if best_share(name) > 0.0]
    everyone = [*OURS, *sorted(drawing, key=best_share, reverse=True), *LIMITS]
    return [name for name in everyone if name in results.contestants or name in recorded.MULTIPLES]


def speed_table(results: Results, scenes: list[Scene], names: list[str]) -> str:
    """Megapixels a second, and in brackets as a multiple of the fastest peer."""

    def cell(name: str, scene: Scene, at: Results) -> str:
        speed = at.speed(scene, name)
        ratio = at.ratio(scene, name, at.fastest(scene, at.peers(scene)))
        return "-" if speed is None else f"{speed:.0f}" + ("" if ratio is None else f" ({ratio:.2f})")

    columns = {scene.name: (scene, results) for scene in scenes}
    at_first = results.at_first()
    columns |= {f"{scene.name}, first": (scene, at_first) for scene in scenes if scene.name in results.first_speeds}
    rows = [[name, *(cell(name, *column) for column in columns.values())] for name in names]
    return _table(["Mpixel/s (x the fastest peer)", *columns], rows)


def quality_table(results: Results, scenes: list[Scene], names: list[str]) -> str:
    def cell(name: str, scene: Scene) -> str:
        values = [results.error(scene, name, measure) for measure in ("area", "conformance", "edges")]
        return "-" if None in values else " / ".join(f"{value:.1f}" for value in values)

    single = [scene for scene in scenes if scene.pictures == 1]
    rows = [[name, *(cell(name, scene) for scene in single)] for name in names]
    rows = [row for row in rows if any(value != "-" for value in row[1:])]
    return _table(["area / conformance / edges, dB", *(scene.name for scene in single)], rows)


def _style(results: Results, scene: Scene, name: str) -> str:
    if name in OURS:
        return "ours"
    if name in recorded.MULTIPLES:
        return "recorded"
    return "right" if results.is_correct(scene, name) else "wrong"


def _chart(results: Results, kind: str, scenes: list[Scene], names: list[str]) -> str:
    columns = []
    for scene in scenes:
        bars = {
            name: bar_chart.Bar(results.speed(scene, name), _style(results, scene, name))
            for name in names
            if results.speed(scene, name)
        }
        judged = goals.judge(results, scene)
        moving = [goal for goal in judged if goal.unit == "x" and goal.what.startswith("in motion")]
        multiples = [goal for goal in moving if goal.measured]
        wanted = [goal.wanted * results.speed(scene, MOTION) / goal.measured for goal in multiples]
        columns.append(bar_chart.Column(scene.name, bars, max(wanted, default=None)))
    return bar_chart.draw(f"{KINDS[kind]}: Mpixel/s", names, columns)


def _section(results: Results, kind: str, images: Path) -> str:
    scenes = [scene for scene in results.scenes if scene.kind == kind]
    if not scenes:
        return ""
    names = _order(results, scenes)
    file = f"contest-{kind}.svg"
    drawn = [name for name in names if name not in LIMITS]
    (images / file).write_text(_chart(results, kind, scenes, drawn))
    judged = [goal for scene in scenes for goal in goals.judge(results, scene)]
    return (
        f"\n## {KINDS[kind]}\n\n![Speeds](images/{file})\n\n{goal_table(judged)}\n"
        f"{speed_table(results, scenes, names)}\n{quality_table(results, scenes, drawn)}"
    )


def _summary(results: Results) -> str:
    judged = [goal for scene in results.scenes for goal in goals.judge(results, scene)]
    told = [goal for goal in judged if goal.reached is not None]
    missed = [goal for goal in told if not goal.reached]
    text = f"\n**{len(told) - len(missed)} of {len(told)} goals are reached**"
    if not missed:
        return text + ".\n"
    return text + "; missed are (`docs/performance.md` says what holds them back):\n\n" + goal_table(missed)


def _pictures(rows: list[str]) -> str:
    if not rows:
        return ""
    lines = "".join(f"- {row}\n" for row in rows)
    what = "Magnified; from left to right, by rows:"
    return f"\n## For the eye\n\n{what}\n\n{lines}\n![Cards](images/{PICTURES})\n"


def _contestants(results: Results) -> str:
    rows = [[name, what] for name, what in results.contestants.items()]
    rows += [[name, "recorded on another machine, as a multiple of a contestant here"] for name in recorded.MULTIPLES]
    return "\n## Contestants\n\n" + _table(["name", "what it is"], rows, words=2)


def _run(results: Results) -> str:
    spreads = [results.spread(scene, name) for scene in results.scenes for name in results.contestants]
    known = sorted(spread for spread in spreads if spread is not None)
    repetitions = max((len(speeds) for scene in results.speeds.values() for speeds in scene.values()), default=0)
    lines = [*results.machine, f"Repetitions: {repetitions}"]
    if known:
        lines.append(
            f"Spread: the middle half of the repetitions is {_number(known[len(known) // 2], '%')} of the median wide "
            f"in the typical case, {_number(known[len(known) * 9 // 10], '%')} at the 90th percentile"
        )
    return "\n## The run\n\n" + "".join(f"- {line}\n" for line in lines)


def write(results: Results, folder: Path, picture_rows: list[str]) -> Path:
    """Writes contest.md and its charts into the folder; what the rows of the magnified pictures show, if any."""
    images = folder / "images"
    images.mkdir(parents=True, exist_ok=True)
    sections = "".join(_section(results, kind, images) for kind in KINDS)
    parts = [INTRODUCTION, _summary(results), _pictures(picture_rows), sections, _contestants(results), _run(results)]
    file = folder / "contest.md"
    file.write_text("".join(parts))
    return file
