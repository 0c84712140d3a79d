// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <optional>

#include "host/show/Agreement.h"
#include "host/show/StateReport.h"

namespace qel::host {

namespace {

constexpr std::string_view part = "view";

using Point = std::array<double, 3>;

Point column(const BlobMatrix& matrix, std::size_t index, double factor) {
    return {factor * matrix(0, index), factor * matrix(1, index), factor * matrix(2, index)};
}

/// What the fields alone tell, where they have the numbers for it.
std::optional<ViewBlob> viewOfFields(const api::camera::ViewState& state) {
    const auto transform = numbersOf(state.mViewTransformMatrix);
    const auto view = numbersOf(state.mViewMatrix);
    const auto& eye = state.mEye.mData;
    const auto& orientation = state.mOrientation.mData;
    if (transform.size() != 16 || view.size() != 16 || eye.size() != 3 || orientation.size() != 4) {
        return std::nullopt;
    }
    ViewBlob blob;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t col = 0; col < 4; ++col) {
            blob.viewTransform(row, col) = transform[4 * row + col];
            blob.view(row, col) = view[4 * row + col];
        }
    }
    blob.rotation = rotationOf({orientation[0], orientation[1], orientation[2], orientation[3]});
    std::ranges::copy(eye, blob.eye.begin());
    return blob;
}

void compareFields(StateReport& report, const api::camera::ViewState& state, const ViewBlob& blob) {
    compareField(report, part, "mViewTransformMatrix", numbersOf(state.mViewTransformMatrix),
                 numbersOf(blob.viewTransform));
    compareField(report, part, "mViewMatrix", numbersOf(state.mViewMatrix), numbersOf(blob.view));
    compareField(report, part, "mEye", state.mEye.mData, blob.eye);
    compareField(report, part, "mDirection", state.mDirection.mData, column(blob.rotation, 2, -1));
    // A matrix that is no rotation has no quaternion to compare with.
    const auto& orientation = state.mOrientation.mData;
    if (isRotation(blob.rotation) &&
        (orientation.size() != 4 ||
         !sameAxes(rotationOf({orientation[0], orientation[1], orientation[2], orientation[3]}), blob.rotation))) {
        report.warn(part, "mOrientation is " + shown(orientation) +
                              ", which is not the rotation that mPrivate has; operations read mPrivate alone");
    }
}

void checkAgreement(StateReport& report, const ViewBlob& blob) {
    if (!allFinite(blob.viewTransform.elements) || !allFinite(blob.view.elements) ||
        !allFinite(blob.rotation.elements) || !allFinite(blob.eye)) {
        report.warn(part, "it holds numbers that are not finite");
    }
    if (!areInverse(blob.view, blob.viewTransform)) {
        report.warn(part, "the view matrix and the view transform matrix are not the inverse of each other, as after "
                          "a matrix was set that does more than rotate and move");
    }
    if (!sameAxes(blob.viewTransform, blob.rotation)) {
        report.warn(part, "the view transform matrix looks along " + shown(column(blob.viewTransform, 2, -1)) +
                              " with " + shown(column(blob.viewTransform, 1, 1)) +
                              " upwards, not as direction and up say, as after viewSetViewTransformMatrix; operations "
                              "that turn or move the view go on from direction and up");
    }
    if (const Point moved = column(blob.viewTransform, 3, 1); !agree(moved, blob.eye)) {
        report.warn(part, "the view transform matrix has its eye at " + shown(moved) + ", not where the eye is");
    }
}

} // namespace

void reportView(StateReport& report, const api::camera::ViewState& state, std::string_view blob) {
    report.heading("View");
    const auto read = readViewBlob(blob);
    const auto view = read ? read : viewOfFields(state);
    if (read) {
        compareFields(report, state, *read);
    }
    if (!view) {
        report.line("unknown", "the fields hold too few or too many numbers");
        return;
    }
    const Point direction = column(view->rotation, 2, -1);
    const Point lookat{view->eye[0] + direction[0], view->eye[1] + direction[1], view->eye[2] + direction[2]};
    report.line("eye", shown(view->eye));
    report.line("look-at", shown(lookat) + ", one unit ahead");
    report.line("direction", shown(direction));
    report.line("up", shown(column(view->rotation, 1, 1)));
    if (read) {
        report.line("kind words", "view transform matrix " + kindText(view->viewTransform.kind) + ", view matrix " +
                                      kindText(view->view.kind) + ", orientation " + kindText(view->rotation.kind));
    }
    checkAgreement(report, *view);
}

} // namespace qel::host
