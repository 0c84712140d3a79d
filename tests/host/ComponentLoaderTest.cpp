// SPDX-License-Identifier: Apache-2.0
#include <filesystem>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include <dlfcn.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qel/host/ComponentLoader.h>

#include "tests/host/TemporaryFolder.h"

namespace qel::host {
namespace {

using ::testing::HasSubstr;

static_assert(std::is_nothrow_move_constructible_v<ComponentLoader>);
static_assert(std::is_nothrow_move_assignable_v<ComponentLoader>);
static_assert(!std::is_copy_constructible_v<ComponentLoader>);
static_assert(!std::is_copy_assignable_v<ComponentLoader>);
static_assert(!std::is_convertible_v<std::filesystem::path, ComponentLoader>);

const std::filesystem::path module = CAMERA_MODULE;
const std::filesystem::path fixtures = CAMERA_FIXTURES;

bool isMapped(const std::filesystem::path& file) {
    if (void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD)) {
        dlclose(handle);
        return true;
    }
    return false;
}

/// The error of loading a file that cannot be loaded.
std::optional<LoadError> errorOf(const std::filesystem::path& file) {
    try {
        const ComponentLoader loader(file);
    } catch (const LoadError& error) {
        return error;
    }
    return std::nullopt;
}

std::string nameOf(const ComponentLoader& loader) {
    api::base::StringResult result;
    loader.base().getComponentName(result);
    return result.mValue;
}

class ComponentLoaderTest : public test::FolderTest {
protected:
    /// A module file of the test's own, so that it is mapped apart from the others.
    std::filesystem::path copyOfModule() const {
        std::filesystem::copy_file(module, folder / "Other.so");
        return folder / "Other.so";
    }
};

TEST_F(ComponentLoaderTest, GivesTheServicesOfTheModuleAndUnloadsItAtItsEnd) {
    ASSERT_FALSE(isMapped(module)) << "the test must not link the module";
    {
        const ComponentLoader loader(module);
        EXPECT_EQ(nameOf(loader), "CameraAPI");
        api::camera::PlanarCameraStateResult camera;
        loader.camera().planarCameraCreateDefault(camera);
        EXPECT_EQ(camera.mResult.mError, 0);
        EXPECT_EQ(camera.mValue.mSurfaceState.mResolutionX, 640.0);
        EXPECT_TRUE(isMapped(module));
    }
    EXPECT_FALSE(isMapped(module));
}

TEST_F(ComponentLoaderTest, FindsAModuleInTheCurrentFolder) {
    copyOfModule();
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_FALSE(errorOf("Other.so"));
    std::filesystem::current_path(before);
}

TEST_F(ComponentLoaderTest, TwoOfOneFileShareItUntilTheLastIsGone) {
    std::optional<ComponentLoader> first(std::in_place, module);
    const ComponentLoader second(module);
    EXPECT_NE(&first->camera(), &second.camera());
    first.reset();
    EXPECT_TRUE(isMapped(module));
    EXPECT_EQ(nameOf(second), "CameraAPI");
}

TEST_F(ComponentLoaderTest, TwoOfDifferentFilesLiveTogether) {
    const auto other = copyOfModule();
    std::optional<ComponentLoader> first(std::in_place, module);
    const ComponentLoader second(other);
    api::camera::PlanarCameraStateResult a;
    api::camera::PlanarCameraStateResult b;
    first->camera().planarCameraCreateDefault(a);
    second.camera().planarCameraUpdateWindowSize(b, a.mValue, 800, 600); // a state of one is a state of the other
    EXPECT_EQ(b.mResult.mError, 0);
    EXPECT_EQ(b.mValue.mSurfaceState.mResolutionX, 800.0);
    first.reset();
    EXPECT_FALSE(isMapped(module));
    EXPECT_EQ(nameOf(second), "CameraAPI");
}

TEST_F(ComponentLoaderTest, IsMovedWithTheServicesWhereTheyAre) {
    ComponentLoader source(module);
    const auto* camera = &source.camera();
    const ComponentLoader target(std::move(source));
    EXPECT_EQ(&target.camera(), camera);
    EXPECT_EQ(nameOf(target), "CameraAPI");
}

TEST_F(ComponentLoaderTest, DeletesItsInstanceBeforeItsModuleWhenItIsAssigned) {
    const auto other = copyOfModule();
    ComponentLoader target(module);
    ComponentLoader source(other);
    target = std::move(source); // the old instance's destructor is code of the old module
    EXPECT_FALSE(isMapped(module));
    EXPECT_TRUE(isMapped(other));
    EXPECT_EQ(nameOf(target), "CameraAPI");
}

TEST_F(ComponentLoaderTest, SurvivesAssignmentToItself) {
    ComponentLoader loader(module);
    ComponentLoader& same = loader;
    loader = std::move(same);
    EXPECT_EQ(nameOf(loader), "CameraAPI");
}

/// A module that is wrong in one way, or is not there, and how that is told.
struct WrongModule {
    const char* name;
    LoadError::Reason reason;
    const char* text;
};

class WrongModules : public ::testing::TestWithParam<WrongModule> {};

INSTANTIATE_TEST_SUITE_P(
    ComponentLoader, WrongModules,
    ::testing::Values(
        WrongModule{"Missing", LoadError::Reason::missingFile, "no such file"},
        WrongModule{"NoFactory", LoadError::Reason::missingSymbol, "does not export createComponentInstance"},
        WrongModule{"NullInstance", LoadError::Reason::noInstance, "the factory returned no instance"},
        WrongModule{"ThrowingFactory", LoadError::Reason::noInstance, "the factory threw: the fixture's own words"},
        WrongModule{"OtherComponent", LoadError::Reason::wrongInterface, "the component offers no camera service"}),
    [](const auto& parameter) { return parameter.param.name; });

TEST_P(WrongModules, AreToldAndNotKept) {
    const auto file = fixtures / (std::string(GetParam().name) + ".so");
    const auto error = errorOf(file);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason(), GetParam().reason);
    EXPECT_EQ(error->what(), file.string() + ": " + GetParam().text);
    EXPECT_FALSE(isMapped(file));
}

TEST_F(ComponentLoaderTest, TellsAFileThatIsNoModule) {
    const auto file = folder.write("Text.so", "These are words.\n");
    const auto error = errorOf(file);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason(), LoadError::Reason::notAModule);
    EXPECT_THAT(error->what(), HasSubstr(file.string() + ": cannot be loaded: "));
    EXPECT_EQ(errorOf(folder.path())->reason(), LoadError::Reason::notAModule);
}

} // namespace
} // namespace qel::host
