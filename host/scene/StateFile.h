// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>

#include <qel/api/camera/States.h>

namespace qel::host {

/// Writes a camera in Thrift's binary protocol. Throws std::runtime_error, naming the file, and leaves an older one as
/// it was then.
void writeState(const api::camera::PlanarCameraState& state, const std::filesystem::path& file);

/// Throws std::runtime_error, naming the file, where it cannot be read or breaks off. Whether what it holds is a
/// camera, the service will tell.
api::camera::PlanarCameraState readState(const std::filesystem::path& file);

} // namespace qel::host
