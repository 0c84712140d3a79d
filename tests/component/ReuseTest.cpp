// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "tests/component/support/Calls.h"

namespace qel::api::camera::test {

namespace {

// A host that keeps one result record for many calls. That such calls ask for no memory is tested where memory is.

class Reuse : public ServiceTest {};

TEST_F(Reuse, ReusedResultIsTheSameAsAFreshOneAndLiesWhereItLay) {
    const Samples other = otherSamples(*mService);
    for (const AnyOperation& operation : allOperations()) {
        SCOPED_TRACE(operation.name);
        AnyResult result = callAfresh(*mService, operation, other.argumentsOf(operation));
        const std::vector<const void*> storage = storageOf(result);
        EXPECT_EQ(storage.empty(), operation.resetsOutcome()) << "only a number needs no storage";
        call(*mService, operation, result, mSamples.argumentsOf(operation));
        EXPECT_EQ(storageOf(result), storage);
        EXPECT_EQ(fingerprint(result), fingerprint(callSample(operation)));
    }
}

TEST_F(Reuse, ResultOfAnotherShapeIsBroughtIntoShape) {
    for (const AnyOperation& operation : allOperations()) {
        SCOPED_TRACE(operation.name);
        const AnyResult fresh = callSample(operation);
        for (const bool tooLong : {false, true}) {
            AnyResult result = fresh;
            makeOther(result);
            tooLong ? makeTooLong(result) : makeTooShort(result);
            call(*mService, operation, result, mSamples.argumentsOf(operation));
            EXPECT_EQ(fingerprint(result), fingerprint(fresh));
        }
    }
}

} // namespace

} // namespace qel::api::camera::test
