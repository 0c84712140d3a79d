// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <cmath>
#include <numbers>

#include "host/show/Agreement.h"
#include "host/show/StateReport.h"

namespace qel::host {

namespace {

constexpr std::string_view part = "projection";

std::array<double, 6> numbersOfFrustum(const api::camera::Frustum& frustum) {
    return {frustum.mLeft, frustum.mRight, frustum.mBottom, frustum.mTop, frustum.mNearDist, frustum.mFarDist};
}

std::string typeText(bool orthographic) { return orthographic ? "orthographic" : "perspective"; }

/// The angle in degrees between the directions to two points on the near plane.
std::string angleText(double from, double to, double near) {
    constexpr double degrees = 180 / std::numbers::pi;
    return shown((std::atan2(to, near) - std::atan2(from, near)) * degrees);
}

void showFrustum(StateReport& report, const std::array<double, 6>& frustum, bool orthographic) {
    const auto [left, right, bottom, top, near, far] = frustum;
    report.line("kind", typeText(orthographic));
    if (orthographic) {
        report.line("extent", shown(right - left) + " wide and " + shown(top - bottom) + " high");
    } else if (near > 0) {
        report.line("field of view", angleText(bottom, top, near) + " degrees vertically, " +
                                         angleText(left, right, near) + " degrees horizontally");
    } else {
        report.line("field of view", "unknown, since the near distance is not positive");
    }
    report.line("aspect ratio", shown((right - left) / (top - bottom)));
    report.line("frustum", "left " + shown(left) + ", right " + shown(right) + ", bottom " + shown(bottom) + ", top " +
                               shown(top));
    report.line("near, far", shown(near) + ", " + shown(far));
    if (!(left < right && bottom < top && 0 < near && near < far)) {
        report.warn(part, "its frustum is none, which would have left < right, bottom < top and 0 < near < far");
    }
}

void compareFields(StateReport& report, const api::camera::ProjectionState& state, const ProjectionBlob& blob) {
    compareField(report, part, "mProjectionMatrix", numbersOf(state.mProjectionMatrix), numbersOf(blob.projection));
    compareField(report, part, "mFrustum", numbersOfFrustum(state.mFrustum), blob.frustum);
    if ((state.mProjectionType == api::camera::ProjectionType::ORTHOGRAPHIC) != blob.orthographic) {
        report.warn(part, "mProjectionType is not the " + typeText(blob.orthographic) +
                              " one that mPrivate has; operations read mPrivate alone");
    }
}

void checkMatrix(StateReport& report, std::span<const double> matrix, const std::array<double, 6>& frustum,
                 bool orthographic) {
    if (!allFinite(matrix) || !allFinite(frustum)) {
        report.warn(part, "it holds numbers that are not finite");
    }
    if (!agree(matrix, numbersOf(projectionMatrix(frustum, orthographic)))) {
        report.warn(part, "the projection matrix is not that of this " + typeText(orthographic) +
                              " frustum, as after projectionSetProjectionMatrix; pictures are drawn with the matrix, "
                              "operations go on from the frustum");
    }
}

} // namespace

void reportProjection(StateReport& report, const api::camera::ProjectionState& state, std::string_view blob) {
    report.heading("Projection");
    if (const auto read = readProjectionBlob(blob)) {
        compareFields(report, state, *read);
        showFrustum(report, read->frustum, read->orthographic);
        report.line("kind words", "projection matrix " + kindText(read->projection.kind) + ", its inverse " +
                                      kindText(read->inverse.kind));
        checkMatrix(report, numbersOf(read->projection), read->frustum, read->orthographic);
        if (!allFinite(read->inverse.elements)) {
            report.warn(part, "the inverse of its matrix holds numbers that are not finite");
        }
        if (!areInverse(read->projection, read->inverse)) {
            report.warn(part, "the inverse that it keeps is that of another projection matrix, as after "
                              "projectionSetProjectionMatrix; screen positions are brought back with it");
        }
    } else {
        const bool orthographic = state.mProjectionType == api::camera::ProjectionType::ORTHOGRAPHIC;
        const auto frustum = numbersOfFrustum(state.mFrustum);
        showFrustum(report, frustum, orthographic);
        checkMatrix(report, numbersOf(state.mProjectionMatrix), frustum, orthographic);
    }
}

} // namespace qel::host
