# SPDX-License-Identifier: MIT
"""Crops of cards as the contestants drew them, magnified, beside each other."""

from functools import reduce
from pathlib import Path

from pixmap import Pixmap
from programs import Programs, Scene
from results import MOTION, REST, Results

SCENES = ("tilted71", "rotated71", "minified")
CROP_WIDTH = 71
CROP_HEIGHT = 96
MAGNIFICATION = 4
GAP = 8
WHITE = b"\xff\xff\xff"


def _crop(picture: Pixmap, scene: Scene) -> Pixmap:
    """Around the scene's spot, magnified by repeating pixels."""
    left = min(max(scene.spot[0] - CROP_WIDTH // 2, 0), picture.width - CROP_WIDTH)
    top = min(max(scene.spot[1] - CROP_HEIGHT // 2, 0), picture.height - CROP_HEIGHT)
    return picture.cut(left, top, CROP_WIDTH, CROP_HEIGHT).magnified(MAGNIFICATION)


def _row(programs: Programs, scene: Scene, names: list[str], folder: Path) -> Pixmap:
    pictures = []
    for name in names:
        file = folder / f"{scene.name}-{name}.ppm"
        programs.draw(name, scene.name, file)
        pictures.append(_crop(Pixmap.read(file), scene))
    truth = folder / f"{scene.name}-truth.ppm"
    programs.draw_truth(folder / f"{scene.name}.truth", truth)
    pictures.append(_crop(Pixmap.read(truth), scene))
    gap = Pixmap.filled(GAP, CROP_HEIGHT * MAGNIFICATION, WHITE)
    return reduce(lambda row, picture: row.beside(gap).beside(picture), pictures)


def write(programs: Programs, results: Results, folder: Path, file: Path) -> list[str]:
    """Writes the sheet; the folder has the truths. Returns what stands in each row, from left to right."""
    rows, descriptions = [], []
    for scene in (scene for scene in results.scenes if scene.name in SCENES):
        best = results.best_looking_peer(scene)
        names = [name for name in (best, MOTION, REST) if name in results.contestants]
        rows.append(_row(programs, scene, names, folder))
        descriptions.append(f"{scene.name}: {', '.join([*names, 'the area truth'])}")
    if rows:
        # A contest of some contestants only may leave rows of different lengths.
        widest = max(row.width for row in rows)
        rows = [row.beside(Pixmap.filled(widest - row.width, row.height, WHITE)) for row in rows]
        gap = Pixmap.filled(widest, GAP, WHITE)
        reduce(lambda sheet, row: sheet.above(gap).above(row), rows).write_png(file)
    return descriptions
