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

Point column(const ImageMatrix& matrix, std::size_t index, double factor) {
    return {factor * matrix(0, index), factor * matrix(1, index), factor * matrix(2, index)};
}

/// What the fields alone tell, where they have the numbers for it.
std::optional<ViewImage> viewOfFields(const api::camera::ViewState& state) {
    const auto transform = numbersOf(state.mViewTransformMatrix);
    const auto view = numbersOf(state.mViewMatrix);
    const auto& eye = state.mEye.mData;
    const auto& orientation = state.mOrientation.mData;
    if (transform.size() != 16 || view.size() != 16 || eye.size() != 3 || orientation.size() != 4) {
        return std::nullopt;
    }
    ViewImage image;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t col = 0; col < 4; ++col) {
            image.viewTransform(row, col) = transform[4 * row + col];
            image.view(row, col) = view[4 * row + col];
        }
    }
    image.rotation = rotationOf({orientation[0], orientation[1], orientation[2], orientation[3]});
    std::ranges::copy(eye, image.eye.begin());
    return image;
}

void compareFields(StateReport& report, const api::camera::ViewState& state, const ViewImage& image) {
    compareField(report, part, "mViewTransformMatrix", numbersOf(state.mViewTransformMatrix),
                 numbersOf(image.viewTransform));
    compareField(report, part, "mViewMatrix", numbersOf(state.mViewMatrix), numbersOf(image.view));
    compareField(report, part, "mEye", state.mEye.mData, image.eye);
    compareField(report, part, "mDirection", state.mDirection.mData, column(image.rotation, 2, -1));
    // A matrix that is no rotation has no quaternion to compare with.
    const auto& orientation = state.mOrientation.mData;
    if (isRotation(image.rotation) &&
        (orientation.size() != 4 ||
         !sameAxes(rotationOf({orientation[0], orientation[1], orientation[2], orientation[3]}), image.rotation))) {
        report.warn(part, "mOrientation is " + shown(orientation) +
                              ", which is not the rotation that mPrivate has; operations read mPrivate alone");
    }
}

void checkAgreement(StateReport& report, const ViewImage& image) {
    if (!allFinite(image.viewTransform.elements) || !allFinite(image.view.elements) ||
        !allFinite(image.rotation.elements) || !allFinite(image.eye)) {
        report.warn(part, "it holds numbers that are not finite");
    }
    if (!areInverse(image.view, image.viewTransform)) {
        report.warn(part, "the view matrix and the view transform matrix are not the inverse of each other, as after "
                          "a matrix was set that does more than rotate and move");
    }
    if (!sameAxes(image.viewTransform, image.rotation)) {
        report.warn(part, "the view transform matrix looks along " + shown(column(image.viewTransform, 2, -1)) +
                              " with " + shown(column(image.viewTransform, 1, 1)) +
                              " upwards, not as direction and up say, as after viewSetViewTransformMatrix; operations "
                              "that turn or move the view go on from direction and up");
    }
    if (const Point moved = column(image.viewTransform, 3, 1); !agree(moved, image.eye)) {
        report.warn(part, "the view transform matrix has its eye at " + shown(moved) + ", not where the eye is");
    }
}

} // namespace

void reportView(StateReport& report, const api::camera::ViewState& state, std::string_view image) {
    report.heading("View");
    const auto read = readViewImage(image);
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
