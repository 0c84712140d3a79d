// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

namespace qel::bench {

/// Arguments with which every operation does its whole work: nothing degenerate, nothing that is already so. Those
/// of a type and a name are the same for every operation. Throws std::out_of_range for a name that it does not know.
class Workload {
public:
    explicit Workload(api::camera::CameraAPIIf& camera);

    void give(double& number, std::string_view operation, std::string_view name) const;
    void give(std::int32_t& number, std::string_view operation, std::string_view name) const;
    void give(api::camera::ProjectionType::type& type, std::string_view operation, std::string_view name) const;
    void give(api::camera::Vector& vector, std::string_view operation, std::string_view name) const;
    void give(api::camera::Quaternion& quaternion, std::string_view operation, std::string_view name) const;
    void give(api::camera::Matrix& matrix, std::string_view operation, std::string_view name) const;
    void give(api::camera::Frustum& frustum, std::string_view operation, std::string_view name) const;
    void give(api::camera::Viewport& viewport, std::string_view operation, std::string_view name) const;
    void give(api::camera::ViewState& state, std::string_view operation, std::string_view name) const;
    void give(api::camera::ProjectionState& state, std::string_view operation, std::string_view name) const;
    void give(api::camera::SurfaceState& state, std::string_view operation, std::string_view name) const;
    void give(api::camera::PlanarCameraState& state, std::string_view operation, std::string_view name) const;

    [[nodiscard]] const api::camera::PlanarCameraState& camera() const noexcept { return mCamera; }

private:
    api::camera::PlanarCameraState mCamera;
};

} // namespace qel::bench
