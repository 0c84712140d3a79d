#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The rooms of the tree: which room may include which, names that are told apart, files that can be read at a sitting."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LONGEST = 400

# What each room includes beside itself, the standard library and Thrift. Arrows point one way; who may include a room
# may include what that room is made of.
ARROWS = {
    "math": [],
    "impl": ["math"],
    "interface": [],
    "wire": [],
    "records": ["interface", "wire"],
    "component": ["interface", "impl"],
    "host": ["interface"],
    "host/show": ["host", "impl"],  # looks into blobs
    "examples": ["interface", "host"],
}


def reach(room):
    rooms = {room}
    for target in ARROWS[room]:
        rooms |= reach(target)
    return rooms


def files():
    for room in sorted({room.split("/")[0] for room in ARROWS}) + ["tests", "fuzz", "bench"]:
        for path in sorted((ROOT / room).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                yield path.relative_to(ROOT)


def room_of(path):
    return "host/show" if path.parts[:2] == ("host", "show") else path.parts[0]


def room_of_include(name, public):
    """The room of an included file, or None for what belongs to nobody here."""
    if public:
        if name.startswith("qel/api/"):
            return "interface"
        return "host" if name.startswith("qel/host/") else None
    return name.split("/")[0]


def includes(path):
    for opening, name in re.findall(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', (ROOT / path).read_text(), re.MULTILINE):
        yield name, opening == "<"


class Layout(unittest.TestCase):
    def test_every_include_follows_an_arrow(self):
        seen = 0
        for path in files():
            room = room_of(path)
            if room not in ARROWS:
                continue
            for name, public in includes(path):
                target = room_of_include(name, public)
                if target is not None:
                    seen += 1
                    self.assertIn(target, reach(room), f"{path} includes {name}")
        self.assertGreater(seen, 300)

    def test_every_private_include_names_its_room(self):
        for path in files():
            for name, public in includes(path):
                if not public and path.parts[0] in ARROWS:
                    self.assertTrue((ROOT / name).is_file(), f"{path} includes {name}")

    def test_no_two_headers_share_a_name(self):
        by_name = {}
        for path in files():
            if path.suffix == ".h":
                self.assertNotIn(path.name, by_name, f"{path} and {by_name.get(path.name)}")
                by_name[path.name] = path

    def test_no_file_is_too_long_to_read_at_a_sitting(self):
        for path in files():
            if path.name == "CameraAPIIf.h":  # the contract, one comment for each operation
                continue
            lines = len((ROOT / path).read_text().splitlines())
            self.assertLessEqual(lines, LONGEST, str(path))


if __name__ == "__main__":
    unittest.main()
