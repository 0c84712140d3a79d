// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <dlfcn.h>
#include <malloc.h>

#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/Calls.h"
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
    EXPECT_EQ(dynamic_cast<void*>(camera), dynamic_cast<void*>(instance)) << "two faces of one object";
    SurfaceStateResult result;
    camera->surfaceCreateDefault(result);
    EXPECT_EQ(result.mValue.mResolutionX, 640.0);

    delete instance;
    EXPECT_EQ(dlclose(handle), 0);
}

TEST(ModuleLife, ClosingTheModuleUnmapsItAfterAllOperationsRan) {
    ASSERT_EQ(dlopen(CAMERA_MODULE_FILE, RTLD_NOW | RTLD_NOLOAD), nullptr) << "loaded before the test";
    {
        const LoadedService service;
        EXPECT_GT(mappingsOf("/CameraLibrary.so"), 0U);
        const Samples samples(*service);
        for (const AnyOperation& operation : allOperations()) {
            callAfresh(*service, operation, samples.argumentsOf(operation));
        }
        PlanarCameraStateResult failed; // an exception was thrown and caught inside
        service->planarCameraYaw(failed, PlanarCameraState(), 1.0);
        EXPECT_EQ(failed.mResult.mError, -1);
    }
    EXPECT_EQ(mappingsOf("/CameraLibrary.so"), 0U);
    EXPECT_EQ(dlopen(CAMERA_MODULE_FILE, RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST(ModuleLife, ResultsOutliveTheModule) {
    ViewStateResult result;
    { LoadedService()->viewCreateDefault(result); }
    EXPECT_EQ(mappingsOf("/CameraLibrary.so"), 0U);
    const ViewStateResult copy = result;
    EXPECT_EQ(copy.mValue.mPrivate.size(), at::viewSize);
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
