// SPDX-License-Identifier: Apache-2.0
#include <array>

#include "host/show/Agreement.h"
#include "host/show/StateReport.h"

namespace qel::host {

namespace {

constexpr std::string_view part = "surface";

std::array<double, 6> numbersOfViewport(const api::camera::Viewport& viewport) {
    return {viewport.mX, viewport.mY, viewport.mWidth, viewport.mHeight, viewport.mDepthMin, viewport.mDepthMax};
}

std::string viewportText(const std::array<double, 6>& viewport, double resolutionX, double resolutionY) {
    const auto [x, y, width, height, depthMin, depthMax] = viewport;
    if (x == 0 && y == 0 && width == 1 && height == 1) {
        return "the whole window";
    }
    return "x " + shown(x) + ", y " + shown(y) + ", width " + shown(width) + ", height " + shown(height) +
           " of the window: pixels " + shown(x * resolutionX) + " to " + shown((x + width) * resolutionX) +
           " across, " + shown(y * resolutionY) + " to " + shown((y + height) * resolutionY) + " up";
}

void showSurface(StateReport& report, const std::array<double, 6>& viewport, double resolutionX, double resolutionY) {
    report.line("window", shown(resolutionX) + " x " + shown(resolutionY) + " pixels");
    report.line("viewport", viewportText(viewport, resolutionX, resolutionY));
    report.line("depths", shown(viewport[4]) + " near to " + shown(viewport[5]) + " far");
    if (!allFinite(viewport)) {
        report.warn(part, "it holds numbers that are not finite");
    }
}

void checkMatrices(StateReport& report, const SurfaceBlob& blob) {
    if (!allFinite(blob.toScreen.elements) || !allFinite(blob.fromScreen.elements)) {
        report.warn(part, "its viewport matrices hold numbers that are not finite");
    }
    if (!agree(blob.toScreen.elements, screenMatrix(blob.viewport, blob.resolutionX, blob.resolutionY).elements)) {
        report.warn(part, "screen positions are still those of the viewport " +
                              shown(viewportOf(blob.toScreen, blob.resolutionX, blob.resolutionY)) +
                              ", as after surfaceSetViewport; the next change of a resolution or of the window's "
                              "size brings them in step");
    }
    if (!areInverse(blob.toScreen, blob.fromScreen)) {
        report.warn(part, "the viewport matrix and the inverse that it keeps do not belong together");
    }
}

} // namespace

void reportSurface(StateReport& report, const api::camera::SurfaceState& state, std::string_view blob) {
    report.heading("Surface");
    if (const auto read = readSurfaceBlob(blob)) {
        const double resolutionX = read->resolutionX;
        const double resolutionY = read->resolutionY;
        compareField(report, part, "mViewport", numbersOfViewport(state.mViewport), read->viewport);
        compareField(report, part, "the window's size", std::array{state.mResolutionX, state.mResolutionY},
                     std::array{resolutionX, resolutionY});
        showSurface(report, read->viewport, resolutionX, resolutionY);
        report.line("kind words", "viewport matrix " + kindText(read->toScreen.kind) + ", its inverse " +
                                      kindText(read->fromScreen.kind));
        checkMatrices(report, *read);
    } else {
        showSurface(report, numbersOfViewport(state.mViewport), state.mResolutionX, state.mResolutionY);
    }
}

} // namespace qel::host
