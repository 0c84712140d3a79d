// SPDX-License-Identifier: Apache-2.0
#include "host/tour/CallRecorder.h"

#include <array>
#include <charconv>

namespace qel::host {

Vec3 toVec3(const api::camera::Vector& vector) {
    if (vector.mData.size() != 3) {
        throw ServiceError("the service gave a vector of " + std::to_string(vector.mData.size()) + " values");
    }
    return {vector.mData[0], vector.mData[1], vector.mData[2]};
}

std::string describe(double value) {
    // The least a double can be and still be shown as something else than rounding.
    constexpr double negligible = 1e-12;
    if (value > -negligible && value < negligible) {
        return "0";
    }
    constexpr int digits = 6;
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, digits);
    return {text.data(), end.ptr};
}

std::string describe(std::int32_t value) { return std::to_string(value); }

std::string describe(const api::camera::Vector& vector) {
    std::string text = "(";
    for (const double value : vector.mData) {
        text += text.size() > 1 ? ", " : "";
        text += describe(value);
    }
    return text + ")";
}

std::string describe(const api::camera::ViewState& /*state*/) { return {}; }
std::string describe(const api::camera::ProjectionState& /*state*/) { return {}; }
std::string describe(const api::camera::SurfaceState& /*state*/) { return {}; }
std::string describe(const api::camera::PlanarCameraState& /*state*/) { return {}; }

} // namespace qel::host
