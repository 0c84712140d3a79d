// SPDX-License-Identifier: Apache-2.0
#include "host/render/Stroke.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <numbers>
#include <utility>

namespace qel::host {
namespace {

constexpr Colour axisColour{86, 98, 124};

std::vector<Vec2> circle(Vec2 centre, double radius) {
    constexpr int parts = 48;
    std::vector<Vec2> points;
    for (int i = 0; i <= parts; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / parts;
        points.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return points;
}

/// The letter x, y or z around a place, as lines between the corners of a unit square.
void addLetter(Strokes& strokes, std::size_t axis, Vec2 place) {
    using Line = std::vector<Vec2>;
    static const std::array<std::vector<Line>, 3> letters{{
        {{{-0.8, -1}, {0.8, 1}}, {{-0.8, 1}, {0.8, -1}}},
        {{{-0.8, 1}, {0, 0}, {0.8, 1}}, {{0, 0}, {0, -1}}},
        {{{-0.8, 1}, {0.8, 1}, {-0.8, -1}, {0.8, -1}}},
    }};
    constexpr double size = 4.0;
    for (Line line : letters[axis]) {
        for (Vec2& point : line) {
            point = {place.x + point.x * size, place.y + point.y * size};
        }
        strokes.push_back({std::move(line), axisColour, 1.4F});
    }
}

} // namespace

void addCrossHair(Strokes& strokes, Vec2 position, Colour colour) {
    constexpr double inner = 5.0;
    constexpr double outer = 19.0;
    for (const Vec2 direction : std::initializer_list<Vec2>{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
        strokes.push_back({{{position.x + direction.x * inner, position.y + direction.y * inner},
                            {position.x + direction.x * outer, position.y + direction.y * outer}},
                           colour,
                           2.2F});
    }
    addCircle(strokes, position, 11.0, colour, 2.2F);
}

void addDisc(Strokes& strokes, Vec2 position, double radius, Colour colour) {
    addCircle(strokes, position, radius / 2.0, colour, static_cast<float>(radius));
}

void addCircle(Strokes& strokes, Vec2 position, double radius, Colour colour, float width) {
    strokes.push_back({circle(position, radius), colour, width});
}

void addArrow(Strokes& strokes, Vec2 from, Vec2 to, Colour colour) {
    const double size = std::hypot(to.x - from.x, to.y - from.y);
    if (!(size > 0.0)) {
        return;
    }
    const Vec2 along{(to.x - from.x) / size, (to.y - from.y) / size};
    const double head = std::min(10.0, size / 2.0);
    const auto barb = [&](double side) {
        return Vec2{to.x - head * (along.x - side * along.y * 0.6), to.y - head * (along.y + side * along.x * 0.6)};
    };
    strokes.push_back({{from, to}, colour, 2.2F});
    strokes.push_back({{barb(1.0), to, barb(-1.0)}, colour, 2.2F});
}

void addOutline(Strokes& strokes, std::vector<Vec2> corners, Colour colour) {
    if (!corners.empty()) {
        corners.push_back(corners.front());
        strokes.push_back({std::move(corners), colour, 2.2F});
    }
}

void addRectangle(Strokes& strokes, Pixel a, Pixel b, Colour colour) {
    const auto corner = [](std::int32_t x, std::int32_t y) {
        return Vec2{static_cast<double>(x), static_cast<double>(y)};
    };
    addOutline(strokes, {corner(a.x, a.y), corner(b.x, a.y), corner(b.x, b.y), corner(a.x, b.y)}, colour);
}

void addAxes(Strokes& strokes, const CameraView& view) {
    constexpr Vec2 origin{46.0, 46.0};
    constexpr double size = 26.0;
    // An axis that points at the eye or away from it is a dot without room for its letter.
    constexpr double shortest = 0.12;
    std::array<std::size_t, 3> order{0, 1, 2};
    const Vec3 backwards = view.axis(2);
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return backwards[a] < backwards[b]; });
    for (const std::size_t axis : order) {
        const Vec2 direction{view.axis(0)[axis], view.axis(1)[axis]};
        const double shown = std::hypot(direction.x, direction.y);
        const Vec2 tip{origin.x + direction.x * size, origin.y + direction.y * size};
        if (shown < shortest) {
            continue;
        }
        strokes.push_back({{origin, tip}, axisColour, 1.8F});
        const double reach = size * shown + 8.0;
        addLetter(strokes, axis, {origin.x + direction.x / shown * reach, origin.y + direction.y / shown * reach});
    }
}

} // namespace qel::host
