// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <dlfcn.h>
#include <malloc.h>

#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"
#include "tests/component/support/Sanitized.h"

namespace qel::api::camera::test {

namespace {

/// How many stretches of this process's memory come from files with this in their path; all of them for "".
std::size_t mappingsOf(const std::string& name) {
    std::ifstream maps("/proc/self/maps");
    std::size_t count = 0;
    for (std::string line; std::getline(maps, line);) {
        count += std::size_t(line.find(name) != std::string::npos);
    }
    return count;
}

/// Loads the module, lets an instance work, and unloads everything.
void liveOnce() {
    const LoadedService service;
    const Samples samples(*service);
    VectorResult result;
    service->transformWorldPointToScreenPoint(result, samples.planarCamera, vectorOf(0.0, 0.0, 0.0));
    ASSERT_EQ(result.mResult.mError, 0);
}

TEST(ModuleLife, FactoryIsFoundByNameAndGivesAnInstance) {
    void* const handle = dlopen(CAMERA_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(handle, nullptr) << dlerror();
    auto* const factory = reinterpret_cast<base::CreateComponentInstance*>(dlsym(handle, "createComponentInstance"));
    ASSERT_NE(factory, nullptr) << dlerror();

    base::BaseAPIIf* const instance = factory();
    ASSERT_NE(instance, nullptr);
    auto* const camera = dynamic_cast<CameraAPIIf*>(instance);
    ASSERT_NE(camera, nullptr);
    SurfaceStateResult result;
    camera->surfaceCreateDefault(result);
    EXPECT_EQ(result.mValue.mResolutionX, 640.0);

    delete instance;
    EXPECT_EQ(dlclose(handle), 0);
}

TEST(ModuleLife, NothingElseIsFoundInIt) {
    void* const handle = dlopen(CAMERA_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(handle, nullptr) << dlerror();
    for (const char* const name : {"_ZTIN3qel3api4base9BaseAPIIfE", "_ZTVN3qel3api6camera20CameraLibraryHandlerE",
                                   "_ZTIN6apache6thrift5TBaseE"}) {
        // RTLD_LOCAL handles search the libraries that the module needs too; none of those has these names.
        EXPECT_EQ(dlsym(handle, name), nullptr) << name;
    }
    EXPECT_EQ(dlclose(handle), 0);
}

TEST(ModuleLife, ClosingTheModuleUnmapsIt) {
    ASSERT_EQ(dlopen(CAMERA_MODULE_FILE, RTLD_NOW | RTLD_NOLOAD), nullptr) << "loaded before the test";
    {
        const LoadedService service;
        EXPECT_GT(mappingsOf("/CameraLibrary.so"), 0U);
    }
    EXPECT_EQ(mappingsOf("/CameraLibrary.so"), 0U);
    EXPECT_EQ(dlopen(CAMERA_MODULE_FILE, RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST(ModuleLife, ClosingTheModuleUnmapsItAfterAllOperationsRan) {
    {
        const LoadedService service;
        const Samples samples(*service);
        forEachOperation([&](std::size_t, const auto& operation) {
            callAfresh(*service, operation, samples.argumentsOf(operation));
        });
        PlanarCameraStateResult failed; // an exception was thrown and caught inside
        service->planarCameraYaw(failed, PlanarCameraState(), 1.0);
        EXPECT_EQ(failed.mResult.mError, -1);
    }
    EXPECT_EQ(mappingsOf("/CameraLibrary.so"), 0U);
}

TEST(ModuleLife, ResultsOutliveTheModule) {
    ViewStateResult result;
    { LoadedService()->viewCreateDefault(result); }
    EXPECT_EQ(mappingsOf("/CameraLibrary.so"), 0U);
    const ViewStateResult copy = result;
    EXPECT_EQ(copy.mValue.mPrivate.size(), 384U);
    result.mValue.mEye.mData.assign(100, 1.0);
}

TEST(ModuleLife, InstancesAreDistinctAndIndependent) {
    const LoadedModule module;
    std::unique_ptr<base::BaseAPIIf> first = module.create();
    const std::unique_ptr<base::BaseAPIIf> second = module.create();
    ASSERT_NE(first.get(), second.get());

    first.reset();

    base::StringResult name;
    second->getComponentName(name);
    EXPECT_EQ(name.mValue, "CameraAPI");
    DoubleResult aspect;
    ProjectionStateResult projection;
    cameraOf(second.get()).projectionCreateDefault(projection);
    cameraOf(second.get()).projectionGetAspectRatio(aspect, projection.mValue);
    EXPECT_NEAR(aspect.mValue, 4.0 / 3.0, 1e-15);
}

TEST(ModuleLife, BothFacesBelongToOneObject) {
    const LoadedModule module;
    const std::unique_ptr<base::BaseAPIIf> instance = module.create();
    CameraAPIIf& camera = cameraOf(instance.get());
    EXPECT_EQ(dynamic_cast<void*>(&camera), dynamic_cast<void*>(instance.get()));
    EXPECT_EQ(static_cast<base::BaseAPIIf*>(&camera), instance.get());
    base::StringResult name;
    camera.getComponentName(name);
    EXPECT_EQ(name.mValue, "CameraAPI");
}

TEST(ModuleLife, TwoHandlesShareOneModule) {
    std::optional<LoadedModule> first(std::in_place);
    const LoadedModule second;
    EXPECT_EQ(first->factory(), second.factory());
    first.reset();
    EXPECT_NE(second.create(), nullptr);
}

TEST(ModuleLife, LoadingAndUnloadingLeavesNothingBehind) {
    constexpr std::size_t rounds = 400;
    for (std::size_t i = 0; i < rounds; ++i) { // whatever the process keeps for good, it keeps by now
        liveOnce();
    }
    const std::size_t mappings = mappingsOf("");
    const struct mallinfo2 before = mallinfo2();
    for (std::size_t i = 0; i < rounds; ++i) {
        liveOnce();
    }
    // A module that stayed would take several mappings each time, a block that stayed 32 bytes or more; what is allowed
    // is the system's own way of cutting up memory.
    EXPECT_LT(mappingsOf(""), mappings + rounds / 10);
    if (!sanitized) {
        EXPECT_LT(mallinfo2().uordblks, before.uordblks + rounds * 16) << "bytes on the heap";
    }
}

} // namespace

} // namespace qel::api::camera::test
