// SPDX-License-Identifier: Apache-2.0
#include "host/scene/Mesh.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <limits>
#include <system_error>

#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

namespace qel::host {
namespace {

/// The camera takes boxes up to 1e-7 in size for nothing, and sets up near planes that are a fraction of the size.
constexpr double smallestDiagonal = 1e-6;

/// Edges sharper than this stay edges, where the file brings no normals of its own.
constexpr float creaseAngleInDegrees = 50.0F;

void requireReadable(const std::filesystem::path& file) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) {
        throw ModelError(file, "no such file");
    }
    if (!std::filesystem::is_regular_file(status)) {
        throw ModelError(file, "not a file");
    }
    if (!std::ifstream(file, std::ios::binary)) {
        throw ModelError(file, "cannot be opened");
    }
    if (std::filesystem::file_size(file, error) == 0 && !error) {
        throw ModelError(file, "the file is empty");
    }
}

/// One line of what the reader says, whatever it says.
std::string oneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char character) { return character < ' ' || character == 0x7F; }, ' ');
    constexpr std::size_t longest = 300;
    if (text.size() > longest) {
        text = text.substr(0, longest) + "...";
    }
    return text.empty() ? "no reason given" : text;
}

bool isFinite(const aiVector3D& vector) {
    return std::isfinite(vector.x) && std::isfinite(vector.y) && std::isfinite(vector.z);
}

/// The processing steps of assimp trust what its readers made of the file, so this is looked at before.
void requireSound(const aiScene& scene, const std::filesystem::path& file) {
    bool hasTriangles = false;
    for (unsigned int i = 0; i < scene.mNumMeshes; ++i) {
        const aiMesh& part = *scene.mMeshes[i];
        for (unsigned int k = 0; k < part.mNumVertices; ++k) {
            if (!isFinite(part.mVertices[k])) {
                throw ModelError(file, "the model has a coordinate that is not a finite number");
            }
        }
        for (unsigned int k = 0; k < part.mNumFaces; ++k) {
            const aiFace& face = part.mFaces[k];
            hasTriangles = hasTriangles || face.mNumIndices >= 3;
            for (unsigned int corner = 0; corner < face.mNumIndices; ++corner) {
                if (face.mIndices[corner] >= part.mNumVertices) {
                    throw ModelError(file, "a face of the model names a vertex that does not exist");
                }
            }
        }
    }
    if (!hasTriangles) {
        throw ModelError(file, "the model has no triangles");
    }
}

void append(Mesh& mesh, const aiMesh& part, const std::filesystem::path& file) {
    if (mesh.positions.size() + part.mNumVertices > std::numeric_limits<std::uint32_t>::max()) {
        throw ModelError(file, "the model has more vertices than can be counted");
    }
    const auto first = static_cast<std::uint32_t>(mesh.positions.size());
    for (unsigned int i = 0; i < part.mNumVertices; ++i) {
        const aiVector3D& position = part.mVertices[i];
        mesh.positions.push_back({position.x, position.y, position.z});
        aiVector3D normal = part.HasNormals() ? part.mNormals[i] : aiVector3D();
        const float size = isFinite(normal) ? normal.Length() : 0.0F;
        normal = size > 0.0F ? normal / size : aiVector3D();
        mesh.normals.push_back({normal.x, normal.y, normal.z});
    }
    for (unsigned int i = 0; i < part.mNumFaces; ++i) {
        const aiFace& face = part.mFaces[i];
        if (face.mNumIndices != 3) {
            continue;
        }
        for (unsigned int k = 0; k < 3; ++k) {
            mesh.triangles.push_back(first + face.mIndices[k]);
        }
    }
}

Box boxAround(const Mesh& mesh) {
    Box box{mesh.positions[mesh.triangles.front()], mesh.positions[mesh.triangles.front()]};
    for (const std::uint32_t index : mesh.triangles) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            box.minimum[axis] = std::min(box.minimum[axis], mesh.positions[index][axis]);
            box.maximum[axis] = std::max(box.maximum[axis], mesh.positions[index][axis]);
        }
    }
    return box;
}

} // namespace

Mesh loadMesh(const std::filesystem::path& file) {
    requireReadable(file);

    Assimp::Importer importer;
    importer.SetPropertyFloat(AI_CONFIG_PP_GSN_MAX_SMOOTHING_ANGLE, creaseAngleInDegrees);
    importer.SetPropertyInteger(AI_CONFIG_PP_SBP_REMOVE, aiPrimitiveType_POINT | aiPrimitiveType_LINE);
    const auto require = [&](const aiScene* scene) {
        if (scene == nullptr) {
            throw ModelError(file, "cannot be read as a model: " + oneLine(importer.GetErrorString()));
        }
        return scene;
    };
    requireSound(*require(importer.ReadFile(file.string(), 0)), file);
    const aiScene* scene = require(importer.ApplyPostProcessing(
        aiProcess_Triangulate | aiProcess_GenSmoothNormals | aiProcess_JoinIdenticalVertices |
        aiProcess_PreTransformVertices | aiProcess_SortByPType));

    Mesh mesh;
    for (unsigned int i = 0; i < scene->mNumMeshes; ++i) {
        append(mesh, *scene->mMeshes[i], file);
    }
    if (mesh.triangles.empty()) {
        throw ModelError(file, "the model has no triangles");
    }
    mesh.box = boxAround(mesh);
    // The parts' own placement may have made infinities of what was finite in the file.
    if (!std::isfinite(length(mesh.box.size()))) {
        throw ModelError(file, "the model is too large for its numbers");
    }
    if (!(length(mesh.box.size()) > smallestDiagonal)) {
        throw ModelError(file, "the model has no extent: all of it lies in one point, or nearly so");
    }
    return mesh;
}

} // namespace qel::host
