// SPDX-License-Identifier: Apache-2.0
#include "host/scene/Mesh.h"

#include <cmath>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/ErrorOf.h"
#include "tests/host/ModelFiles.h"
#include "tests/host/TemporaryFolder.h"

namespace qel::host::test {
namespace {

using ::testing::HasSubstr;

std::string errorOfLoading(const std::filesystem::path& file) {
    return errorOf<ModelError>([&] { loadMesh(file); });
}

using MeshTest = FolderTest;

class MeshFormat : public FolderTest, public ::testing::WithParamInterface<ModelFile> {};

INSTANTIATE_TEST_SUITE_P(Good, MeshFormat, ::testing::ValuesIn(goodModels()),
                         [](const auto& parameter) { return parameter.param.test; });

TEST_P(MeshFormat, IsRead) {
    const Mesh mesh = loadMesh(folder.write(GetParam().name, GetParam().content));
    EXPECT_EQ(mesh.triangles.size(), 12U) << "the four triangles of a tetrahedron";
    EXPECT_EQ(mesh.box.minimum, (Vec3{0, 0, 0}));
    EXPECT_EQ(mesh.box.maximum, (Vec3{1, 2, 3}));
    ASSERT_EQ(mesh.normals.size(), mesh.positions.size());
    // The facets of this STL file say that they know no normal, as many do.
    const double expected = GetParam().test == "Stl" ? 0.0 : 1.0;
    for (const auto& normal : mesh.normals) {
        EXPECT_NEAR(std::hypot(normal[0], normal[1], normal[2]), expected, 1e-5);
    }
}

using BrokenModel = MeshFormat;

INSTANTIATE_TEST_SUITE_P(Broken, BrokenModel, ::testing::ValuesIn(brokenModels()),
                         [](const auto& parameter) { return parameter.param.test; });

TEST_P(BrokenModel, IsRefusedInOneLineThatNamesTheFile) {
    const auto file = folder.write(GetParam().name, GetParam().content);
    const std::string error = errorOfLoading(file);
    EXPECT_THAT(error, HasSubstr(file.string() + ": "));
    EXPECT_THAT(error, HasSubstr(GetParam().problem));
    EXPECT_EQ(error.find('\n'), std::string::npos) << error;
}

TEST_F(MeshTest, IsNotReadFromNowhereOrFromAFolder) {
    EXPECT_EQ(errorOfLoading("/nowhere/model.obj"), "/nowhere/model.obj: no such file");
    EXPECT_EQ(errorOfLoading(folder.path()), folder.path().string() + ": not a file");
}

TEST_F(MeshTest, BoxHoldsWhatIsDrawnAndNoStrayVertex) {
    const Mesh mesh = loadMesh(folder.write("stray.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 90 90 90\nf 1 2 3\n"));
    EXPECT_EQ(mesh.box.maximum, (Vec3{1, 1, 0}));
}

TEST_F(MeshTest, TakesTheModelsOfTheProject) {
    EXPECT_EQ(loadMesh(CAMERA_MODELS "/teapot.obj").triangles.size() / 3, 992U);
    EXPECT_EQ(loadMesh(CAMERA_MODELS "/bunny.obj").triangles.size() / 3, 3674U);
}

} // namespace
} // namespace qel::host::test
