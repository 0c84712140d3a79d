// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>

#include <qel/api/camera/States.h>

namespace qel::host {

/// Writes a camera in Thrift's binary protocol. Throws std::runtime_error, naming the file, and leaves an older one as
/// it was then.
void writeState(const api::camera::PlanarCameraState& state, const std::filesystem::path& file);

/// Whether a file's content can be a camera as writeState() writes it. No text can: it begins with a control character.
[[nodiscard]] bool beginsAsState(const std::string& content) noexcept;

/// The camera in a file's content. Throws std::runtime_error, naming the file, where it breaks off.
api::camera::PlanarCameraState stateIn(std::string content, const std::string& file);

/// Throws std::runtime_error, naming the file, where it cannot be read or breaks off. Whether what it holds is a
/// camera, the service will tell.
api::camera::PlanarCameraState readState(const std::filesystem::path& file);

} // namespace qel::host
