# SPDX-License-Identifier: Apache-2.0
"""The package for Conan 2, made from the tree that this file stands in."""

import os
import re

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load


class CameraComponent(ConanFile):
    name = "camera-component"
    description = "A camera component, loaded at run time"
    license = "Apache-2.0"
    package_type = "static-library"  # the records; the module beside them is loaded, never linked
    settings = "os", "arch", "compiler", "build_type"

    @property
    def _tree(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def set_version(self):
        project = load(self, os.path.join(self._tree, "CMakeLists.txt"))
        self.version = re.search(r"project\(camera VERSION ([0-9.]+)", project).group(1)

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "LICENSE", "README.md", "cmake/*", "component/*", "docs/*", "examples/*",
                        "host/*", "impl/*", "interface/*", "math/*", "packaging/*"):
            copy(self, pattern, self._tree, self.export_sources_folder)

    def requirements(self):
        # A host compiles and links with the Thrift of the records, whose headers include headers of Boost.
        self.requires("thrift/[>=0.19]", transitive_headers=True, transitive_libs=True)
        self.requires("boost/[>=1.74]", transitive_headers=True)

    def validate(self):
        check_min_cppstd(self, 20)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        for option in ("CAMERA_BUILD_TESTS", "CAMERA_BUILD_DEMO", "CAMERA_BUILD_FUZZERS"):
            toolchain.cache_variables[option] = False
        toolchain.cache_variables["CAMERA_THRIFT_SYSTEM_ONLY"] = True
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))

    def package_info(self):
        # The package's own CMake files, instead of ones that Conan would make up.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = [os.path.join("lib", "cmake", "CameraComponent")]
        self.cpp_info.set_property("pkg_config_name", "camera-component")
        self.cpp_info.libs = ["camera_interface"]
        self.cpp_info.system_libs = ["dl", "pthread"]
