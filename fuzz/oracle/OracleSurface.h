// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "fuzz/oracle/OracleNumbers.h"

namespace camera::oracle {

struct Surface {
    std::array<Real, 6> viewport{}; ///< x, y, width, height, depth minimum, depth maximum
    Matrix4 matrix{};
    Matrix4 inverse{};
    std::uint32_t resolutionX = 0;
    std::uint32_t resolutionY = 0;

    friend bool operator==(const Surface&, const Surface&) = default;

    static Surface createDefault() {
        Surface surface;
        surface.update({0.0L, 0.0L, 1.0L, 1.0L, 0.0L, 1.0L}, 640, 480);
        return surface;
    }

    void update(const std::array<Real, 6>& newViewport, std::uint32_t x, std::uint32_t y) {
        const auto& v = newViewport;
        if (v[0] < 0.0L || v[0] > 1.0L || v[1] < 0.0L || v[1] > 1.0L || v[2] <= tolerance || v[3] <= tolerance ||
            x == 0 || y == 0) {
            return;
        }
        viewport = newViewport;
        resolutionX = x;
        resolutionY = y;
        rebuild();
    }

    /// A length of 0 stays as it was. A viewport that was set alone comes into force here.
    void resize(std::uint32_t x, std::uint32_t y) {
        if (x == 0 && y == 0) {
            return;
        }
        resolutionX = x != 0 ? x : resolutionX;
        resolutionY = y != 0 ? y : resolutionY;
        rebuild();
    }

    /// The matrices do not follow.
    void setViewport(const std::array<Real, 6>& newViewport) { viewport = newViewport; }

private:
    void rebuild() {
        const Real rx = resolutionX, ry = resolutionY;
        const auto [vx, vy, w, h, low, high] = viewport;
        matrix = {{{w * rx / 2.0L, 0.0L, 0.0L, vx * rx + w * rx / 2.0L},
                   {0.0L, h * ry / 2.0L, 0.0L, vy * ry + h * ry / 2.0L},
                   {0.0L, 0.0L, (high - low) / 2.0L, (low + high) / 2.0L},
                   {0.0L, 0.0L, 0.0L, 1.0L}}};
        inverse = {{{2.0L / (rx * w), 0.0L, 0.0L, -(2.0L * vx / w + 1.0L)},
                    {0.0L, 2.0L / (ry * h), 0.0L, -(2.0L * vy / h + 1.0L)},
                    {0.0L, 0.0L, 2.0L / (high - low), -(low + high) / (high - low)},
                    {0.0L, 0.0L, 0.0L, 1.0L}}};
    }
};

} // namespace camera::oracle
