// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>
#include <vector>

#include "tests/component/support/Calls.h"

namespace qel::api::camera::test {

namespace {

// Finite arguments keep a finite camera finite, but for the divisions by zero and overflows that the documentation
// lists. Arguments here are of ordinary size and avoid the former: sizes of viewports are positive, depths differ.

class FiniteCamera : public ServiceTest, public ::testing::WithParamInterface<std::uint64_t> {
protected:
    std::size_t below(const std::size_t bound) { return static_cast<std::size_t>(mRandom() % bound); }

    Arguments argumentsOf(const AnyOperation& operation) {
        Arguments arguments = mSamples.argumentsOf(operation);
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            std::visit([&](auto& argument) { draw(operation.argumentNames[i], argument); }, arguments[i]);
        }
        return arguments;
    }

    /// Takes a state for later calls; says whether a state is finite. A value may be anything: infinities are passed
    /// on.
    bool keep(const AnyArgument& payload) {
        std::visit([&](const auto& value) { take(value); }, payload);
        return blobOf(payload) == nullptr || isFinite(payload);
    }

private:
    void take(const auto& /*value*/) {}
    void take(const ViewState& state) { mSamples.view = state; }
    void take(const ProjectionState& state) { mSamples.projection = state; }
    void take(const SurfaceState& state) { mSamples.surface = state; }
    void take(const PlanarCameraState& state) { mSamples.planarCamera = state; }

    void draw(std::string_view /*name*/, auto& /*state*/) {} // as it is
    void draw(const std::string_view name, double& value) { value = number(name); }
    void draw(std::string_view, std::int32_t& value) { value = static_cast<std::int32_t>(below(3000)) - 500; }
    void draw(std::string_view, ProjectionType::type& type) { type = static_cast<ProjectionType::type>(below(2)); }
    void draw(std::string_view, Vector& vector) { draw(vector.mData); }
    void draw(std::string_view, Quaternion& quaternion) { draw(quaternion.mData); }
    void draw(std::vector<double>& numbers) {
        for (double& value : numbers) {
            value = number("");
        }
    }
    void draw(std::string_view, Matrix& matrix) {
        for (std::vector<double>& row : matrix.mData) {
            for (double& value : row) {
                value += between(-1.0, 1.0);
            }
        }
    }
    void draw(std::string_view, Frustum& frustum) {
        const double nearDist = between(0.01, 5.0);
        frustum = frustumOf(number(""), number(""), number(""), number(""), nearDist, nearDist + between(0.1, 100.0));
    }
    void draw(std::string_view, Viewport& viewport) {
        const double depth = between(-1.0, 1.0);
        viewport = viewportOf(between(0.0, 1.0), between(0.0, 1.0), between(0.01, 1.0), between(0.01, 1.0), depth,
                              depth + between(0.01, 1.0));
    }

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

    std::mt19937_64 mRandom{GetParam()};
};

TEST_P(FiniteCamera, StaysFiniteOnWalksThroughTheOperations) {
    const Samples start = mSamples;
    for (int walk = 0; walk < 200; ++walk) {
        mSamples = start;
        for (int step = 0; step < 60; ++step) {
            const AnyOperation& operation = allOperations()[below(operationCount)];
            const AnyResult result = callAfresh(*mService, operation, argumentsOf(operation));
            expectSuccess(result);
            ASSERT_TRUE(keep(payloadOf(result))) << operation.name << " in walk " << walk << ", step " << step;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, FiniteCamera, ::testing::Values(11, 12, 13, 14));

} // namespace

} // namespace qel::api::camera::test
