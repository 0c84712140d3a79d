#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Checks the recipes for vcpkg and Conan as far as that goes without either.

    check-recipes.py TREE PORT VERSION

PORT is the folder of the port made for vcpkg. Conan is stood in for by what the recipe uses of it.
"""

import importlib.util
import json
import pathlib
import re
import sys
import tempfile
import types
import unittest
from unittest import mock

sys.dont_write_bytecode = True
TREE, PORT, VERSION = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]


def copy(recipe, pattern, source, destination):
    """What Conan's copy does with a file's name, or with all there is below a folder: `folder/*`."""
    place = pathlib.Path(source, pattern.removesuffix("/*"))
    files = [file for file in place.rglob("*") if file.is_file()] if pattern.endswith("/*") else [place]
    for file in files:
        target = pathlib.Path(destination, file.relative_to(source))
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(file.read_bytes())


def recipe(path):
    """The recipe's class, with modules in Conan's place."""
    stand_ins = {
        "conan": {"ConanFile": type("ConanFile", (), {"recipe_folder": str(path.parent)})},
        "conan.tools": {},
        "conan.tools.build": {"check_min_cppstd": mock.Mock(), "can_run": mock.Mock(return_value=True)},
        "conan.tools.cmake": {name: mock.Mock() for name in ("CMake", "CMakeDeps", "CMakeToolchain", "cmake_layout")},
        "conan.tools.files": {"copy": copy, "load": lambda recipe, path: pathlib.Path(path).read_text("utf-8")},
    }
    modules = {}
    for name, content in stand_ins.items():
        modules[name] = types.ModuleType(name)
        vars(modules[name]).update(content)
    with mock.patch.dict(sys.modules, modules):
        specification = importlib.util.spec_from_file_location("recipe", path)
        module = importlib.util.module_from_spec(specification)
        specification.loader.exec_module(module)
    [found] = [item for item in vars(module).values()
               if isinstance(item, type) and item.__module__ == "recipe"]
    return module, found()


class ConanTest(unittest.TestCase):
    def setUp(self):
        self.module, self.recipe = recipe(TREE / "packaging/conan/conanfile.py")

    def test_version_is_the_projects(self):
        self.recipe.set_version()
        self.assertEqual(self.recipe.version, VERSION)

    def test_exported_sources_hold_every_room_that_is_built(self):
        with tempfile.TemporaryDirectory() as folder:
            self.recipe.export_sources_folder = folder
            self.recipe.export_sources()
            for room in ("", "interface", "math", "impl", "component", "host", "examples"):
                self.assertTrue(pathlib.Path(folder, room, "CMakeLists.txt").is_file(), room)
            for page in ("LICENSE", "README.md", "packaging/camera-component.pc.in"):
                self.assertTrue(pathlib.Path(folder, page).is_file(), page)

    def test_options_are_the_projects(self):
        self.module.CMakeToolchain.return_value.cache_variables = options = {}
        self.recipe.generate()
        self.assertTrue(options)
        for option in options:
            self.assertIn(option, known_options())

    def test_test_package_names_sources_that_exist(self):
        folder = TREE / "packaging/conan/test_package"
        recipe(folder / "conanfile.py")
        sources = re.findall(r"\$\{CMAKE_CURRENT_SOURCE_DIR\}/(\S+\.cpp)", (folder / "CMakeLists.txt").read_text("utf-8"))
        self.assertTrue(sources)
        for source in sources:
            self.assertTrue((folder / source).is_file(), source)


class VcpkgTest(unittest.TestCase):
    def test_manifest_states_name_version_and_licence(self):
        manifest = json.loads((PORT / "vcpkg.json").read_text("utf-8"))
        self.assertEqual(
            {key: manifest[key] for key in ("name", "version", "license")},
            {"name": PORT.name, "version": VERSION, "license": "Apache-2.0"})
        names = [item if isinstance(item, str) else item["name"] for item in manifest["dependencies"]]
        self.assertIn("thrift", names)

    def test_port_builds_this_tree_with_options_it_has(self):
        port = (PORT / "portfile.cmake").read_text("utf-8")
        [tree] = re.findall(r'set\(SOURCE_PATH "(.*)"\)', port)
        self.assertEqual(pathlib.Path(tree).resolve(), TREE.resolve())
        options = re.findall(r"-D(\w+)=", port)
        self.assertTrue(options)
        for option in options:
            self.assertIn(option, known_options())

    def test_usage_names_targets_that_are_exported(self):
        exported = (TREE / "packaging/CameraComponentConfig.cmake.in").read_text("utf-8")
        targets = re.findall(r"CameraComponent::\w+", (PORT / "usage").read_text("utf-8"))
        self.assertTrue(targets)
        for target in targets:
            self.assertIn(f"# {target} ", exported)


def known_options():
    files = (TREE / "CMakeLists.txt", TREE / "cmake/FindCameraThrift.cmake")
    return set(re.findall(r"\bCAMERA_\w+", "".join(file.read_text("utf-8") for file in files)))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
