// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <qel/api/camera/States.h>

#include "host/show/StateBlob.h"

namespace qel::host {

/// A state in a person's words, gathered line by line, and what in it does not fit together.
class StateReport {
public:
    void heading(std::string_view text) { mText.append(mText.empty() ? "" : "\n").append(text).append("\n"); }
    void line(std::string_view label, std::string_view text);
    /// `part` says what the warning is about, such as "view".
    void warn(std::string_view part, std::string_view text);

    /// The lines under their headings, and the warnings after them.
    [[nodiscard]] std::string text() const;
    [[nodiscard]] const std::vector<std::string>& warnings() const { return mWarnings; }

private:
    std::string mText;
    std::vector<std::string> mWarnings;
};

/// How a person reads numbers: six significant digits, and nothing of what rounding leaves of 0; or NaN, Infinity,
/// -Infinity.
std::string shown(double number);
/// In brackets, with commas.
std::string shown(std::span<const double> numbers);

// Each tells of one state. What it shows is what operations would find: what the blob holds, or, where that is too
// short for any operation, the fields. It warns of fields that differ from the blob, of parts that do not follow from
// each other, as after a raw matrix or viewport was set, and of numbers that are not finite.
//
// The blob is the state's own, or the part of the planar camera's that stands for it.
void reportView(StateReport& report, const api::camera::ViewState& state, std::string_view blob);
void reportProjection(StateReport& report, const api::camera::ProjectionState& state, std::string_view blob);
void reportSurface(StateReport& report, const api::camera::SurfaceState& state, std::string_view blob);
void reportPlanarCamera(StateReport& report, const api::camera::PlanarCameraState& state);

// For the functions above.

/// "general (64)" for the kind word of a matrix.
std::string kindText(std::uint32_t kind);
/// The numbers of a record, rows one after the other.
std::vector<double> numbersOf(const api::camera::Matrix& matrix);
std::vector<double> numbersOf(const BlobMatrix& matrix);
/// Warns where a field does not hold what the blob does.
void compareField(StateReport& report, std::string_view part, std::string_view field, std::span<const double> inField,
                  std::span<const double> inBlob);
/// Warns of a blob that is not as long as it should be.
void checkBlobSize(StateReport& report, std::string_view part, std::size_t size, std::size_t wanted);

} // namespace qel::host
