// SPDX-License-Identifier: Apache-2.0
#include "host/tour/TourSteps.h"

namespace qel::host {
namespace {

/// Two marks in the plane through the box's centre that faces the camera.
void placeMarks(Stage& stage) {
    const CameraView view(stage.camera);
    const Vec3 offset = (view.axis(0) * 0.42 + view.axis(1) * 0.30) * stage.box.radius();
    stage.marks = {stage.box.centre() - offset, stage.box.centre() + offset};
}

void drawMarks(Stage& stage) {
    constexpr double radius = 6.0;
    for (const auto& [point, colour] : {std::pair{stage.marks.first, firstMark}, {stage.marks.second, secondMark}}) {
        if (const auto position = stage.toWindow(point)) {
            addDisc(stage.strokes, *position, radius, colour);
            addCircle(stage.strokes, *position, radius * 2.0, colour, 2.0F);
        }
    }
}

} // namespace

std::vector<Step> projectionSteps() {
    constexpr std::string_view type = "Perspective and orthographic";
    constexpr std::string_view shape = "The projection's and the view's own movements";
    return {
        {type, "marks", "Two marks at the depth of the box's centre",
         "Nothing is done here but to draw two points of the world, in the plane through the box's centre that faces "
         "the camera.",
         [](Stage& stage) {
             stage.camera = stage.home;
             placeMarks(stage);
             drawMarks(stage);
         }},
        {type, "orthographic", "Switched to orthographic",
         "What lies at the depth of the box's centre keeps its size, and the marks keep their pixels. What is nearer "
         "shrinks, what is farther grows, and the box's parallel edges are parallel.",
         [](Stage& stage) {
             stage.switchProjectionType();
             drawMarks(stage);
         }},
        {type, "perspective", "And back", "The same operation once more gives the perspective that was.",
         [](Stage& stage) {
             stage.switchProjectionType();
             drawMarks(stage);
         }},
        {shape, "field-of-view", "A wider field of view",
         "Half as wide again as before, from the same place: more is seen, and the model becomes smaller. The aspect "
         "ratio is kept.",
         [](Stage& stage) {
             stage.camera = stage.home;
             const double angle = stage.service.call<"projectionGetVFoV">(stage.camera.mProjectionState);
             stage.changeProjection<"projectionSetVFoV">(angle * 1.5);
         }},
        {shape, "zoom", "A zoom",
         "A factor below 1 narrows the frustum about its centre. The eye does not move, so the perspective of the "
         "model stays as it was.",
         [](Stage& stage) { stage.changeProjection<"projectionZoom">(0.4); }},
        {shape, "yaw-pitch-roll", "Yaw, pitch and roll",
         "The view turns in its place, by angles in radians: the model leaves the middle of the picture, which then "
         "turns about its own middle.",
         [](Stage& stage) {
             stage.camera = stage.home;
             stage.change<"planarCameraYawPitchRoll">(0.08, -0.05, 0.3);
         }},
        {shape, "yaw", "Yaw alone", "Positive is to the left. A single turn is by twice its argument: 0.06 makes 0.12.",
         [](Stage& stage) {
             stage.camera = stage.home;
             stage.change<"planarCameraYaw">(0.06);
         }},
        {shape, "pitch", "Pitch alone", "Positive is upwards, and by twice the argument as well.",
         [](Stage& stage) {
             stage.camera = stage.home;
             stage.change<"planarCameraPitch">(0.04);
         }},
        {shape, "roll", "Roll alone",
         "Positive tips the camera's top to the left, so that the picture turns clockwise; by twice the argument.",
         [](Stage& stage) {
             stage.camera = stage.home;
             stage.change<"planarCameraRoll">(0.2);
         }},
        {shape, "translation", "A translation",
         "The eye moves to its right, up and ahead, so that the model comes nearer at the lower left.",
         [](Stage& stage) {
             stage.camera = stage.home;
             const double size = stage.box.radius();
             stage.change<"planarCameraTranslateInViewSpace">(toVector({0.4 * size, 0.25 * size, -0.6 * size}));
             stage.updateClippingPlanes();
         }},
        {shape, "world-translation", "A translation in the world",
         "The eye moves along the world's x axis alone, which points to the lower right here: the model goes to the "
         "upper left.",
         [](Stage& stage) {
             stage.camera = stage.home;
             stage.change<"planarCameraTranslateInWorldSpace">(toVector({0.35 * stage.box.radius(), 0, 0}));
             stage.updateClippingPlanes();
         }},
    };
}

} // namespace qel::host
