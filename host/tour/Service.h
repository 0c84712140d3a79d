// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Operations.h>

#include "Geometry.h"

namespace qel::host {

/// An operation of the service reported a failure. The text names the operation and the service's message.
class ServiceError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

api::camera::Vector toVector(const Vec3& v);
/// Throws ServiceError for a record that does not hold three values.
Vec3 toVec3(const api::camera::Vector& vector);

/// How arguments and values are shown to a person: six significant digits, vectors in brackets, states by name only.
std::string describe(double value);
std::string describe(std::int32_t value);
std::string describe(const api::camera::Vector& vector);
std::string describe(const api::camera::ViewState& state);
std::string describe(const api::camera::ProjectionState& state);
std::string describe(const api::camera::SurfaceState& state);
std::string describe(const api::camera::PlanarCameraState& state);

/// The name of an operation as a template argument.
template <std::size_t size>
struct OperationName {
    // NOLINTNEXTLINE(google-explicit-constructor): made from a literal between angle brackets
    consteval OperationName(const char (&literal)[size]) { std::copy_n(literal, size, text.begin()); }
    [[nodiscard]] constexpr std::string_view view() const { return {text.data(), size - 1}; }
    std::array<char, size> text{};
};

/// Calls operations by their names, checks the outcome of each, and keeps a line on every call for whoever shows what
/// was done.
///
/// Each call gets a result record of its own: a successful operation leaves the outcome in the record as it was, so a
/// record that is used again would report an older error.
class Service {
public:
    explicit Service(api::camera::CameraAPIIf& camera) : mCamera(camera) {}

    /// The value that the operation made. Throws ServiceError where it failed.
    template <OperationName name, class... Arguments>
    auto call(const Arguments&... arguments) {
        constexpr std::size_t index = find(name.view());
        static_assert(index < std::tuple_size_v<decltype(api::camera::operations)>, "no operation has this name");
        const auto& operation = std::get<index>(api::camera::operations);
        return run(operation, arguments...);
    }

    /// The calls since this was last asked, one line each.
    std::vector<std::string> takeCalls() { return std::exchange(mCalls, {}); }

private:
    static constexpr std::size_t find(std::string_view name) {
        return std::apply(
            [&](const auto&... operation) {
                std::size_t index = 0;
                (void)((operation.name == name || (++index, false)) || ...);
                return index;
            },
            api::camera::operations);
    }

    template <class Result, class... Parameters, class... Arguments>
    auto run(const api::camera::Operation<Result, Parameters...>& operation, const Arguments&... arguments) {
        static_assert(sizeof...(Parameters) == sizeof...(Arguments), "the operation takes another number of arguments");
        std::string line(operation.name);
        std::size_t position = 0;
        [[maybe_unused]] const auto append = [&](const std::string& value) {
            line += position == 0 ? "(" : ", ";
            const std::string_view argument = operation.argumentNames[position++];
            line += value.empty() ? std::string(argument) : std::string(argument) + " = " + value;
        };
        (append(describe(arguments)), ...);
        line += position == 0 ? "()" : ")";

        Result result;
        (mCamera.*operation.member)(result, arguments...);
        if (result.mResult.mError != api::camera::CameraAPIError::CAMERA_API_SUCCESS) {
            throw ServiceError(std::string(operation.name) + " failed with error " +
                               std::to_string(result.mResult.mError) + ": " + result.mResult.mMessage);
        }
        if (const std::string value = describe(result.mValue); !value.empty()) {
            line += " → " + value;
        }
        mCalls.push_back(std::move(line));
        return std::move(result.mValue);
    }

    api::camera::CameraAPIIf& mCamera;
    std::vector<std::string> mCalls;
};

} // namespace qel::host
