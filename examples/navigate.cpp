// SPDX-License-Identifier: Apache-2.0
// What a viewer does when its user moves the mouse or the window.
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/host/ComponentLoader.h>

using namespace qel::api::camera;

// [types]
struct Box {
    std::array<double, 3> low, high; // opposite corners, world space
};

/// What the user points at: a pixel counted from the lower left, and the depth buffer's value there.
struct Pick {
    std::int32_t x, y;
    double depth; // 0 to 1; 1 where nothing was drawn
};
// [/types]

// [clipping]
/// After every move that changes the distance to the model: near and far around the model's sphere.
void placeClippingPlanes(CameraAPIIf& service, PlanarCameraStateResult& camera, const Box& box) {
    Vector centre;
    double squared = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        centre.mData.push_back((box.low[i] + box.high[i]) / 2);
        squared += std::pow((box.high[i] - box.low[i]) / 2, 2);
    }
    const double radius = std::sqrt(squared);
    service.planarCameraUpdateClippingPlanes(camera, camera.mValue, centre, radius, radius / 1000);
}
// [/clipping]

// [fit]
/// Shows the whole model from where the camera looks now.
void fit(CameraAPIIf& service, PlanarCameraStateResult& camera, const Box& box) {
    service.planarCameraFitWorldSpaceBoundingBox(camera, camera.mValue, box.low[0], box.low[1], box.low[2], box.high[0],
                                                 box.high[1], box.high[2]);
    placeClippingPlanes(service, camera, box);
}
// [/fit]

// [pick]
/// The point under the pick; the fallback's depth stands in for the background's, which is not a place in the scene.
Pick onModel(CameraAPIIf& service, const PlanarCameraState& camera, Pick pick, const Vector& fallback) {
    if (pick.depth >= 1) {
        VectorResult screen;
        service.transformWorldPointToScreenPoint(screen, camera, fallback);
        pick.depth = screen.mValue.mData[2];
    }
    return pick;
}
// [/pick]

// [pan]
/// Drags what was picked at mouse down to the cursor. Goes out from the camera at mouse down, so nothing adds up.
void pan(CameraAPIIf& service, PlanarCameraStateResult& camera, const PlanarCameraState& atMouseDown, const Pick& grip,
         std::int32_t x, std::int32_t y) {
    service.planarCameraPanWithAnchor(camera, atMouseDown, grip.x, grip.y, grip.depth, x - grip.x, y - grip.y);
}
// [/pan]

// [zoom]
/// One click of the wheel: a factor of 0.9 magnifies, 1 / 0.9 shows more. What is under the cursor stays there.
void zoom(CameraAPIIf& service, PlanarCameraStateResult& camera, const Pick& cursor, double factor) {
    service.planarCameraZoomWithAnchor_Screen(camera, camera.mValue, cursor.x, cursor.y, cursor.depth, factor);
}
// [/zoom]

// [arcball]
/// Turns about the picked point while the mouse goes from one pixel to the next.
void turn(CameraAPIIf& service, PlanarCameraStateResult& camera, const Vector& pivot, std::int32_t fromX,
          std::int32_t fromY, std::int32_t toX, std::int32_t toY) {
    service.planarCameraArcballRotation(camera, camera.mValue, pivot, fromX, fromY, toX, toY);
}

/// The point to turn about, taken once at mouse down.
Vector pivotOf(CameraAPIIf& service, const PlanarCameraState& camera, const Pick& pick) {
    VectorResult point;
    service.transformScreenPointToWorldPoint(point, camera, pick.x, pick.y, pick.depth);
    return point.mValue;
}
// [/arcball]

// [turntable]
/// The scene follows the mouse, which went dx pixels to the right and dy upwards; `up` stays upright.
void turnUpright(CameraAPIIf& service, PlanarCameraStateResult& camera, const Vector& pivot, const Vector& up,
                 std::int32_t dx, std::int32_t dy) {
    constexpr double radiansPerPixel = 0.01;
    service.planarCameraRotateAboutWorldAxis(camera, camera.mValue, pivot, up, -radiansPerPixel * dx,
                                             radiansPerPixel * dy);
}
// [/turntable]

// [rectangle]
/// Fills the window with the rectangle between two pixels, as it lies at the depth picked in its middle.
void zoomInto(CameraAPIIf& service, PlanarCameraStateResult& camera, std::int32_t x1, std::int32_t y1, std::int32_t x2,
              std::int32_t y2, double depth) {
    service.planarCameraZoomArea(camera, camera.mValue, x1, y1, depth, x2, y2, depth);
}
// [/rectangle]

// [resize]
/// A larger window shows more of the scene at the same scale. A minimised one (0 pixels) changes nothing.
void resize(CameraAPIIf& service, PlanarCameraStateResult& camera, std::int32_t width, std::int32_t height) {
    service.planarCameraUpdateWindowSize(camera, camera.mValue, width, height);
}

/// The other custom: the picture grows with the window, and the vertical extent of the scene stays.
void resizePicture(CameraAPIIf& service, PlanarCameraStateResult& camera, std::int32_t width, std::int32_t height) {
    const double before = camera.mValue.mSurfaceState.mResolutionY;
    service.planarCameraUpdateWindowSize(camera, camera.mValue, width, height);
    ProjectionStateResult projection;
    service.projectionZoom(projection, camera.mValue.mProjectionState,
                           before / camera.mValue.mSurfaceState.mResolutionY);
    service.planarCameraSetProjection(camera, camera.mValue, projection.mValue);
}
// [/resize]

void expect(bool condition, const std::string& what) {
    if (!condition) {
        throw std::logic_error("not so: " + what);
    }
}

bool near(double a, double b) { return std::abs(a - b) <= 1e-9 * (1 + std::abs(b)); }

void use(CameraAPIIf& service) {
    const Box box{{-2, -1, -1}, {2, 1, 1}};
    PlanarCameraStateResult camera;
    const auto pixelOf = [&](const Vector& point) {
        VectorResult pixel;
        service.transformWorldPointToScreenPoint(pixel, camera.mValue, point);
        return pixel.mValue.mData;
    };
    const auto eyeDistance = [&](const Vector& point) {
        const auto& eye = camera.mValue.mViewState.mEye.mData;
        return std::hypot(eye[0] - point.mData[0], eye[1] - point.mData[1], eye[2] - point.mData[2]);
    };
    const auto frustum = [&] { return camera.mValue.mProjectionState.mFrustum; };

    service.planarCameraCreateDefault(camera);
    resize(service, camera, 1200, 800);
    fit(service, camera, box);
    Vector middle;
    middle.mData = {0, 0, 0};
    expect(pixelOf(middle)[0] == 600 && pixelOf(middle)[1] == 400, "a fitted box is in the middle");
    expect(frustum().mNearDist < eyeDistance(middle) - std::sqrt(6.0), "the near plane leaves the sphere whole");

    const Pick background = onModel(service, camera.mValue, {700, 500, 1.0}, middle);
    expect(near(background.depth, pixelOf(middle)[2]), "the background takes the depth of the middle");

    const PlanarCameraState atMouseDown = camera.mValue;
    const Vector grip = pivotOf(service, atMouseDown, background);
    pan(service, camera, atMouseDown, background, 900, 300);
    expect(pixelOf(grip)[0] == 900 && pixelOf(grip)[1] == 300, "the point follows the cursor");

    const double width = frustum().mRight - frustum().mLeft;
    zoom(service, camera, {900, 300, pixelOf(grip)[2]}, 0.9);
    expect(near(frustum().mRight - frustum().mLeft, 0.9 * width), "a zoom narrows the frustum");
    expect(pixelOf(grip)[0] == 900 && pixelOf(grip)[1] == 300, "the point under the cursor stays");

    const double distance = eyeDistance(grip);
    turn(service, camera, grip, 600, 400, 650, 420);
    placeClippingPlanes(service, camera, box);
    expect(near(eyeDistance(grip), distance), "an arcball keeps the distance to its pivot");
    expect(pixelOf(grip)[0] == 900 && pixelOf(grip)[1] == 300, "the pivot keeps its pixel");

    camera.mValue = atMouseDown;
    Vector up;
    up.mData = {0, 1, 0};
    Vector front; // nearer than the pivot
    front.mData = {0, 0, 1};
    const auto before = pixelOf(front);
    turnUpright(service, camera, middle, up, 20, 10);
    expect(pixelOf(front)[0] > before[0] && pixelOf(front)[1] > before[1], "the near side follows the mouse");
    expect(std::abs(camera.mValue.mViewState.mViewMatrix.mData[0][1]) < 1e-9, "up stays upright");

    camera.mValue = atMouseDown;
    const double depth = pixelOf(middle)[2];
    const Vector corner = pivotOf(service, camera.mValue, {750, 500, depth});
    zoomInto(service, camera, 450, 300, 750, 500, depth);
    expect(std::abs(pixelOf(corner)[0] - 1200) <= 1 && std::abs(pixelOf(corner)[1] - 800) <= 1,
           "the rectangle's corner is the window's");

    const double height = frustum().mTop - frustum().mBottom;
    resizePicture(service, camera, 1000, 1000);
    expect(near(frustum().mTop - frustum().mBottom, height), "the vertical extent stays");
    expect(near(frustum().mRight - frustum().mLeft, height), "a square window has a square frustum");
    expect(camera.mResult.mError == 0, "nothing failed");
}

int main(int count, char** arguments) try {
    const qel::host::ComponentLoader component(count > 1 ? arguments[1] : "CameraLibrary.so"); // the module's file
    use(component.camera());
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
}
