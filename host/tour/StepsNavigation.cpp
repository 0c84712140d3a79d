// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <cmath>

#include "host/tour/TourSteps.h"

namespace qel::host {
namespace {

/// Where a fraction of an extent lands, at least a pixel inside the picture.
std::int32_t inside(double pixel, std::int32_t extent) {
    return std::clamp(static_cast<std::int32_t>(std::lround(pixel)), 1, extent - 1);
}

void drawPoint(Stage& stage, const Vec3& point, Colour colour) {
    constexpr double radius = 4.0;
    if (const auto position = stage.toWindow(point)) {
        addDisc(stage.strokes, *position, radius, colour);
    }
}

void drawArea(Stage& stage) {
    std::vector<Vec2> corners;
    for (const Vec3& corner : stage.area) {
        if (const auto position = stage.toWindow(corner)) {
            corners.push_back(*position);
        }
    }
    addOutline(stage.strokes, corners, firstMark);
}

struct Area {
    std::int32_t left, bottom, right, top;
};

/// Around the picked pixel, wider than it is high.
Area areaAround(const Stage& stage) {
    const double halfWidth = 0.15 * stage.width;
    const double halfHeight = 0.11 * stage.height;
    return {inside(stage.picked.x - halfWidth, stage.width), inside(stage.picked.y - halfHeight, stage.height),
            inside(stage.picked.x + halfWidth, stage.width), inside(stage.picked.y + halfHeight, stage.height)};
}

void markArea(Stage& stage) {
    stage.camera = stage.home;
    stage.picked = stage.pick(0.53, 0.6);
    const Area area = areaAround(stage);
    stage.area.clear();
    for (const auto& [x, y] : {std::pair{area.left, area.bottom},
                               {area.right, area.bottom},
                               {area.right, area.top},
                               {area.left, area.top}}) {
        stage.area.push_back(
            toVec3(stage.service.call<"transformScreenPointToWorldPoint">(stage.camera, x, y, stage.picked.depth)));
    }
    drawArea(stage);
}

void zoomIntoArea(Stage& stage) {
    const Area area = areaAround(stage);
    const double depth = stage.picked.depth;
    stage.change<"planarCameraZoomArea">(area.left, area.bottom, depth, area.right, area.top, depth);
    drawArea(stage);
}

void drawAnchor(Stage& stage) {
    addCrossHair(stage.strokes, stage.picked.pixel(), firstMark);
    drawPoint(stage, stage.picked.point, secondMark);
}

std::int32_t panX(const Stage& stage) { return stage.width / 5; }
std::int32_t panY(const Stage& stage) { return -stage.height / 6; }

void drawPan(Stage& stage) {
    const Vec2 start = stage.picked.pixel();
    const Vec2 end{start.x + panX(stage), start.y + panY(stage)};
    addCrossHair(stage.strokes, start, ink);
    addCrossHair(stage.strokes, end, firstMark);
    drawPoint(stage, stage.picked.point, secondMark);
}

/// A drag in four pieces from the left of the picture's middle to its upper right, bent like a wrist bends it.
void planDrag(Stage& stage) {
    const double size = 0.32 * std::min(stage.width, stage.height);
    stage.drag.clear();
    for (int i = 0; i <= 4; ++i) {
        const double along = -1.0 + i / 2.0;
        stage.drag.emplace_back(inside(stage.width / 2.0 + size * along, stage.width),
                                inside(stage.height / 2.0 + size * (0.35 * along + 0.3 * along * along), stage.height));
    }
}

void drawDrag(Stage& stage, std::size_t reached) {
    const auto at = [&](std::size_t i) {
        return Vec2{static_cast<double>(stage.drag[i].first), static_cast<double>(stage.drag[i].second)};
    };
    for (std::size_t i = 1; i < stage.drag.size(); ++i) {
        addArrow(stage.strokes, at(i - 1), at(i), i <= reached ? firstMark : ink);
    }
    addCrossHair(stage.strokes, at(reached), firstMark);
}

template <std::size_t piece>
void dragPiece(Stage& stage) {
    const auto [x1, y1] = stage.drag[piece - 1];
    const auto [x2, y2] = stage.drag[piece];
    stage.change<"planarCameraArcballRotation">(toVector(stage.box.centre()), x1, y1, x2, y2);
    drawDrag(stage, piece);
}

void turn(Stage& stage, double angle, double tilt) {
    stage.change<"planarCameraRotateAboutWorldAxis">(toVector(stage.box.centre()), toVector({0, 1, 0}), angle, tilt);
}

} // namespace

std::vector<Step> navigationSteps() {
    constexpr std::string_view area = "Zoom into an area";
    constexpr std::string_view anchor = "Zoom about a point";
    constexpr std::string_view pan = "Pan";
    constexpr std::string_view arcball = "An arcball drag";
    constexpr std::string_view turntable = "A turntable";
    return {
        {area, "area-before", "A rectangle is drawn",
         "Around a point of the model that was picked in the renderer's depths. The service tells where its corners "
         "lie in the world at that depth.",
         &markArea},
        {area, "area-after", "It fills the window",
         "The same four points of the world, seen by the new camera: the rectangle reaches the window's edges in one "
         "direction and is widened to the window's shape in the other. The eye has moved sideways only. (An extent "
         "below 0.001 on the near plane counts as "
         "0.001, so a model of that size becomes smaller instead.)",
         &zoomIntoArea},
        {anchor, "anchor-before", "A point of the model is picked",
         "The cross hair marks the pixel, the dot the point of the model that is seen there.",
         [](Stage& stage) {
             stage.camera = stage.home;
             stage.picked = stage.pick(0.40, 0.60);
             drawAnchor(stage);
         }},
        {anchor, "anchor-screen", "Twice as large, about the pixel",
         "The cross hair is drawn on the same pixel as before, and the dot is still in it.",
         [](Stage& stage) {
             stage.change<"planarCameraZoomWithAnchor_Screen">(stage.picked.x, stage.picked.y, stage.picked.depth, 0.5);
             drawAnchor(stage);
         }},
        {anchor, "anchor-world", "And out again, about the point",
         "Now the anchor is the point of the world itself, and the factor above 1: the dot stays where it is.",
         [](Stage& stage) {
             stage.change<"planarCameraZoomWithAnchor_World">(toVector(stage.picked.point), 3.0);
             drawAnchor(stage);
         }},
        {pan, "pan-before", "A point is taken hold of",
         "The dark cross hair is where the mouse goes down, the blue one where it will be let go.",
         [](Stage& stage) {
             stage.camera = stage.home;
             stage.picked = stage.pick(0.45, 0.55);
             drawPan(stage);
         }},
        {pan, "pan-after", "And moved",
         "The point of the model has followed from the one to the other. The eye moved sideways, at right angles to "
         "where it looks.",
         [](Stage& stage) {
             stage.change<"planarCameraPanWithAnchor">(stage.picked.x, stage.picked.y, stage.picked.depth, panX(stage),
                                                       panY(stage));
             drawPan(stage);
         }},
        {arcball, "arcball-start", "The mouse goes down",
         "The way that it is going to take, in four pieces. The camera will turn about the centre of the box, as if "
         "the mouse had taken hold of a ball around it.",
         [](Stage& stage) {
             stage.camera = stage.home;
             planDrag(stage);
             drawDrag(stage, 0);
         }},
        {arcball, "arcball-1", "First piece", "The model turns the way that the mouse goes.", &dragPiece<1>},
        {arcball, "arcball-2", "Second piece", "Each piece starts from the camera that the one before gave.",
         &dragPiece<2>},
        {arcball, "arcball-3", "Third piece", "Nothing is upright by force: an arcball knows no pole.", &dragPiece<3>},
        {arcball, "arcball-4", "Fourth piece", "The distance from the eye to the centre is the one it was.",
         &dragPiece<4>},
        {turntable, "turntable-turn", "A turn about the world's y axis",
         "The axis stands upright through the centre of the box, and stays upright in the picture.",
         [](Stage& stage) {
             stage.camera = stage.home;
             turn(stage, 1.1, 0.0);
         }},
        {turntable, "turntable-tilt", "A tilt towards the pole",
         "The second angle tilts the eye; a negative one carries it up, towards the axis.",
         [](Stage& stage) { turn(stage, 0.0, -0.5); }},
        {turntable, "turntable-pole", "As far as the pole",
         "Almost the whole angle that is left: the eye stands above the model and looks down.",
         [](Stage& stage) { turn(stage, 0.0, -0.45); }},
        {turntable, "turntable-limit", "No farther",
         "The same tilt again would carry the eye over the pole. It is left out, and the camera is the one of the "
         "step before.",
         [](Stage& stage) { turn(stage, 0.0, -0.45); }},
        {turntable, "view-axes", "Over the pole",
         "About the view's own axes there is no limit: the camera goes on over the pole and sees the model upside "
         "down.",
         [](Stage& stage) {
             stage.change<"planarCameraRotateAboutViewAxes">(toVector(stage.box.centre()), 0.0, -0.9);
         }},
    };
}

std::vector<Step> tourSteps() {
    std::vector<Step> steps;
    for (const auto& part : {placingSteps(), projectionSteps(), navigationSteps()}) {
        steps.insert(steps.end(), part.begin(), part.end());
    }
    return steps;
}

} // namespace qel::host
