// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace qel::host::test {

struct ModelFile {
    std::string test; ///< what it is about
    std::string name; ///< the file's, whose ending says the format
    std::string content;
    std::string problem; ///< what is said of it where it is broken
};

inline void PrintTo(const ModelFile& file, std::ostream* out) { *out << file.name; }

inline std::string plyHeader(int vertices, int faces) {
    return "ply\nformat ascii 1.0\nelement vertex " + std::to_string(vertices) +
           "\nproperty float x\nproperty float y\nproperty float z\nelement face " + std::to_string(faces) +
           "\nproperty list uchar int vertex_indices\nend_header\n";
}

/// A tetrahedron from (0, 0, 0) to (1, 2, 3), in each of the formats that are promised.
inline std::vector<ModelFile> goodModels() {
    const std::string facet = "facet normal 0 0 0\nouter loop\n";
    const std::string end = "endloop\nendfacet\n";
    const std::string o = "vertex 0 0 0\n";
    const std::string x = "vertex 1 0 0\n";
    const std::string y = "vertex 0 2 0\n";
    const std::string z = "vertex 0 0 3\n";
    return {
        {"Obj", "model.obj", "v 0 0 0\nv 1 0 0\nv 0 2 0\nv 0 0 3\nf 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n", ""},
        {"Ply", "model.ply", plyHeader(4, 4) + "0 0 0\n1 0 0\n0 2 0\n0 0 3\n3 0 2 1\n3 0 1 3\n3 0 3 2\n3 1 2 3\n", ""},
        {"Stl", "model.stl",
         "solid tetrahedron\n" + facet + o + y + x + end + facet + o + x + z + end + facet + o + z + y + end + facet +
             x + y + z + end + "endsolid\n",
         ""},
        // The buffer holds the four corners as floats, then twelve indices as 16-bit integers.
        {"Gltf", "model.gltf",
         R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],"nodes":[{"mesh":0}],
"meshes":[{"primitives":[{"attributes":{"POSITION":0},"indices":1}]}],
"accessors":[{"bufferView":0,"componentType":5126,"count":4,"type":"VEC3","min":[0,0,0],"max":[1,2,3]},
{"bufferView":1,"componentType":5123,"count":12,"type":"SCALAR"}],
"bufferViews":[{"buffer":0,"byteOffset":0,"byteLength":48},{"buffer":0,"byteOffset":48,"byteLength":24}],
"buffers":[{"byteLength":72,"uri":"data:application/octet-stream;base64,)"
         "AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAAEAAAAAAAAAAAAAAAAAAAEBAAAACAAEAAAABAAMAAAADAAIAAQACAAMA"
         R"("}]})",
         ""},
    };
}

inline std::vector<ModelFile> brokenModels() {
    const std::string unread = "cannot be read as a model";
    const std::string noTriangles = "no triangles";
    const std::string noNumber = "not a finite number";
    const std::string noExtent = "no extent";
    return {
        {"Empty", "empty.obj", "", "the file is empty"},
        {"Words", "words.obj", "These are words, and no model.\n", ""},
        {"UnknownFormat", "model.xyz123", "v 0 0 0\n", unread},
        {"CornersWithoutFaces", "corners.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\n", ""},
        {"LinesOnly", "lines.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nl 1 2\nl 2 3\n", noTriangles},
        {"NotANumber", "nan.obj", "v nan 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n", noNumber},
        {"Infinite", "inf.obj", "v inf 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n", noNumber},
        {"OnePoint", "point.obj", "v 1 1 1\nv 1 1 1\nv 1 1 1\nf 1 2 3\n", noExtent},
        {"TooSmall", "small.obj", "v 0 0 0\nv 1e-8 0 0\nv 0 1e-8 0\nf 1 2 3\n", noExtent},
        {"UnknownCorner", "corner.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 7\n", "out of range"},
        {"CutPly", "cut.ply", plyHeader(4, 4) + "0 0 0\n1 0", ""},
        {"PlyWithUnknownCorner", "corner.ply", plyHeader(3, 1) + "0 0 0\n1 0 0\n0 1 0\n3 0 1 99999\n",
         "names a vertex that does not exist"},
        {"CutStl", "cut.stl", std::string(80, ' ') + std::string("\x10\x27\0\0", 4) + std::string(20, '\0'), ""},
        {"CutGltf", "cut.gltf", R"({"asset":{"version":"2.0"},"meshes":[{)", unread},
        {"GltfWithoutItsBuffer", "buffer.gltf",
         R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],"nodes":[{"mesh":0}],
"meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}],
"accessors":[{"bufferView":0,"componentType":5126,"count":4,"type":"VEC3"}],
"bufferViews":[{"buffer":0,"byteLength":48}],"buffers":[{"byteLength":48,"uri":"missing.bin"}]})",
         ""},
        {"Zeros", "zeros.glb", std::string(64, '\0'), unread},
    };
}

} // namespace qel::host::test
