// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "tests/component/support/Calls.h"
#include "tests/component/support/Finite.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"
#include "tests/component/support/Slots.h"

namespace qel::api::camera::test {

namespace {

// Finite arguments keep a finite camera finite, but for the divisions by zero and overflows that the documentation
// lists. Arguments here are of ordinary size and avoid the former: sizes of viewports are positive, depths differ.

class OrdinaryArguments {
public:
    explicit OrdinaryArguments(const std::uint64_t seed) : mRandom(seed) {}

    std::size_t below(const std::size_t bound) { return static_cast<std::size_t>(mRandom() % bound); }

    template <class Argument>
    Argument argument(const std::string_view name, const Samples& states) {
        if constexpr (std::is_same_v<Argument, double>) {
            return number(name);
        } else if constexpr (std::is_same_v<Argument, std::int32_t>) {
            return static_cast<std::int32_t>(below(3000)) - 500;
        } else if constexpr (std::is_same_v<Argument, ProjectionType::type>) {
            return static_cast<ProjectionType::type>(below(2));
        } else if constexpr (std::is_same_v<Argument, Vector>) {
            return vectorOf(number(""), number(""), number(""));
        } else if constexpr (std::is_same_v<Argument, Quaternion>) {
            return quaternionOf(number(""), number(""), number(""), number(""));
        } else if constexpr (std::is_same_v<Argument, Matrix>) {
            Matrix matrix = states.argument<Matrix>(name);
            for (std::vector<double>& row : matrix.mData) {
                for (double& value : row) {
                    value += between(-1.0, 1.0);
                }
            }
            return matrix;
        } else if constexpr (std::is_same_v<Argument, Frustum>) {
            const double nearDist = between(0.01, 5.0);
            return frustumOf(number(""), number(""), number(""), number(""), nearDist, nearDist + between(0.1, 100.0));
        } else if constexpr (std::is_same_v<Argument, Viewport>) {
            const double depth = between(-1.0, 1.0);
            return viewportOf(between(0.0, 1.0), between(0.0, 1.0), between(0.01, 1.0), between(0.01, 1.0), depth,
                              depth + between(0.01, 1.0));
        } else {
            return states.argument<Argument>(name);
        }
    }

private:
    double between(const double low, const double high) {
        return low + (high - low) * static_cast<double>(mRandom() >> 11) * 0x1p-53;
    }

    double number(const std::string_view name) {
        if (name == "depthMin") {
            return between(-1.0, 0.25);
        }
        if (name == "depthMax") {
            return between(0.5, 2.0);
        }
        if (name.starts_with("depth")) { // now and then on the near or the far plane
            return below(10) == 0 ? static_cast<double>(below(2)) : between(0.0, 1.0);
        }
        if (name == "factor") {
            return between(-0.1, 2.0);
        }
        switch (below(6)) {
        case 0: return 0.0;
        case 1: return static_cast<double>(below(21)) - 10.0;
        case 2: return between(-1e-6, 1e-6);
        case 3: return between(-1e6, 1e6);
        default: return between(-3.5, 3.5);
        }
    }

    std::mt19937_64 mRandom;
};

/// A walk through the operations, each working on what an earlier one gave.
class Walk {
public:
    explicit Walk(const std::uint64_t seed) : mArguments(seed), mStates(*mService) {
        forEachOperation([&](std::size_t, const auto& operation) {
            mSteps.push_back([this, &operation] { return step(operation); });
        });
    }

    void startAgain() { mStates = Samples(*mService); }

    /// Runs any operation; says which one where it made something that is not finite.
    std::string step() {
        const std::size_t slot = mArguments.below(mSteps.size());
        return mSteps[slot]() ? "" : std::string(slots[slot].operation);
    }

private:
    template <class Result, class... Arguments>
    bool step(const Operation<Result, Arguments...>& operation) {
        return step(operation, std::index_sequence_for<Arguments...>());
    }

    template <class Result, class... Arguments, std::size_t... Index>
    bool step(const Operation<Result, Arguments...>& operation, std::index_sequence<Index...>) {
        const std::tuple<std::remove_cvref_t<Arguments>...> arguments{
            mArguments.template argument<std::remove_cvref_t<Arguments>>(operation.argumentNames[Index], mStates)...};
        const Result result = callAfresh(*mService, operation, arguments);
        expectSuccess(result);
        return keep(result.mValue);
    }

    bool keep(const ViewState& state) { return isFinite(mStates.view = state); }
    bool keep(const ProjectionState& state) { return isFinite(mStates.projection = state); }
    bool keep(const SurfaceState& state) { return isFinite(mStates.surface = state); }
    bool keep(const PlanarCameraState& state) { return isFinite(mStates.planarCamera = state); }
    bool keep(const Matrix&) { return true; } // no camera: infinities are passed on
    bool keep(const Vector&) { return true; }
    bool keep(const double&) { return true; }

    LoadedService mService;
    OrdinaryArguments mArguments;
    Samples mStates;
    std::vector<std::function<bool()>> mSteps;
};

class FiniteCamera : public ::testing::TestWithParam<std::uint64_t> {};

TEST_P(FiniteCamera, StaysFiniteOnWalksThroughTheOperations) {
    Walk walk(GetParam());
    for (int i = 0; i < 200 && !HasFailure(); ++i) {
        walk.startAgain();
        std::string road;
        for (int k = 0; k < 60; ++k) {
            const std::string culprit = walk.step();
            ASSERT_EQ(culprit, "") << "walk " << i << ", step " << k;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, FiniteCamera, ::testing::Values(11, 12, 13, 14));

} // namespace

} // namespace qel::api::camera::test
