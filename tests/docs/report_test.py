#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""bench/report.py on results that are made up: the page has a row for everything, and the bars are judged."""

import json
import re
import sys
import tempfile
import unittest
from argparse import Namespace
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "bench"))
import report  # noqa: E402


class Report(unittest.TestCase):
    def setUp(self) -> None:
        times = {f"peer/{name}": 100.0 for name in ("glm/full camera state", "glm/project", "vtk/move", "vtk/reset camera")}
        for name in report.operation_order():
            times |= {f"operation/{name}": 50.0, f"fresh/{name}": 200.0}
            if name.startswith(("view", "planarCamera")):
                times[f"impl/{name}"] = 40.0
        times["operation/viewRoll"] = 60.0
        threads = {f"threads/{name}/real_time/threads:{count}": 60.0 / count
                   for name in report.operation_order() for count in (1, 2)}
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        for file, entries in (("one-thread", times), ("two-threads", threads)):
            runs = [{"name": name, "run_name": name, "run_type": "iteration", "cpu_time": time * factor,
                     "real_time": time * factor} for name, time in entries.items() for factor in (0.5, 1, 7)]
            (Path(folder.name) / f"{file}.json").write_text(json.dumps({"benchmarks": runs}))
        self.results = report.Results(Path(folder.name))

    def test_the_page_has_a_row_for_every_operation(self) -> None:
        page = report.document(self.results, Namespace(compiler="g++ 12", flags="-O3", repetitions="3"))
        self.assertNotRegex(page, r"\{\w+\}")
        self.assertIn("takes 50 to 60 nanoseconds", page)
        for name in report.operation_order():
            row = [cell.strip() for cell in re.search(rf"(?m)^\| `{name}` .*$", page)[0].split("|")[2:-1]]
            time = "60.0" if name == "viewRoll" else "50.0"
            self.assertEqual([row[0], row[2], row[3]], [time, "200", "2.00"], name)
            self.assertIn(row[1], ["40.0", "–"], name)

    def test_a_bar_is_held_missed_or_not_measured(self) -> None:
        rows = {row[0]: row[1:] for row in (bar.row() for bar in report.bars(self.results))}
        self.assertEqual(rows["`viewUpdateLookat` over GLM's full camera state"], ["≤ 0.8", "0.5", "held"])
        self.assertEqual(rows["`planarCameraFitWorldSpaceBoundingBox` over VTK's ResetCamera"],
                         ["≤ 0.1", "0.5", "**missed** by 400 %"])
        self.assertEqual(rows["`viewUpdateLookat` over Eigen's full camera state"], ["≤ 0.8", "–", "not measured"])

    def test_the_bars_have_a_place_in_our_page(self) -> None:
        page = report.with_bars((ROOT / "bench/README.md").read_text(), "| new |\n")
        self.assertIn("<!-- bars -->\n\n| new |\n\n<!-- /bars -->\n", page)
        with self.assertRaises(SystemExit):
            report.with_bars("no place", "| new |\n")


if __name__ == "__main__":
    unittest.main()
