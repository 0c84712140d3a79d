// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <qel/api/base/BaseAPIIf.h>

#include "component/Identity.h"
#include "tests/component/support/Calls.h"
#include "tests/reliability/Allocations.h"

namespace qel::api::camera::test {

namespace {

using Fail = qel::test::Allocations::Fail;
using qel::test::Allocations;
using qel::test::heldBlocks;

// Every operation of the module that ships, with its 1st, 2nd, 3rd ... allocation failing until it passes, and how many
// it makes. The count reaches into the module, whose memory is the program's.

constexpr std::size_t mostAllocations = 1000; ///< no operation comes near it; a loop that never passes ends here

std::size_t allocationsOf(const std::function<void()>& work) {
    const Allocations allocations;
    work();
    return allocations.asked();
}

/// The outcome of a failed call. While memory was short only for a moment the message had its memory, else not.
void expectFailure(const base::ServiceResult& outcome, const Fail fail, const std::int32_t code,
                   const std::string& message) {
    EXPECT_EQ(outcome.mError, code);
    EXPECT_TRUE(outcome.__isset.mError);
    EXPECT_EQ(outcome.mMessage, fail == Fail::one ? message : "");
    EXPECT_EQ(outcome.__isset.mMessage, fail == Fail::one);
}

class MemoryRunsOut : public ServiceTest {
protected:
    /// Fails every allocation of a call in turn: the payload stays exactly as it was, and the same call succeeds as
    /// soon as there is memory. `choose` gives the call's arguments, which may be parts of the result. Says how many
    /// allocations could fail.
    std::size_t exhaust(const AnyOperation& operation, const AnyResult& start, const Fail fail,
                        const std::function<AliasedArguments(AnyResult&)>& choose) const {
        AnyResult expected = start;
        call(*mService, operation, expected, choose(expected).pointers);
        EXPECT_EQ(flagsOf(expected), flagsAfterSuccess(start));
        const std::string before = payloadBits(start);
        for (std::size_t n = 1; n <= mostAllocations; ++n) {
            SCOPED_TRACE(std::string(operation.name) + ", allocation " + std::to_string(n));
            const std::ptrdiff_t held = heldBlocks();
            bool passed = false;
            {
                AnyResult result = start;
                const AliasedArguments arguments = choose(result);
                Allocations allocations(fail, n);
                call(*mService, operation, result, arguments.pointers); // an exception here would end the test
                allocations.stop();
                passed = allocations.failed() == 0;
                if (!passed) {
                    expectFailure(outcomeOf(result), fail, operation.failureCode(), operation.failureMessage());
                    EXPECT_EQ(payloadBits(result), before) << "numbers, lengths, blobs and set-flags, nested ones too";
                    outcomeOf(result) = outcomeOf(start);
                    call(*mService, operation, result, arguments.pointers);
                }
                EXPECT_EQ(fingerprint(result), fingerprint(expected)) << "the same call right after";
            }
            EXPECT_EQ(heldBlocks(), held) << "blocks held";
            if (passed || HasFailure()) {
                return n - 1;
            }
        }
        ADD_FAILURE() << operation.name << " never passes";
        return 0;
    }

    /// The same for every operation with valid arguments; `start` makes the result that each begins with.
    void exhaustAll(const Fail fail, const std::function<AnyResult(const AnyOperation&)>& start, const bool allocates) {
        for (const AnyOperation& operation : allOperations()) {
            SCOPED_TRACE(operation.name);
            const Arguments arguments = mSamples.argumentsOf(operation);
            const std::size_t failures = exhaust(operation, start(operation), fail, [&](AnyResult& result) {
                return aliasedArguments(result, arguments, 0, 0);
            });
            EXPECT_EQ(failures > 0, allocates && !operation.resetsOutcome()) << operation.name;
        }
    }

    /// A result that was used, other than the answer in every number and byte, with an older error and all flags
    /// raised.
    [[nodiscard]] AnyResult used(const AnyOperation& operation) const {
        AnyResult result = callSample(operation);
        makeOther(result);
        outcomeOf(result) = olderError(); // whose message is not to be taken for the new failure's
        setAllFlags(result, true);
        return result;
    }
};

TEST_F(MemoryRunsOut, BlocksAreCountedFromEitherSide) {
    const std::ptrdiff_t before = heldBlocks();
    const std::vector<double> list(3);
    EXPECT_EQ(heldBlocks(), before + 1);
    if (CAMERA_REPLACE_MALLOC) {
        void* const block = std::malloc(8);
        EXPECT_EQ(heldBlocks(), before + 2);
        void* const cleared = std::calloc(2, 8);
        EXPECT_EQ(heldBlocks(), before + 3);
        void* const aligned = std::aligned_alloc(64, 64);
        EXPECT_EQ(heldBlocks(), before + 4);
        void* const moved = std::realloc(block, 10000);
        EXPECT_EQ(heldBlocks(), before + 4);
        std::free(moved);
        std::free(cleared);
        std::free(aligned);
        EXPECT_EQ(heldBlocks(), before + 1);
    }
}

TEST_F(MemoryRunsOut, FreshResultTakesItsOwnStorageAndNoMore) {
    for (const AnyOperation& operation : allOperations()) {
        const Arguments arguments = mSamples.argumentsOf(operation);
        AnyResult result = operation.fresh;
        const std::size_t allocations = allocationsOf([&] { call(*mService, operation, result, arguments); });
        // The transposition makes its rows from one more.
        EXPECT_LE(allocations, storageOf(result).size() + (operation.isTransposition() ? 1 : 0)) << operation.name;
    }
}

TEST_F(MemoryRunsOut, FreshResultStaysEmpty) {
    const auto fresh = [](const AnyOperation& operation) { return operation.fresh; };
    exhaustAll(Fail::one, fresh, true);
    exhaustAll(Fail::allFrom, fresh, true);
}

TEST_F(MemoryRunsOut, UsedResultNeedsNoMemoryAtAll) {
    exhaustAll(
        Fail::allFrom, [&](const AnyOperation& operation) { return used(operation); }, false);
}

TEST_F(MemoryRunsOut, ResultOfAnotherShapeStaysAsItWas) {
    const auto tooShort = [&](const AnyOperation& operation) {
        AnyResult result = used(operation);
        makeTooShort(result);
        return result;
    };
    exhaustAll(Fail::one, tooShort, true);
    exhaustAll(Fail::allFrom, tooShort, true);
}

TEST_F(MemoryRunsOut, ResultThatHoldsItsOwnArgumentsStaysAsItWas) {
    std::size_t failures = 0;
    for (const AnyOperation& operation : allOperations()) {
        const Arguments outside = mSamples.argumentsOf(operation);
        AnyResult start = operation.fresh;
        setPayload(start, mSamples.payload(start));
        setAllFlags(start, true);
        makeTooLong(start); // which every list may be, and every blob
        if (auto* const matrix = std::get_if<MatrixResult>(&start); matrix != nullptr && operation.isTransposition()) {
            matrix->mValue = matrixOf({{1, 2, 3}, {4, 5, 6}});
        }
        for (const std::size_t part : {0U, 1U}) {
            for (const Fail fail : {Fail::one, Fail::allFrom}) {
                failures += exhaust(operation, start, fail, [&](AnyResult& result) {
                    return aliasedArguments(result, outside, ~std::size_t(0), part);
                });
            }
        }
    }
    EXPECT_GT(failures, operationCount) << "most results had to get other storage";
}

TEST_F(MemoryRunsOut, CameraThatIsItsOwnArgumentMovesOnWithoutMemory) {
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

TEST_F(MemoryRunsOut, CallThatFailsAnywayKeepsItsCodeWhateverElseFails) {
    for (const AnyOperation& operation : allOperations()) {
        const Arguments& arguments = operation.blank; // lists and blobs without anything in them
        for (const Fail fail : {Fail::one, Fail::allFrom}) {
            bool passed = !operation.canFail();
            for (std::size_t n = 1; n <= mostAllocations && !passed; ++n) {
                SCOPED_TRACE(std::string(operation.name) + ", allocation " + std::to_string(n));
                AnyResult result = operation.fresh;
                Allocations allocations(fail, n);
                call(*mService, operation, result, arguments);
                allocations.stop();
                passed = allocations.failed() == 0;
                const bool hasMessage = outcomeOf(result).__isset.mMessage;
                EXPECT_TRUE(hasMessage || !passed);
                expectFailure(outcomeOf(result), hasMessage ? Fail::one : Fail::allFrom, operation.failureCode(),
                              operation.failureMessage());
                EXPECT_EQ(payloadBits(result), payloadBits(operation.fresh)) << "nothing was written";
            }
            EXPECT_TRUE(passed) << operation.name << " never passes";
        }
    }
}

TEST_F(MemoryRunsOut, IdentityNeedsNoMemory) {
    base::StringResult result; // the texts are short enough to live inside the record
    EXPECT_EQ(allocationsOf([&] {
                  mService->getComponentName(result);
                  mService->getComponentVariant(result);
                  mService->getComponentVersion(result);
              }),
              0U);
}

TEST_F(MemoryRunsOut, LongerIdentityWouldFailInItsOwnWordsAndLeaveTheValueAlone) {
    // No text of this component is so long, hence not through the module.
    const std::string longer(100, 'x');
    for (const auto& [failure, message] : {std::pair(component::versionFailure, "Unable to get component version."),
                                           std::pair(component::variantFailure, "Unable to get component variant."),
                                           std::pair(component::nameFailure, "Unable to get component name.")}) {
        for (const Fail fail : {Fail::one, Fail::allFrom}) {
            base::StringResult result;
            result.mResult = olderError();
            result.__set_mValue("before");
            Allocations allocations(fail, 1);
            component::identify(result, longer.c_str(), failure);
            allocations.stop();
            EXPECT_NE(allocations.failed(), 0U);
            expectFailure(result.mResult, fail, -1, message);
            EXPECT_EQ(result.mValue, "before");
            EXPECT_TRUE(result.__isset.mValue);
            component::identify(result, longer.c_str(), failure);
            EXPECT_EQ(result.mValue, longer);
            expectSuccess(result.mResult);
        }
    }
}

TEST_F(MemoryRunsOut, FactoryReturnsNull) {
    const std::ptrdiff_t before = heldBlocks();
    {
        Allocations allocations(Fail::one, 1);
        const std::unique_ptr<base::BaseAPIIf> none = mService.module().create();
        allocations.stop();
        EXPECT_EQ(none, nullptr);
        EXPECT_EQ(allocations.asked(), 1U) << "one allocation makes an instance";
        EXPECT_NE(mService.module().create(), nullptr) << "right after";
    }
    EXPECT_EQ(heldBlocks(), before);
}

} // namespace

} // namespace qel::api::camera::test
