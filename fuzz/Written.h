// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "fuzz/StateObjects.h"

// What a record that an operation wrote looks like, whatever the arguments were: lists of the right length, and fields
// that say what the blob says, to the bit. The blob may have been forged before, so nothing is asked of its numbers.
namespace camera::fuzz {

inline void requireWritten(double) {}
void requireWritten(const api::Vector& vector);
void requireWritten(const api::Matrix& matrix);
void requireWritten(const api::ViewState& state);
void requireWritten(const api::ProjectionState& state);
void requireWritten(const api::SurfaceState& state);
/// Its parts too, each in both of its places.
void requireWritten(const api::PlanarCameraState& state);

} // namespace camera::fuzz
