// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Operations.h>

#include "host/calls/ServiceCall.h"
#include "host/scene/Geometry.h"

namespace qel::host {

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

/// Calls operations by their names, checks the outcome of each, and keeps a line on every call for whoever shows what
/// was done.
class CallRecorder {
public:
    explicit CallRecorder(api::camera::CameraAPIIf& camera) : mCamera(camera) {}

    /// The value that the operation made. Throws ServiceError where it failed.
    template <OperationName name, class... Arguments>
    auto call(const Arguments&... arguments) {
        return run(std::get<api::camera::slotOf(name.view())>(api::camera::operations), arguments...);
    }

    /// The calls since this was last asked, one line each.
    std::vector<std::string> takeCalls() { return std::exchange(mCalls, {}); }

private:
    template <class Result, class... Parameters, class... Arguments>
    auto run(const api::camera::Operation<Result, Parameters...>& operation, const Arguments&... arguments) {
        std::string line(operation.name);
        std::size_t position = 0;
        [[maybe_unused]] const auto append = [&](const std::string& value) {
            line += position == 0 ? "(" : ", ";
            const std::string_view argument = operation.argumentNames[position++];
            line += value.empty() ? std::string(argument) : std::string(argument) + " = " + value;
        };
        (append(describe(arguments)), ...);
        line += position == 0 ? "()" : ")";

        auto value = host::call(mCamera, operation, arguments...);
        if (const std::string shown = describe(value); !shown.empty()) {
            line += " → " + shown;
        }
        mCalls.push_back(std::move(line));
        return value;
    }

    api::camera::CameraAPIIf& mCamera;
    std::vector<std::string> mCalls;
};

} // namespace qel::host
