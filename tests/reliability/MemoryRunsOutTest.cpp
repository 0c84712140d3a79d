// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <qel/api/base/BaseAPIIf.h>

#include "component/Identity.h"
#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/RecordFields.h"
#include "tests/component/support/Samples.h"
#include "tests/component/support/Slots.h"
#include "tests/reliability/Allocations.h"
#include "tests/reliability/PartlyWritten.h"

namespace qel::api::camera::test {

namespace {

using Fail = qel::test::Allocations::Fail;
using qel::test::Allocations;
using qel::test::heldBlocks;

// Every operation of the module that ships, with its 1st, 2nd, 3rd ... allocation failing until it passes.

constexpr std::size_t mostAllocations = 1000; ///< no operation comes near it; a loop that never passes ends here

/// A call that no longer runs out of memory has the given number of allocations.
template <class Call>
std::size_t allocationsOf(const Call& call) {
    const Allocations allocations;
    call();
    return allocations.asked();
}

/// A failed call's outcome while memory was short only for a moment: the message had its memory.
void expectMessage(const base::ServiceResult& outcome, const std::int32_t code, const char* message) {
    EXPECT_EQ(outcome.mError, code);
    EXPECT_TRUE(outcome.__isset.mError);
    EXPECT_EQ(outcome.mMessage, message);
    EXPECT_TRUE(outcome.__isset.mMessage);
}

/// A failed call's outcome when there was no memory left for the message either.
void expectCodeAlone(const base::ServiceResult& outcome, const std::int32_t code) {
    EXPECT_EQ(outcome.mError, code);
    EXPECT_TRUE(outcome.__isset.mError);
    EXPECT_EQ(outcome.mMessage, "");
    EXPECT_FALSE(outcome.__isset.mMessage);
}

class MemoryRunsOut : public ::testing::Test {
protected:
    /// Fails every allocation of an operation in turn. `start` makes the result record that each call begins with.
    template <class OperationType, class Start>
    std::size_t exhaust(const std::size_t slot, const OperationType& operation, const Fail fail, const Start& start) {
        using Result = ResultOf<OperationType>;
        const auto arguments = mSamples.argumentsOf(operation);
        return exhaustCall<Result>(slot, fail, start,
                                   [&](Result& result) { call(*mService, operation, result, arguments); });
    }

    /// The same for any call with a result of this kind: made once a kind, or its compilation would take minutes.
    template <class Result>
    std::size_t exhaustCall(const std::size_t slot, const Fail fail, const std::function<Result()>& start,
                            const std::function<void(Result&)>& invoke) {
        Result fresh;
        invoke(fresh);
        const std::string expected = fingerprint(fresh.mValue);
        const Result before = start();
        for (std::size_t n = 1; n <= mostAllocations; ++n) {
            SCOPED_TRACE(std::string(slots[slot].operation) + ", allocation " + std::to_string(n));
            const std::ptrdiff_t held = heldBlocks();
            bool passed = false;
            {
                Result result = start();
                Allocations allocations(fail, n);
                invoke(result); // an exception here would end the test
                allocations.stop();
                passed = allocations.failed() == 0;
                if (!passed) {
                    fail == Fail::one ? expectMessage(result.mResult, failureCode(slot), slots[slot].failureMessage)
                                      : expectCodeAlone(result.mResult, failureCode(slot));
                    expectOldOrNew(result.mValue, before.mValue, fresh.mValue, "mValue");
                    const Result copy = result; // touches all that the payload holds
                    EXPECT_EQ(fingerprint(copy), fingerprint(result));
                    result.mResult = base::ServiceResult();
                    invoke(result);
                }
                EXPECT_EQ(result.mResult.mError, 0);
                EXPECT_EQ(fingerprint(result.mValue), expected) << "the same call right after";
            }
            EXPECT_EQ(heldBlocks(), held) << "blocks held";
            if (passed || HasFailure()) {
                return n - 1;
            }
        }
        ADD_FAILURE() << slots[slot].operation << " never passes";
        return 0;
    }

    LoadedService mService;
    Samples mSamples{*mService};
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

TEST_F(MemoryRunsOut, HookReachesIntoTheModule) {
    ViewStateResult result;
    const std::size_t allocations = allocationsOf([&] { mService->viewCreateDefault(result); });
    EXPECT_GT(allocations, 10U) << "lists and an image were made inside the module";
    EXPECT_EQ(allocationsOf([&] { mService->viewCreateDefault(result); }), 0U) << "and are used again";
}

TEST_F(MemoryRunsOut, FreshResultGetsCodeAndMessage) {
    std::size_t failures = 0;
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        failures += exhaust(slot, operation, Fail::one, [] { return ResultOf<decltype(operation)>(); });
    });
    EXPECT_GT(failures, 79U * 4U) << "most operations allocate";
}

TEST_F(MemoryRunsOut, FreshResultGetsTheCodeAloneWhereNothingIsLeftForTheMessage) {
    std::size_t failures = 0;
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        failures += exhaust(slot, operation, Fail::allFrom, [] { return ResultOf<decltype(operation)>(); });
    });
    EXPECT_GT(failures, 79U * 4U) << "most operations allocate";
}

TEST_F(MemoryRunsOut, UsedResultNeedsNoMemoryAtAll) {
    std::size_t failures = 0;
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        // Shaped like the answer, and other than it in every number and byte.
        auto used = callAfresh(*mService, operation, mSamples.argumentsOf(operation));
        makeOther(used.mValue);
        failures += exhaust(slot, operation, Fail::allFrom, [&] { return used; });
    });
    EXPECT_EQ(failures, 0U);
}

TEST_F(MemoryRunsOut, ResultPartlyWrittenBeforeIsCompletedOrLeftValid) {
    std::size_t failures = 0;
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        auto shrunk = callAfresh(*mService, operation, mSamples.argumentsOf(operation));
        makeOther(shrunk.mValue);
        makeTooShort(shrunk.mValue);
        failures += exhaust(slot, operation, Fail::one, [&] { return shrunk; });
        failures += exhaust(slot, operation, Fail::allFrom, [&] { return shrunk; });
    });
    EXPECT_GT(failures, 79U * 4U * 2U) << "every list grows";
}

TEST_F(MemoryRunsOut, MatrixThatIsItsOwnArgumentIsLeftAloneWhereItCannotBeCopied) {
    for (std::size_t n = 1; n <= 5; ++n) { // the list of rows and the rows
        MatrixResult result;
        result.mValue = matrixOf({{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}});
        const Matrix before = result.mValue;
        Allocations allocations(Fail::allFrom, n);
        mService->utilsConvertMatrixFromRowMajorToColumnMajor(result, result.mValue);
        allocations.stop();
        EXPECT_NE(allocations.failed(), 0U);
        expectCodeAlone(result.mResult, 4);
        EXPECT_EQ(fingerprint(result.mValue), fingerprint(before));
    }
}

TEST_F(MemoryRunsOut, OlderMessageIsNotTakenForTheNewFailures) {
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        SCOPED_TRACE(operation.name);
        ResultOf<decltype(operation)> result;
        result.mResult = olderError();
        const auto arguments = mSamples.argumentsOf(operation);
        Allocations allocations(Fail::allFrom, 1);
        call(*mService, operation, result, arguments);
        allocations.stop();
        if (allocations.failed() != 0) {
            expectCodeAlone(result.mResult, failureCode(slot));
        }
    });
}

TEST_F(MemoryRunsOut, CallThatFailsAnywayKeepsItsCodeWhateverElseFails) {
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        auto arguments = mSamples.argumentsOf(operation);
        forEachArgument(arguments, [](auto& argument) {
            if constexpr (requires { argument.mPrivate; }) {
                argument.mPrivate.clear();
            } else if constexpr (requires { argument.mData; }) {
                argument.mData.clear();
            }
        });
        if (callAfresh(*mService, operation, arguments).mResult.mError == 0) {
            return; // nothing among its arguments can be too short
        }
        for (const Fail fail : {Fail::one, Fail::allFrom}) {
            for (std::size_t n = 1; n <= mostAllocations; ++n) {
                SCOPED_TRACE(std::string(operation.name) + ", allocation " + std::to_string(n));
                ResultOf<decltype(operation)> result;
                Allocations allocations(fail, n);
                call(*mService, operation, result, arguments);
                allocations.stop();
                if (result.mResult.__isset.mMessage) {
                    expectMessage(result.mResult, failureCode(slot), slots[slot].failureMessage);
                } else {
                    EXPECT_NE(allocations.failed(), 0U);
                    expectCodeAlone(result.mResult, failureCode(slot));
                }
                EXPECT_EQ(fingerprint(result.mValue), fingerprint(ResultOf<decltype(operation)>().mValue))
                    << "nothing was written";
                if (allocations.failed() == 0) {
                    break;
                }
            }
        }
    });
}

TEST_F(MemoryRunsOut, IdentityNeedsNoMemory) {
    // The texts are short enough to live inside the record.
    const std::initializer_list<std::pair<void (base::BaseAPIIf::*)(base::StringResult&), const char*>> answers{
        {&base::BaseAPIIf::getComponentName, "CameraAPI"},
        {&base::BaseAPIIf::getComponentVariant, ""},
        {&base::BaseAPIIf::getComponentVersion, CAMERA_VERSION}};
    for (const auto& [identify, value] : answers) {
        base::StringResult result;
        result.mResult = olderError();
        result.__set_mValue("a value from before that is too long to fit in the string object itself");
        Allocations allocations(Fail::allFrom, 1);
        ((*mService).*identify)(result);
        allocations.stop();
        EXPECT_EQ(allocations.asked(), 0U);
        EXPECT_EQ(result.mValue, value);
        expectSuccess(result);
    }
}

TEST_F(MemoryRunsOut, LongerIdentityWouldFailInItsOwnWordsAndLeaveTheValueAlone) {
    // No text of this component is so long, hence not through the module.
    const std::string longer(100, 'x');
    for (const auto& [failure, message] : {std::pair(versionFailure, "Unable to get component version."),
                                           std::pair(variantFailure, "Unable to get component variant."),
                                           std::pair(nameFailure, "Unable to get component name.")}) {
        for (const Fail fail : {Fail::one, Fail::allFrom}) {
            base::StringResult result;
            result.mResult = olderError();
            result.__set_mValue("before");
            Allocations allocations(fail, 1);
            identify(result, longer.c_str(), failure);
            allocations.stop();
            EXPECT_NE(allocations.failed(), 0U);
            fail == Fail::one ? expectMessage(result.mResult, -1, message) : expectCodeAlone(result.mResult, -1);
            EXPECT_EQ(result.mValue, "before");
            EXPECT_TRUE(result.__isset.mValue);
            identify(result, longer.c_str(), failure);
            EXPECT_EQ(result.mValue, longer);
            expectSuccess(result);
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
