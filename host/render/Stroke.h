// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <vector>

#include "host/render/CameraView.h"
#include "host/scene/Geometry.h"

namespace qel::host {

/// A colour in sRGB, each part from 0 to 255.
struct Colour {
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
};

/// What is drawn over a model is blue, green or grey, and a model is brown: whoever looks at a picture, a program
/// too, tells them apart.
inline constexpr Colour ink{48, 58, 84};
inline constexpr Colour firstMark{16, 84, 232};
inline constexpr Colour secondMark{0, 142, 106};

/// A line over the picture with a pale rim, in pixels from the lower left corner.
struct Stroke {
    std::vector<Vec2> points;
    Colour colour = ink;
    float width = 2.0F;
};

using Strokes = std::vector<Stroke>;

/// A cross with an open middle, so that what lies under the pixel stays visible.
void addCrossHair(Strokes& strokes, Vec2 position, Colour colour);
void addDisc(Strokes& strokes, Vec2 position, double radius, Colour colour);
void addCircle(Strokes& strokes, Vec2 position, double radius, Colour colour, float width);
void addArrow(Strokes& strokes, Vec2 from, Vec2 to, Colour colour);
/// A line through all points and back to the first.
void addOutline(Strokes& strokes, std::vector<Vec2> corners, Colour colour);
/// With its sides along the picture's, from the one corner to the opposite one.
void addRectangle(Strokes& strokes, Pixel a, Pixel b, Colour colour);
/// The world's axes as the camera sees their directions, in the picture's lower left corner.
void addAxes(Strokes& strokes, const CameraView& view);

} // namespace qel::host
