# SPDX-License-Identifier: MIT
"""The programs of the contest: which contestants they have, and how to run them."""

import json
import os
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

TRUTH_PROGRAM = "contest_truth"

# One thread each, and no screen.
ENVIRONMENT = {
    "LP_NUM_THREADS": "0",
    "OMP_NUM_THREADS": "1",
    "QT_QPA_PLATFORM": "offscreen",
    "SDL_VIDEODRIVER": "dummy",
}


@dataclass(frozen=True)
class Scene:
    name: str
    kind: str
    width: int
    height: int
    card_width: int
    card_height: int
    pictures: int
    spot: tuple[int, int]  # the middle of a card that shows, pixels of the compared frame

    @property
    def single(self) -> str:
        """The scene with the same frames and one picture; its own name when that is this one."""
        return self.name.removesuffix(f"-{self.pictures}")


class Programs:
    def __init__(self, folder: Path, core: int):
        self._folder = folder
        self._pinned = ["taskset", "-c", str(core)]
        self._programs = {}
        self.contestants = {}
        for program in sorted(folder.glob("contest_*")):
            if program.name == TRUTH_PROGRAM or not os.access(program, os.X_OK):
                continue
            for line in self._run([program, "list"]).splitlines():
                name, what = line.split("\t")
                self._programs[name] = program
                self.contestants[name] = what
        lines = self._run([folder / TRUTH_PROGRAM, "scenes"]).splitlines()
        self.scenes = [Scene(**{**fields, "spot": tuple(fields["spot"])}) for fields in map(json.loads, lines)]

    def speeds(self, contestant: str, scene: str, seconds: float) -> dict[str, float]:
        """Megapixels a second of processor time: steady, and first, if the scene has several pictures. Nothing when it
        can't draw the scene."""
        answer = self._perform(contestant, ["time", contestant, scene, str(seconds)])
        return {when: timing["pixels"] / timing["seconds"] / 1e6 for when, timing in answer.items()}

    def draw(self, contestant: str, scene: str, file: Path) -> bool:
        file.unlink(missing_ok=True)
        self._perform(contestant, ["picture", contestant, scene, str(file)])
        return file.exists()

    def render_truth(self, scene: str, file: Path) -> None:
        """Does nothing when the file is there and newer than the program."""
        program = self._folder / TRUTH_PROGRAM
        if not file.exists() or file.stat().st_mtime < program.stat().st_mtime:
            self._run([program, "render", scene, file])

    def compare(self, truth: Path, picture: Path) -> dict[str, float]:
        return json.loads(self._run([self._folder / TRUTH_PROGRAM, "compare", truth, picture]))

    def draw_truth(self, truth: Path, file: Path) -> None:
        self._run([self._folder / TRUTH_PROGRAM, "picture", truth, file])

    def _perform(self, contestant: str, words: list[str]) -> dict:
        """A contestant that fails is passed over: the others go on."""
        try:
            return json.loads(self._run([*self._pinned, self._programs[contestant], *words]) or "{}")
        except subprocess.CalledProcessError as error:
            print(f"{contestant} failed: {error.stderr.strip()}", file=sys.stderr)
            return {}

    @staticmethod
    def _run(command: list) -> str:
        done = subprocess.run(command, capture_output=True, text=True, check=True, env={**os.environ, **ENVIRONMENT})
        return done.stdout
