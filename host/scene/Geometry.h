// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace qel::host {

/// A point or a vector of the world.
using Vec3 = std::array<double, 3>;

/// A position in a picture, in pixels from its lower left corner, as the camera counts them.
struct Vec2 {
    double x = 0.0;
    double y = 0.0;
};

/// A pixel of a picture or a window, (0, 0) the lower left one. It may lie outside.
struct Pixel {
    std::int32_t x = 0;
    std::int32_t y = 0;
    friend bool operator==(const Pixel&, const Pixel&) = default;
};

inline Vec3 operator+(const Vec3& a, const Vec3& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }
inline Vec3 operator-(const Vec3& a, const Vec3& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }
inline Vec3 operator*(const Vec3& a, double factor) { return {a[0] * factor, a[1] * factor, a[2] * factor}; }
inline double length(const Vec3& a) { return std::hypot(a[0], a[1], a[2]); }

/// An axis-aligned box of the world, its corners in order.
struct Box {
    Vec3 minimum{};
    Vec3 maximum{};

    [[nodiscard]] Vec3 centre() const { return (minimum + maximum) * 0.5; }
    [[nodiscard]] Vec3 size() const { return maximum - minimum; }
    /// Of the sphere around the box: half its diagonal.
    [[nodiscard]] double radius() const { return length(size()) * 0.5; }
    /// The box with each side moved outwards by this length.
    [[nodiscard]] Box grown(double margin) const {
        const Vec3 offset{margin, margin, margin};
        return {minimum - offset, maximum + offset};
    }
    /// Corner 0 to 7: bit 0, 1, 2 of the index choose the maximum in x, y, z.
    [[nodiscard]] Vec3 corner(std::size_t index) const {
        return {((index & 1U) != 0 ? maximum : minimum)[0], ((index & 2U) != 0 ? maximum : minimum)[1],
                ((index & 4U) != 0 ? maximum : minimum)[2]};
    }
};

} // namespace qel::host
