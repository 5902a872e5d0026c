# SPDX-License-Identifier: MIT
"""What this project's renderer wants to reach in each scene, and whether it has."""

from collections.abc import Iterator
from dataclasses import dataclass, replace

from programs import Scene
from results import MEMORY_LOOP, MOTION, REST, Results

# Multiples of the speed of peers.
BLIT_MULTIPLE = 1.0
UPRIGHT_MULTIPLE = 2.0
ROTATED_MULTIPLE = 2.0
MINIFIED_MULTIPLE = 2.0
TILTED_MULTIPLE = 2.0
TILTED_CORRECT_MULTIPLE = 4.0
REST_MULTIPLE = 4.0

# Decibels.
UPRIGHT_CONFORMANCE = 60.0
ROTATED_CONFORMANCE = 58.0
ROTATED_EDGES = 52.0
MINIFIED_AREA = 35.0
MINIFIED_REST_AREA = 38.0
TILTED_REST_AREA = {"tilted71": 38.0, "tilted240": 36.5}

EXACT = 1.0  # levels: what rounding may differ by where soft corners lie over each other
MOST_LOSS = 0.15  # of the speed, with 52 pictures


@dataclass(frozen=True)
class Goal:
    scene: str
    what: str
    unit: str  # x, dB, levels or %
    wanted: float | None  # None: what it is measured by was not in the contest
    measured: float | None
    at_most: bool = False

    @property
    def reached(self) -> bool | None:
        """None when it can't be told."""
        if self.wanted is None or self.measured is None:
            return None
        return self.measured <= self.wanted if self.at_most else self.measured >= self.wanted


def judge(results: Results, scene: Scene) -> list[Goal]:
    """The goals of a scene. With several pictures the speeds, and what is lost against one picture, steady and at
    first."""
    others = _qualities if scene.pictures == 1 else _losses
    judged = [Goal(scene.name, *goal) for goal in (*_speeds(results, scene), *others(results, scene))]
    if scene.name in results.first_speeds:
        at_first = judge(results.at_first(), scene)
        judged += [replace(goal, what=f"first {results.seconds:g} s, {goal.what}") for goal in at_first]
    return judged


def _multiple(results: Results, scene: Scene, name: str, peer: str | None, least: float, of: str) -> tuple:
    return f"{_state(name)}: speed over {of} ({peer})", "x", least, results.ratio(scene, name, peer)


def _state(name: str) -> str:
    return "at rest" if name == REST else "in motion"


def _speeds(results: Results, scene: Scene) -> Iterator[tuple]:
    peers = results.peers(scene)
    correct = [name for name in peers if results.is_correct(scene, name)]
    fastest, fastest_correct = results.fastest(scene, peers), results.fastest(scene, correct)
    every = "the fastest peer"
    if scene.kind == "blit":
        yield _multiple(results, scene, MOTION, fastest, BLIT_MULTIPLE, every)
    elif scene.kind == "upright":
        yield _multiple(results, scene, MOTION, fastest_correct, UPRIGHT_MULTIPLE, "the fastest with half pixels")
    else:
        least = {"rotated": ROTATED_MULTIPLE, "minified": MINIFIED_MULTIPLE, "tilted": TILTED_MULTIPLE}[scene.kind]
        yield _multiple(results, scene, MOTION, fastest, least, every)
        if scene.kind == "tilted":
            yield _multiple(results, scene, MOTION, fastest_correct, TILTED_CORRECT_MULTIPLE, "the fastest correct one")
        best = results.best_looking_peer(scene)
        yield _multiple(results, scene, REST, best, REST_MULTIPLE, "the best looking one")


def _qualities(results: Results, scene: Scene) -> Iterator[tuple]:
    def decibels(name: str, measure: str, least: float | None) -> tuple:
        return f"{_state(name)}: {measure}", "dB", least, results.error(scene, name, measure)

    if scene.kind == "blit":
        yield f"{_state(MOTION)}: largest difference", "levels", EXACT, results.error(scene, MOTION, "worst"), True
    elif scene.kind == "upright":
        yield decibels(MOTION, "conformance", UPRIGHT_CONFORMANCE)
    elif scene.kind == "rotated":
        yield decibels(MOTION, "conformance", ROTATED_CONFORMANCE)
        yield decibels(MOTION, "edges", ROTATED_EDGES)
    elif scene.kind == "minified":
        yield decibels(MOTION, "area", MINIFIED_AREA)
        yield decibels(REST, "area", MINIFIED_REST_AREA)
    else:
        yield decibels(MOTION, "area", results.best_conforming_area(scene))
        if scene.name in TILTED_REST_AREA:
            yield decibels(REST, "area", TILTED_REST_AREA[scene.name])


def _losses(results: Results, scene: Scene) -> Iterator[tuple]:
    most = results.loss(scene, MEMORY_LOOP) if scene.kind == "upright" else MOST_LOSS
    yield f"{_state(MOTION)}: loss against one picture", "%", most, results.loss(scene, MOTION), True
