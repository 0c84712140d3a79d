# SPDX-License-Identifier: Apache-2.0
"""Turns the results of scripts/bench into docs/performance.md, the data of its plot, and the bars of bench/README.md."""

import argparse
import collections
import datetime
import json
import os
import pathlib
import re
import statistics


def medians(path):
    """Nanoseconds of each benchmark: the median of its repetitions. CPU time, but wall time for threads."""
    times = collections.defaultdict(list)
    for run in json.loads(path.read_text())["benchmarks"]:
        if run.get("error_occurred"):
            raise SystemExit(f"{run['run_name']}: {run['error_message']}")
        if run["run_type"] == "iteration":
            times[run["run_name"]].append(run["real_time" if run["name"].startswith("threads/") else "cpu_time"])
    return {name: statistics.median(values) for name, values in times.items()}


class Results:
    def __init__(self, folder):
        self.times = medians(folder / "one-thread.json")
        if (folder / "two-threads.json").exists():
            self.times |= medians(folder / "two-threads.json")

    def names(self, kind):
        """What is measured of a kind, in the order of the operations."""
        return [name.removeprefix(kind + "/") for name in self.times if name.startswith(kind + "/")]

    def of(self, name):
        return self.times.get(name)

    def over(self, name, other):
        """Ratio of two times, None where one was not measured."""
        a, b = self.of(name), self.of(other)
        return None if a is None or b is None else a / b

    def scaling(self, what):
        """What two threads do in the time in which one does 1. Times are per call, of all threads together."""
        return self.over(f"threads/{what}/real_time/threads:1", f"threads/{what}/real_time/threads:2")


class Bar:
    """A ratio that is to be at most, or at least, a limit."""

    def __init__(self, what, ratio, limit, at_least=False):
        self.what, self.ratio, self.limit, self.at_least = what, ratio, limit, at_least

    def row(self):
        sign = "≥" if self.at_least else "≤"
        if self.ratio is None:
            return [self.what, f"{sign} {self.limit}", "–", "not measured"]
        held = self.ratio >= self.limit if self.at_least else self.ratio <= self.limit
        if held:
            verdict = "held"
        else:
            verdict = f"**missed** by {abs(self.ratio / self.limit - 1) * 100:.0f} %"
        return [self.what, f"{sign} {self.limit}", f"{self.ratio:.3g}", verdict]


WIRE_RECORDS = ["PlanarCameraStateResult", "ViewStateResult", "VectorResult", "Matrix", "Frustum", "Vector"]


def wire_ratio(results, protocol, direction, record):
    base = f"wire/{protocol}/{direction} {record}/"
    return results.over(base + "ours", base + "thrift")


def bars(results):
    rows = []
    op = "operation/"
    for peer, name in (("glm", "GLM"), ("eigen", "Eigen")):
        rows.append(Bar(f"`viewUpdateLookat` over {name}'s full camera state",
                        results.over(op + "viewUpdateLookat", f"peer/{peer}/full camera state"), 0.8))
    rows.append(Bar("`planarCameraFitWorldSpaceBoundingBox` over VTK's ResetCamera",
                    results.over(op + "planarCameraFitWorldSpaceBoundingBox", "peer/vtk/reset camera"), 0.1))
    rows.append(Bar("`planarCameraArcballRotation` over VTK's azimuth, elevation, orthogonalise",
                    results.over(op + "planarCameraArcballRotation",
                                 "peer/vtk/azimuth, elevation, orthogonalise"), 0.1))
    rows.append(Bar("`planarCameraArcballRotation` over OpenSceneGraph's trackball and inverse",
                    results.over(op + "planarCameraArcballRotation",
                                 "peer/openscenegraph/trackball and inverse"), 2))
    point = op + "transformWorldPointToScreenPoint"
    moved, move = results.of("peer/vtk/move, world to display"), results.of("peer/vtk/move")
    rows.append(Bar("`transformWorldPointToScreenPoint` over VTK's world to display, camera moved before",
                    None if moved is None else results.of(point) / (moved - move), 0.06))
    rows.append(Bar("`transformWorldPointToScreenPoint` over VTK's world to display, camera as before",
                    results.over(point, "peer/vtk/world to display"), 0.06))
    rows.append(Bar("`transformWorldPointToScreenPoint` over GLM's project", results.over(point, "peer/glm/project"),
                    5))
    scalings = {name: results.scaling(name) for name in results.names("operation")}
    if None not in scalings.values():
        slowest = min(scalings, key=scalings.get)
        rows.append(Bar("two threads over one, median of all operations",
                        statistics.median(scalings.values()), 1.95, at_least=True))
        rows.append(Bar(f"two threads over one, the worst of them: `{slowest}`", scalings[slowest], 1.95,
                        at_least=True))
    else:
        rows.append(Bar("two threads over one, all operations", None, 1.95, at_least=True))
    for protocol in ("binary", "compact"):
        for direction in ("write", "read"):
            ratios = {record: wire_ratio(results, protocol, direction, record) for record in WIRE_RECORDS}
            measured = {record: ratio for record, ratio in ratios.items() if ratio is not None}
            record = max(measured, key=measured.get) if measured else None
            rows.append(Bar(f"{direction} over Thrift's generated code, {protocol.capitalize()}; of "
                            f"{len(WIRE_RECORDS)} records the worst is `{record}`", measured.get(record), 0.6))
    return rows


def table(header, rows, right_from=1):
    """Markdown, its columns aligned for who reads the source; columns from `right_from` on hold numbers."""
    cells = [header] + [[str(cell) for cell in row] for row in rows]
    widths = [max(len(row[i]) for row in cells) for i in range(len(header))]
    lines = []
    for row in cells:
        lines.append("| " + " | ".join(
            cell.ljust(width) if i < right_from else cell.rjust(width)
            for i, (cell, width) in enumerate(zip(row, widths))) + " |")
    rule = "|" + "|".join(
        "-" * (width + 2) if i < right_from else "-" * (width + 1) + ":" for i, width in enumerate(widths)) + "|"
    return "\n".join([lines[0], rule] + lines[1:]) + "\n"


def nanoseconds(value):
    if value is None:
        return "–"
    return f"{value:.1f}" if value < 100 else f"{value:.0f}"


def ratio_text(value):
    return "–" if value is None else f"{value:.2f}"


def operations_table(results, order):
    rows = []
    for name in order:
        rows.append([f"`{name}`", nanoseconds(results.of("operation/" + name)),
                     nanoseconds(results.of("impl/" + name)),
                     nanoseconds(results.of("fresh/" + name)), ratio_text(results.scaling(name))])
    return table(["operation", "warm", "impl alone", "fresh", "two threads"], rows)


def peers_table(results):
    ours = {"view part": "viewUpdateLookat", "look at": "viewUpdateLookat",
            "look at, inverse, quaternion": "viewUpdateLookat", "full camera state": "viewUpdateLookat",
            "project": "transformWorldPointToScreenPoint", "world to display": "transformWorldPointToScreenPoint",
            "reset camera": "planarCameraFitWorldSpaceBoundingBox",
            "azimuth, elevation, orthogonalise": "planarCameraArcballRotation",
            "trackball and inverse": "planarCameraArcballRotation"}
    rows = []
    for name in sorted(results.names("peer")):
        operation = ours.get(name.split("/")[1])
        rows.append([name.replace("/", ": "), nanoseconds(results.of("peer/" + name)),
                     f"`{operation}`" if operation else "",
                     ratio_text(results.over(f"operation/{operation}", "peer/" + name))])
    return table(["peer", "ns", "beside", "ours / peer"], rows)


def wire_table(results):
    rows = []
    for record in WIRE_RECORDS:
        for protocol in ("binary", "compact"):
            for direction in ("write", "read"):
                base = f"wire/{protocol}/{direction} {record}/"
                rows.append([f"{direction} `{record}`, {protocol.capitalize()}", nanoseconds(results.of(base + "ours")),
                             nanoseconds(results.of(base + "thrift")),
                             ratio_text(wire_ratio(results, protocol, direction, record))])
    return table(["record", "ours", "generated", "ratio"], rows)


def machine():
    model = re.search(r"^model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text(), re.M)
    return f"{model.group(1) if model else os.uname().machine}, {os.cpu_count()} cores"


def operation_order():
    """The names of the operations as the interface lists them."""
    text = (pathlib.Path(__file__).parent.parent / "interface/qel/api/camera/Operations.h").read_text()
    return re.findall(r"^    QEL_API_OPERATION\((\w+)", text, re.M)


def span(values):
    """From the least to the greatest, in whole nanoseconds."""
    measured = [value for value in values if value is not None]
    return f"{min(measured):.0f} to {max(measured):.0f}"


def warm_range(results, pattern):
    """From the quickest to the slowest operation whose name matches, with a warm result."""
    return span(results.of("operation/" + name) for name in results.names("operation") if re.match(pattern, name))


def document(results, arguments):
    prose = (pathlib.Path(__file__).parent / "performance.md.in").read_text()
    order = [name for name in operation_order() if name in set(results.names("operation"))]
    load = os.getloadavg()[1]
    scalings = [results.scaling(name) for name in order]
    both = None not in scalings
    return prose.format(
        machine=machine(), date=datetime.date.today().isoformat(), compiler=arguments.compiler,
        flags=arguments.flags, repetitions=arguments.repetitions, load=f"{load:.1f}",
        view_range=warm_range(results, "view(?!Transform)"), camera_range=warm_range(results, "planarCamera"),
        transform_range=warm_range(results, "(view)?[tT]ransform"),
        threads_median=ratio_text(statistics.median(scalings) if both else None),
        threads_least=ratio_text(min(scalings) if both else None),
        copying=ratio_text(results.scaling("control: copying")),
        calculating=ratio_text(results.scaling("control: calculating")),
        operations=operations_table(results, order), peers=peers_table(results), wire=wire_table(results))


PLOT = [
    ("look at", [("ours", "operation/viewUpdateLookat"), ("impl alone", "impl/viewUpdateLookat"),
                 ("GLM, full state", "peer/glm/full camera state"),
                 ("Eigen, full state", "peer/eigen/full camera state"),
                 ("OpenSceneGraph", "peer/openscenegraph/look at, inverse, quaternion"),
                 ("VTK", "peer/vtk/look at")]),
    ("fit a box", [("ours", "operation/planarCameraFitWorldSpaceBoundingBox"),
                   ("impl alone", "impl/planarCameraFitWorldSpaceBoundingBox"), ("VTK", "peer/vtk/reset camera")]),
    ("turn by mouse", [("ours", "operation/planarCameraArcballRotation"),
                       ("impl alone", "impl/planarCameraArcballRotation"),
                       ("OpenSceneGraph", "peer/openscenegraph/trackball and inverse"),
                       ("VTK", "peer/vtk/azimuth, elevation, orthogonalise")]),
    ("world to screen", [("ours", "operation/transformWorldPointToScreenPoint"), ("GLM", "peer/glm/project"),
                         ("VTK, camera as before", "peer/vtk/world to display"),
                         ("VTK, camera moved", "peer/vtk/move, world to display")]),
    ("write a camera", [("ours", "wire/binary/write PlanarCameraStateResult/ours"),
                        ("Thrift's code", "wire/binary/write PlanarCameraStateResult/thrift")]),
    ("read a camera", [("ours", "wire/binary/read PlanarCameraStateResult/ours"),
                       ("Thrift's code", "wire/binary/read PlanarCameraStateResult/thrift")]),
]


def plot_data(results):
    """One line a bar from the top down: place, nanoseconds, colour, label."""
    lines, place = [], 0.0
    for group, entries in PLOT:
        for label, name in entries:
            if results.of(name) is not None:
                colour = {"ours": 0, "impl alone": 1}.get(label, 2)
                lines.append(f'{place:g} {results.of(name):.1f} {colour} "{group}: {label}"')
                place -= 1
        place -= 0.7
    return "\n".join(lines) + "\n"


def with_bars(page, bars_table):
    """The page with the table between its marks."""
    parts = re.fullmatch(r"(?s)(.*<!-- bars -->\n).*(<!-- /bars -->\n.*)", page)
    if not parts:
        raise SystemExit("bench/README.md has no place for the bars")
    return parts[1] + "\n" + bars_table + "\n" + parts[2]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--results", type=pathlib.Path, required=True)
    parser.add_argument("--markdown", type=pathlib.Path, required=True)
    parser.add_argument("--plot-data", type=pathlib.Path, required=True)
    parser.add_argument("--bars", type=pathlib.Path, default=pathlib.Path(__file__).with_name("README.md"))
    parser.add_argument("--repetitions", required=True)
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--flags", required=True)
    arguments = parser.parse_args()
    results = Results(arguments.results)
    arguments.markdown.write_text(document(results, arguments))
    arguments.plot_data.write_text(plot_data(results))
    bars_table = table(["what", "bar", "measured", ""], [bar.row() for bar in bars(results)])
    arguments.bars.write_text(with_bars(arguments.bars.read_text(), bars_table))
    print(bars_table)


if __name__ == "__main__":
    main()
