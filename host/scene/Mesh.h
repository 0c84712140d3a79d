// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/scene/Geometry.h"

namespace qel::host {

/// A file that cannot be shown as a model. The text names the file and what was wrong with it.
class ModelError : public std::runtime_error {
public:
    ModelError(const std::filesystem::path& file, const std::string& what)
        : std::runtime_error(file.string() + ": " + what) {}
};

/// Triangles with a normal at each vertex, and the box around them.
struct Mesh {
    std::vector<Vec3> positions;
    std::vector<std::array<float, 3>> normals; ///< one for each position: a unit vector, or zero where none is known
    std::vector<std::uint32_t> triangles;      ///< three indices of positions each
    Box box;
};

/// Reads a model in any format that assimp knows: OBJ, PLY, STL, glTF and others. Its parts are put together as the
/// file places them; points and lines in it are left out. Throws ModelError for a file without triangles, with a
/// coordinate that is not a finite number, or with no extent.
Mesh loadMesh(const std::filesystem::path& file);

} // namespace qel::host
