// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/RandomArguments.h"
#include "tests/component/support/Slots.h"

namespace qel::api::camera::test {

namespace {

// Which arguments a call has to reject, told by their sizes alone.

bool isShort(const ViewState& state) { return state.mPrivate.size() < 384; }
bool isShort(const ProjectionState& state) { return state.mPrivate.size() < 336; }
bool isShort(const SurfaceState& state) { return state.mPrivate.size() < 336; }
bool isShort(const PlanarCameraState& state) { return state.mPrivate.size() < 1080; }
bool isShort(const Vector& vector) { return vector.mData.size() < 3; }
bool isShort(const Quaternion& quaternion) { return quaternion.mData.size() < 4; }
bool isShort(const Matrix& matrix) {
    bool isShort = matrix.mData.size() < 4;
    for (std::size_t row = 0; row < 4 && row < matrix.mData.size(); ++row) {
        isShort = isShort || matrix.mData[row].size() < 4;
    }
    return isShort;
}
template <class Number>
bool isShort(const Number&) {
    return false;
}

bool isRagged(const Matrix& matrix) {
    bool isRagged = matrix.mData.empty();
    for (const std::vector<double>& row : matrix.mData) {
        isRagged = isRagged || row.size() < matrix.mData.front().size();
    }
    return isRagged;
}

template <class Tuple>
bool mustFail(const std::size_t slot, const Tuple& arguments) {
    if constexpr (std::is_same_v<Tuple, std::tuple<Matrix>>) { // the transposition
        return isRagged(std::get<0>(arguments));
    }
    bool fails = false;
    forEachArgument(arguments, [&](const auto& argument) { fails = fails || isShort(argument); });
    if constexpr (std::tuple_size_v < Tuple >> 0) {
        if constexpr (std::is_same_v<std::tuple_element_t<0, Tuple>, PlanarCameraState>) {
            // An arcball in a window of no height.
            fails = fails ||
                    (slot == 65 && wordAt(std::get<0>(arguments).mPrivate, at::planarSurface + at::resolutionY) == 0);
        }
    }
    return fails;
}

/// What calls have in common: the service, the arguments to come, result records that are used again and again, and
/// how often each slot succeeded and failed.
struct Session {
    LoadedService service;
    RandomArguments random;
    std::tuple<ViewStateResult, ProjectionStateResult, SurfaceStateResult, PlanarCameraStateResult, VectorResult,
               MatrixResult, DoubleResult>
        results;
    std::array<std::size_t, 79> successes{};
    std::array<std::size_t, 79> failures{};

    explicit Session(const std::uint64_t seed) : random(seed, Samples(*service)) {}
};

/// The states of a result take part in later calls.
void keep(Session& session, const ViewState& state) { session.random.states().view.mPrivate = state.mPrivate; }
void keep(Session& session, const ProjectionState& state) {
    session.random.states().projection.mPrivate = state.mPrivate;
}
void keep(Session& session, const SurfaceState& state) { session.random.states().surface.mPrivate = state.mPrivate; }
void keep(Session& session, const PlanarCameraState& state) {
    session.random.states().planarCamera.mPrivate = state.mPrivate;
}
template <class Value>
void keep(Session&, const Value&) {}

template <class OperationType>
void callOnce(Session& session, const std::size_t slot, const OperationType& operation) {
    const auto arguments = session.random.argumentsOf(operation);
    auto& result = std::get<ResultOf<OperationType>>(session.results);
    result.mResult = base::ServiceResult();
    call(*session.service, operation, result, arguments);
    if (mustFail(slot, arguments)) {
        expectFailure(result, failureCode(slot), slots[slot].failureMessage);
        ++session.failures[slot];
    } else {
        expectSuccess(result);
        EXPECT_TRUE(slot == 68 || isWellFormed(result.mValue));
        ++session.successes[slot];
        if (session.random.oneIn(3)) {
            keep(session, result.mValue);
        }
    }
}

void askForIdentity(Session& session) {
    base::StringResult result;
    session.service->getComponentName(result);
    EXPECT_EQ(result.mValue, "CameraAPI");
    session.service->getComponentVariant(result);
    EXPECT_EQ(result.mValue, "");
    session.service->getComponentVersion(result);
    EXPECT_EQ(result.mValue, "0.3.10");
}

class RandomCalls : public ::testing::TestWithParam<std::uint64_t> {};

TEST_P(RandomCalls, SucceedOrFailAsTheSizesOfTheirArgumentsSay) {
    constexpr std::size_t calls = 25000;
    Session session(GetParam());
    std::vector<std::function<void()>> operationsBySlot;
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        operationsBySlot.push_back([&session, slot, &operation] { callOnce(session, slot, operation); });
    });
    for (std::size_t i = 0; i < calls && !HasFailure(); ++i) {
        if (session.random.oneIn(200)) { // back to states that make sense
            session.random.states() = Samples(*session.service);
            askForIdentity(session);
        }
        operationsBySlot[session.random.below(operationsBySlot.size())]();
    }
    for (std::size_t slot = 0; slot < 79; ++slot) {
        EXPECT_GT(session.successes[slot], 100U) << slots[slot].operation;
        const bool canFail =
            slot != 0 && slot != 20 && slot != 21 && slot != 36 && slot != 37 && slot != 42 && slot != 66 && slot != 67;
        EXPECT_EQ(session.failures[slot] > 0, canFail) << slots[slot].operation;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomCalls, ::testing::Values(1, 2, 3, 4));

} // namespace

} // namespace qel::api::camera::test
