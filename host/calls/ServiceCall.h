// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Operations.h>

#include "host/scene/Geometry.h"

namespace qel::host {

/// An operation of the service reported a failure. The text names the operation and the service's message.
class ServiceError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

inline api::camera::Vector toVector(const Vec3& v) {
    api::camera::Vector vector;
    vector.__set_mData({v[0], v[1], v[2]});
    return vector;
}

/// The name of an operation as a template argument.
template <std::size_t size>
struct OperationName {
    // NOLINTNEXTLINE(google-explicit-constructor): made from a literal between angle brackets
    consteval OperationName(const char (&literal)[size]) { std::copy_n(literal, size, text.begin()); }
    [[nodiscard]] constexpr std::string_view view() const { return {text.data(), size - 1}; }
    std::array<char, size> text{};
};

/// The value that an operation makes. Throws ServiceError where it fails.
///
/// Each call gets a result record of its own: a successful operation leaves the outcome in the record as it was, so a
/// record that is used again would report an older error.
template <class Result, class... Parameters, class... Arguments>
auto call(api::camera::CameraAPIIf& camera, const api::camera::Operation<Result, Parameters...>& operation,
          const Arguments&... arguments) {
    static_assert(sizeof...(Parameters) == sizeof...(Arguments), "the operation takes another number of arguments");
    Result result;
    (camera.*operation.member)(result, arguments...);
    if (result.mResult.mError != api::camera::CameraAPIError::CAMERA_API_SUCCESS) {
        throw ServiceError(std::string(operation.name) + " failed with error " + std::to_string(result.mResult.mError) +
                           ": " + result.mResult.mMessage);
    }
    return std::move(result.mValue);
}

/// Likewise, by the operation's name: call<"viewYaw">(camera, state, angle).
template <OperationName name, class... Arguments>
auto call(api::camera::CameraAPIIf& camera, const Arguments&... arguments) {
    return call(camera, std::get<api::camera::slotOf(name.view())>(api::camera::operations), arguments...);
}

} // namespace qel::host
