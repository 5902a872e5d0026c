#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the contest of renderers and writes its page: contest.md, with charts in images/, in the output folder."""

import argparse
import os
import sys
from pathlib import Path

import machine
import page
import picture_sheet
from programs import Programs
from results import Results


def _list(text: str) -> list[str]:
    return [name for name in text.split(",") if name]


def _options() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="scripts/contest", description=__doc__)
    parser.add_argument("--repetitions", type=int, default=5, metavar="N", help="turns of each contestant (5)")
    parser.add_argument("--seconds", type=float, default=0.3, metavar="S", help="of drawing, at least, a turn (0.3)")
    parser.add_argument("--scenes", type=_list, metavar="A,B", help="these scenes only")
    parser.add_argument("--contestants", type=_list, metavar="A,B", help="these contestants only")
    parser.add_argument("--more", action="store_true", help="add repetitions to the last run's speeds")
    parser.add_argument("--pictures", action="store_true", help="show magnified cards on the page")
    parser.add_argument("--page", action="store_true", help="measure nothing, write the last run's page anew")
    parser.add_argument("--core", type=int, default=os.cpu_count() - 1, metavar="N", help="of the processor (the last)")
    parser.add_argument("--build", type=Path, default=Path("build/contest"), metavar="FOLDER", help="with the programs")
    parser.add_argument("--output", type=Path, default=Path("out/contest"), metavar="FOLDER", help="for the page")
    return parser.parse_args()


def _chosen(wanted: list[str] | None, there: list[str], what: str) -> list[str]:
    unknown = [name for name in wanted or [] if name not in there]
    if unknown:
        sys.exit(f"there is no {what} {', '.join(unknown)}; there are: {', '.join(there)}")
    return [name for name in there if wanted is None or name in wanted]


def _start(options: argparse.Namespace, programs: Programs) -> Results:
    scenes = _chosen(options.scenes, [scene.name for scene in programs.scenes], "scene")
    names = _chosen(options.contestants, list(programs.contestants), "contestant")
    return Results(
        scenes=[scene for scene in programs.scenes if scene.name in scenes],
        contestants={name: programs.contestants[name] for name in names},
        machine=machine.describe(options.build),
        seconds=options.seconds,
    )


def _judge_pictures(programs: Programs, results: Results, folder: Path) -> None:
    """Of scenes with one picture; those with more have the same frames."""
    for scene in (scene for scene in results.scenes if scene.pictures == 1):
        print(f"the pictures of {scene.name}", flush=True)
        truth = folder / f"{scene.name}.truth"
        programs.render_truth(scene.name, truth)
        errors = results.errors.setdefault(scene.name, {})
        for name in results.contestants:
            picture = folder / f"{scene.name}-{name}.ppm"
            if programs.draw(name, scene.name, picture):
                errors[name] = programs.compare(truth, picture)
                picture.unlink()


def _measure_speeds(programs: Programs, results: Results, options: argparse.Namespace, measurements: Path) -> None:
    """All contestants draw a scene after each other, so that whatever slows the machine slows all of them. What was
    measured is kept after each repetition: a run may be ended before its time."""
    for repetition in range(options.repetitions):
        print(f"speeds, repetition {repetition + 1} of {options.repetitions}", flush=True)
        for scene in results.scenes:
            for name in results.contestants:
                for when, speed in programs.speeds(name, scene.name, options.seconds).items():
                    kept = results.first_speeds if when == "first" else results.speeds
                    kept.setdefault(scene.name, {}).setdefault(name, []).append(speed)
        results.save(measurements)


def main() -> None:
    options = _options()
    programs = Programs(options.build / "bench/contest", options.core)
    options.output.mkdir(parents=True, exist_ok=True)
    measurements = options.output / "measurements.json"
    truths = options.output / "truths"
    truths.mkdir(exist_ok=True)
    if options.page or options.more:
        results = Results.load(measurements)
    else:
        results = _start(options, programs)
        _judge_pictures(programs, results, truths)
    if not options.page:
        _measure_speeds(programs, results, options, measurements)
    images = options.output / "images"
    images.mkdir(exist_ok=True)
    rows = picture_sheet.write(programs, results, truths, images / page.PICTURES) if options.pictures else []
    print(f"the page: {page.write(results, options.output, rows)}")


if __name__ == "__main__":
    main()
