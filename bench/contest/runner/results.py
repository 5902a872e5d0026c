# SPDX-License-Identifier: MIT
"""What was measured, and the questions that the goals and the tables ask of it."""

import json
from dataclasses import asdict, dataclass, field, replace
from pathlib import Path
from statistics import median

import recorded
from programs import Scene

MOTION = "cardtable-motion"
REST = "cardtable-rest"
OURS = (MOTION, REST)
MEMORY_LOOP = "memory-over"
LIMITS = ("memory-copy", MEMORY_LOOP)

CONFORMING = 40.0  # decibels, over all and over the edges: draws what every bilinear renderer claims to draw


@dataclass
class Results:
    scenes: list[Scene] = field(default_factory=list)
    contestants: dict[str, str] = field(default_factory=dict)  # name: what it is
    machine: list[str] = field(default_factory=list)
    seconds: float = 0.3  # of drawing, a repetition
    speeds: dict[str, dict[str, list[float]]] = field(default_factory=dict)  # of scene and contestant, each repetition
    first_speeds: dict[str, dict[str, list[float]]] = field(default_factory=dict)  # with several pictures
    errors: dict[str, dict[str, dict[str, float]]] = field(default_factory=dict)  # of scene and contestant, decibels

    def save(self, file: Path) -> None:
        file.write_text(json.dumps(asdict(self), indent=1))

    @staticmethod
    def load(file: Path) -> "Results":
        fields = json.loads(file.read_text())
        scenes = [Scene(**{**scene, "spot": tuple(scene["spot"])}) for scene in fields.pop("scenes")]
        return Results(scenes=scenes, **fields)

    def at_first(self) -> "Results":
        """With the speeds of the first seconds in place of the steady ones, where there are several pictures."""
        return replace(self, speeds={**self.speeds, **self.first_speeds}, first_speeds={})

    def rounds(self, scene: Scene, name: str) -> list[float]:
        """Megapixels a second of each repetition; of a recorded row, its multiple of a contestant's."""
        if name in recorded.MULTIPLES:
            reference, multiple = recorded.MULTIPLES[name].get(scene.name, (None, 0.0))
            return [speed * multiple for speed in self.rounds(scene, reference)] if reference else []
        return self.speeds.get(scene.name, {}).get(name, [])

    def speed(self, scene: Scene, name: str) -> float | None:
        """Megapixels a second, the median of the repetitions."""
        speeds = self.rounds(scene, name)
        return median(speeds) if speeds else None

    def spread(self, scene: Scene, name: str) -> float | None:
        """The middle half of the repetitions, as a share of the median."""
        speeds = sorted(self.speeds.get(scene.name, {}).get(name, []))
        quarter = len(speeds) // 4
        return (speeds[-1 - quarter] - speeds[quarter]) / median(speeds) if speeds else None

    def error(self, scene: Scene, name: str, measure: str) -> float | None:
        """One of area, conformance, edges (decibels) and worst (levels)."""
        return self.errors.get(scene.single, {}).get(name, {}).get(measure)

    def renderers(self, scene: Scene) -> list[str]:
        """All that have drawn the scene, recorded ones too; not the limits of memory."""
        names = [name for name in (*self.contestants, *recorded.MULTIPLES) if name not in LIMITS]
        return [name for name in names if self.speed(scene, name)]

    def peers(self, scene: Scene) -> list[str]:
        return [name for name in self.renderers(scene) if name not in OURS]

    def conforms(self, scene: Scene, name: str) -> bool:
        return min(self.error(scene, name, measure) or 0.0 for measure in ("conformance", "edges")) >= CONFORMING

    def best_conforming_area(self, scene: Scene) -> float | None:
        """By the area truth, decibels: what the best of the peers that sample as bilinear renderers do reaches."""
        areas = [self.error(scene, name, "area") for name in self.peers(scene) if self.conforms(scene, name)]
        return max(areas, default=None)

    def is_correct(self, scene: Scene, name: str) -> bool:
        """Conforms, or is as good by the area truth as the best peer that does."""
        if name in recorded.CORRECT_KINDS:
            return scene.kind in recorded.CORRECT_KINDS[name]
        best = self.best_conforming_area(scene)
        return self.conforms(scene, name) or (best is not None and (self.error(scene, name, "area") or 0.0) >= best)

    def fastest(self, scene: Scene, names: list[str]) -> str | None:
        return max(names, key=lambda name: self.speed(scene, name), default=None)

    def best_looking_peer(self, scene: Scene) -> str | None:
        """By the area truth."""
        names = [name for name in self.peers(scene) if self.error(scene, name, "area") is not None]
        return max(names, key=lambda name: self.error(scene, name, "area"), default=None)

    def ratio(self, scene: Scene, name: str, other: str | None) -> float | None:
        """How many times as fast as another one: the median of the repetitions' own ratios. A machine that is slow for
        a while is slow for both."""
        return _median_ratio(self.rounds(scene, name), self.rounds(scene, other) if other else [])

    def loss(self, scene: Scene, name: str) -> float | None:
        """The share of its speed that a contestant loses when each card has a picture of its own."""
        single = next((other for other in self.scenes if other.name == scene.single), None)
        kept = _median_ratio(self.rounds(scene, name), self.rounds(single, name)) if single else None
        return None if kept is None else 1.0 - kept


def _median_ratio(ours: list[float], theirs: list[float]) -> float | None:
    if len(ours) == len(theirs) and all(theirs):
        return median(a / b for a, b in zip(ours, theirs)) if ours else None
    return median(ours) / median(theirs) if ours and theirs and median(theirs) else None
