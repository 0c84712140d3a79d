// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

namespace {

// A host that keeps one result record for many calls.

class Reuse : public ::testing::Test {
protected:
    LoadedService mService;
    Samples mSamples{*mService};
};

TEST_F(Reuse, ReusedResultIsTheSameAsAFreshOne) {
    const Samples other = otherSamples(*mService);
    forEachOperation([&](std::size_t, const auto& operation) {
        SCOPED_TRACE(operation.name);
        auto result = callAfresh(*mService, operation, other.argumentsOf(operation));
        call(*mService, operation, result, mSamples.argumentsOf(operation));
        EXPECT_EQ(fingerprint(result), fingerprint(callAfresh(*mService, operation, mSamples.argumentsOf(operation))));
    });
}

TEST_F(Reuse, ResultOfAnotherShapeIsBroughtIntoShape) {
    forEachOperation([&](std::size_t, const auto& operation) {
        SCOPED_TRACE(operation.name);
        const auto arguments = mSamples.argumentsOf(operation);
        const auto fresh = callAfresh(*mService, operation, arguments);
        auto misshapen = fresh;
        std::vector<Matrix*> matrices;
        collectParts(misshapen.mValue, matrices);
        for (Matrix* matrix : matrices) {
            matrix->mData.assign(7, std::vector<double>(9, 99.0));
        }
        std::vector<Vector*> vectors;
        collectParts(misshapen.mValue, vectors);
        for (Vector* vector : vectors) {
            vector->mData.assign(11, 99.0);
        }
        std::vector<Quaternion*> quaternions;
        collectParts(misshapen.mValue, quaternions);
        for (Quaternion* quaternion : quaternions) {
            quaternion->mData.assign(1, 99.0);
        }
        std::vector<std::string*> images;
        collectParts(misshapen.mValue, images);
        for (std::string* image : images) {
            image->assign(2000, 'x');
        }
        call(*mService, operation, misshapen, arguments);
        EXPECT_EQ(fingerprint(misshapen), fingerprint(fresh));
    });
}

TEST_F(Reuse, SecondCallWritesIntoTheStorageOfTheFirst) {
    const Samples other = otherSamples(*mService);
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        SCOPED_TRACE(operation.name);
        auto result = callAfresh(*mService, operation, mSamples.argumentsOf(operation));
        const std::vector<const void*> storage = storageOf(result);
        EXPECT_EQ(storage.empty(), resetsOutcome(slot)) << "only a number needs no storage";
        call(*mService, operation, result, other.argumentsOf(operation));
        EXPECT_EQ(storageOf(result), storage);
    });
}

} // namespace

} // namespace qel::api::camera::test
