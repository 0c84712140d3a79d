// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>

#include "tests/component/support/AllocationCount.h"
#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

namespace {

// How much memory calls ask for. The count reaches into the module, whose operator new is the program's.

template <class Work>
std::size_t allocationsOf(const Work& work) {
    const std::size_t before = allocationCount();
    work();
    return allocationCount() - before;
}

class Allocation : public ::testing::Test {
protected:
    LoadedService mService;
    Samples mSamples{*mService};
};

TEST_F(Allocation, CountSeesWhatTheModuleAsksFor) {
    std::unique_ptr<base::BaseAPIIf> instance;
    EXPECT_EQ(allocationsOf([&] { instance = mService.module().create(); }), 1U);
    VectorResult result;
    EXPECT_EQ(allocationsOf([&] {
                  mService->transformWorldPointToViewPoint(result, mSamples.planarCamera, vectorOf(1.0, 2.0, 3.0));
              }),
              2U)
        << "the argument's list and the result's";
}

TEST_F(Allocation, FreshResultTakesItsOwnStorageAndNoMore) {
    forEachOperation([&](std::size_t, const auto& operation) {
        const auto arguments = mSamples.argumentsOf(operation);
        ResultOf<decltype(operation)> result;
        const std::size_t allocations = allocationsOf([&] { call(*mService, operation, result, arguments); });
        EXPECT_LE(allocations, storageOf(result).size()) << operation.name;
    });
}

TEST_F(Allocation, ResultThatIsUsedAgainTakesNone) {
    forEachOperation([&](std::size_t, const auto& operation) {
        const auto arguments = mSamples.argumentsOf(operation);
        auto result = callAfresh(*mService, operation, arguments);
        EXPECT_EQ(allocationsOf([&] { call(*mService, operation, result, arguments); }), 0U) << operation.name;
    });
}

TEST_F(Allocation, ResultThatIsItsOwnArgumentTakesNone) {
    PlanarCameraStateResult result;
    result.mValue = mSamples.planarCamera;
    EXPECT_EQ(allocationsOf([&] {
                  for (int i = 0; i < 100; ++i) {
                      mService->planarCameraYaw(result, result.mValue, 0.001);
                      mService->planarCameraPanWithAnchor(result, result.mValue, 100, 100, 0.5, 1, -1);
                      mService->planarCameraZoomWithAnchor_Screen(result, result.mValue, 10, 20, 0.5, 0.99);
                  }
              }),
              0U);
    EXPECT_NE(result.mValue.mPrivate, mSamples.planarCamera.mPrivate);
}

TEST_F(Allocation, IdentityTakesNone) {
    base::StringResult result;
    EXPECT_EQ(allocationsOf([&] {
                  mService->getComponentName(result);
                  mService->getComponentVariant(result);
                  mService->getComponentVersion(result);
              }),
              0U);
}

} // namespace

} // namespace qel::api::camera::test
