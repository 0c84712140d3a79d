// SPDX-License-Identifier: Apache-2.0
#include "host/tour/TourSteps.h"

namespace qel::host {
namespace {

/// The view along an axis, filled by the model's box.
void viewAlong(Stage& stage, const Vec3& axis, const Vec3& up) {
    stage.lookAlong(axis, up);
    stage.fitBox();
    stage.updateClippingPlanes();
}

} // namespace

std::vector<Step> placingSteps() {
    constexpr std::string_view placing = "From the default camera to the model";
    constexpr std::string_view axes = "Along the axes";
    return {
        {placing, "default-camera", "The default camera",
         "It stands at the world's origin, looks along -z, is 45 degrees high and 640 by 480 pixels large. It knows "
         "nothing of the model, so most models surround it, lie beside it or behind it: what is seen here, if "
         "anything, is what happens to stand before the origin.",
         [](Stage& stage) { stage.camera = stage.service.call<"planarCameraCreateDefault">(); }},
        {placing, "window-size", "The window gets its size",
         "Frustum and surface grow together. A pixel keeps its extent, so a larger window shows more of the scene and "
         "stretches nothing.",
         [](Stage& stage) { stage.change<"planarCameraUpdateWindowSize">(stage.width, stage.height); }},
        {placing, "fit-box", "The model's box is fitted",
         "The eye moves back and sideways, and the frustum closes around the box, here with a margin of 2 % of its "
         "diagonal. The near and the far plane touch the sphere around it.",
         [](Stage& stage) { stage.fitBox(); }},
        {placing, "clipping-planes", "Clipping planes from the bounding sphere",
         "Near and far move 5 % away from the sphere around the box. The angles of the frustum stay, and so does the "
         "picture; but now the camera may turn about the box without cutting it.",
         [](Stage& stage) { stage.updateClippingPlanes(); }},
        {axes, "from-x", "From +x",
         "Orthographic, so that lengths can be compared between the three views. The camera looks along -x: the width "
         "seen here is the box's extent in z, the height its extent in y.",
         [](Stage& stage) {
             stage.switchProjectionType();
             viewAlong(stage, {-1, 0, 0}, {0, 1, 0});
         }},
        {axes, "from-y", "From +y",
         "From above, with -z upwards: the width is the extent in x, the height the extent in z, which is the width "
         "of the view from +x.",
         [](Stage& stage) {
             viewAlong(stage, {0, -1, 0}, {0, 0, -1});
         }},
        {axes, "from-z", "From +z", "The width is again the extent in x, the height the extent in y.",
         [](Stage& stage) {
             viewAlong(stage, {0, 0, -1}, {0, 1, 0});
         }},
        {axes, "isometric", "From (1, 1, 1)",
         "In perspective again, along the diagonal between the axes. The steps that follow come back to this camera: "
         "to keep a camera is to keep its state record.",
         [](Stage& stage) {
             stage.switchProjectionType();
             viewAlong(stage, {-1, -1, -1}, {0, 1, 0});
             stage.home = stage.camera;
         }},
    };
}

} // namespace qel::host
