# SPDX-License-Identifier: MIT
"""The arithmetic of the contest's tables and goals, on figures that can be checked by eye, and its pictures."""

import struct
import sys
import tempfile
import unittest
import zlib
from pathlib import Path
from xml.etree import ElementTree

sys.path.insert(0, str(Path(__file__).parents[2] / "bench/contest/runner"))

import goals
import page
from pixmap import Pixmap
from programs import Scene
from results import Results


def scene(name: str, kind: str, pictures: int = 1) -> Scene:
    return Scene(name, kind, 800, 600, 240, 336, pictures, (100, 100))


def errors(area: float, conformance: float, edges: float, worst: float = 0.5) -> dict[str, float]:
    return {"area": area, "conformance": conformance, "edges": edges, "worst": worst}


def tilted_results() -> Results:
    """llvmpipe is fast and wrong, agg slow and right, agg-resample slower and looks best."""
    tilted, many, blit = scene("tilted240", "tilted"), scene("tilted240-52", "tilted", 52), scene("blit240", "blit")
    names = ["cardtable-motion", "cardtable-rest", "llvmpipe", "agg", "agg-resample", "cairo", "memory-over"]
    return Results(
        scenes=[blit, tilted, many],
        contestants={name: "described" for name in names},
        speeds={
            "tilted240": {
                "cardtable-motion": [300.0, 360.0, 10.0],
                "cardtable-rest": [90.0],
                "llvmpipe": [100.0, 100.0, 400.0],
                "agg": [80.0],
                "agg-resample": [25.0],
                "memory-over": [4000.0],
            },
            "tilted240-52": {"cardtable-motion": [240.0], "llvmpipe": [50.0], "memory-over": [3000.0]},
            "blit240": {"cardtable-motion": [4000.0], "cairo": [2000.0]},
        },
        first_speeds={"tilted240-52": {"cardtable-motion": [150.0], "llvmpipe": [60.0]}},
        errors={
            "tilted240": {
                "cardtable-motion": errors(34.0, 58.0, 48.0),
                "cardtable-rest": errors(37.0, 35.0, 33.0),
                "llvmpipe": errors(31.0, 35.0, 21.0),
                "agg": errors(33.5, 61.0, 53.0),
                "agg-resample": errors(36.8, 34.0, 33.0),
            },
            "blit240": {"cardtable-motion": errors(86.0, 86.0, 83.0)},
        },
    )


class GoalsTest(unittest.TestCase):
    def judged(self, name: str) -> dict[str, goals.Goal]:
        results = tilted_results()
        chosen = next(scene for scene in results.scenes if scene.name == name)
        return {goal.what: goal for goal in goals.judge(results, chosen)}

    def test_speeds_are_medians_over_the_peer_that_the_goal_names(self):
        judged = self.judged("tilted240")
        # recorded 1.33 x llvmpipe is the fastest of all; wrong pictures do not count among the correct
        fastest = judged["in motion: speed over the fastest peer (blend2d (recorded))"]
        self.assertAlmostEqual(fastest.measured, 300.0 / 133.0)
        self.assertTrue(fastest.reached)
        correct = judged["in motion: speed over the fastest correct one (agg)"]
        self.assertAlmostEqual(correct.measured, 300.0 / 80.0)
        self.assertFalse(correct.reached)
        rest = judged["at rest: speed over the best looking one (agg-resample)"]
        self.assertAlmostEqual(rest.measured, 90.0 / 25.0)
        self.assertFalse(rest.reached)

    def test_a_time_in_which_the_machine_is_slow_is_slow_for_both(self):
        results = tilted_results()
        results.speeds["blit240"] = {"cardtable-motion": [300.0, 90.0, 80.0], "cairo": [100.0, 30.0, 60.0]}
        self.assertAlmostEqual(results.ratio(results.scenes[0], "cardtable-motion", "cairo"), 3.0)
        results.speeds["blit240"]["cairo"] = [100.0]  # another number of rounds: nothing to pair
        self.assertAlmostEqual(results.ratio(results.scenes[0], "cardtable-motion", "cairo"), 0.9)

    def test_quality_is_held_against_the_best_conforming_peer(self):
        judged = self.judged("tilted240")
        self.assertEqual(judged["in motion: area"].wanted, 33.5)
        self.assertTrue(judged["in motion: area"].reached)
        self.assertEqual(judged["at rest: area"].wanted, 36.5)

    def test_losses_compare_a_scene_with_itself_of_one_picture(self):
        loss = self.judged("tilted240-52")["in motion: loss against one picture"]
        self.assertAlmostEqual(loss.measured, 0.2)
        self.assertFalse(loss.reached)

    def test_the_first_speeds_are_judged_too_against_the_steady_ones_of_one_picture(self):
        judged = self.judged("tilted240-52")
        loss = judged["first 0.3 s, in motion: loss against one picture"]
        self.assertAlmostEqual(loss.measured, 0.5)
        fastest = judged["first 0.3 s, in motion: speed over the fastest peer (blend2d (recorded))"]
        self.assertAlmostEqual(fastest.measured, 150.0 / (60.0 * 1.89))
        self.assertNotIn("first 0.3 s, in motion: area", judged)

    def test_upright_cards_may_lose_what_the_memory_loop_loses(self):
        upright, many = scene("upright240", "upright"), scene("upright240-52", "upright", 52)
        results = Results(
            scenes=[upright, many],
            contestants={name: "" for name in ("cardtable-motion", "cairo", "memory-over")},
            speeds={
                "upright240": {"cardtable-motion": [2000.0], "cairo": [600.0], "memory-over": [4000.0]},
                "upright240-52": {"cardtable-motion": [1700.0], "cairo": [500.0], "memory-over": [3200.0]},
            },
        )
        loss = goals.judge(results, many)[-1]
        self.assertAlmostEqual(loss.wanted, 0.2)
        self.assertAlmostEqual(loss.measured, 0.15)
        self.assertTrue(loss.reached)

    def test_what_was_not_measured_is_neither_reached_nor_missed(self):
        results = Results(scenes=[scene("rotated71", "rotated")], contestants={"cardtable-motion": ""})
        self.assertEqual({goal.reached for goal in goals.judge(results, results.scenes[0])}, {None})
        exact = goals.Goal("blit71", "largest difference", "levels", 1.0, 1.5, at_most=True)
        self.assertFalse(exact.reached)


class PageTest(unittest.TestCase):
    def test_tables_hold_speeds_ratios_and_verdicts(self):
        with tempfile.TemporaryDirectory() as folder:
            text = page.write(tilted_results(), Path(folder), ["tilted240: ours"]).read_text()
            drawing = ElementTree.parse(Path(folder) / "images/contest-tilted.svg")
        self.assertIn("| cardtable-motion | 300 (2.26) | 240 (2.54) | 150 (1.32) |", text)
        self.assertIn("| agg | 33.5 / 61.0 / 53.0 |", text)
        self.assertIn("| blend2d (recorded) | 133 (1.00) | 94 (1.00) | 113 (1.00) |", text)
        self.assertIn("| tilted240-52 | in motion: loss against one picture | at most 15.0 % | 20.0 % | **no** |", text)
        self.assertIn("in motion: speed over the fastest peer (blend2d (recorded)) | 1.00 | 1.25 | yes |", text)
        self.assertIn("goals are reached**; missed are", text)
        self.assertIn("- tilted240: ours\n", text)
        bars = [element for element in drawing.iter() if element.get("stroke-dasharray")]
        self.assertEqual(len(bars), 5)  # two recorded rows of two scenes, and one in the legend

    def test_results_come_back_from_their_file(self):
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "measurements.json"
            tilted_results().save(file)
            self.assertEqual(Results.load(file), tilted_results())


class PixmapTest(unittest.TestCase):
    def test_crops_are_magnified_and_written_as_png(self):
        with tempfile.TemporaryDirectory() as folder:
            source, target = Path(folder) / "a.ppm", Path(folder) / "a.png"
            source.write_bytes(b"P6\n3 2\n255\n" + bytes(range(18)))
            picture = Pixmap.read(source).cut(1, 1, 2, 1).magnified(2)
            picture.beside(Pixmap.filled(1, 2, b"\xff\0\0")).write_png(target)
            png = target.read_bytes()
        row = bytes([12, 13, 14] * 2 + [15, 16, 17] * 2 + [255, 0, 0])
        self.assertEqual(struct.unpack(">II", png[16:24]), (5, 2))
        length = struct.unpack(">I", png[33:37])[0]
        self.assertEqual(zlib.decompress(png[41 : 41 + length]), b"\0" + row + b"\0" + row)


if __name__ == "__main__":
    unittest.main()
