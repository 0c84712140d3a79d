// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qel::api::camera::test {

/// splitmix64, the same on every machine.
class Draw {
public:
    std::size_t below(std::size_t bound) {
        mState += 0x9E3779B97F4A7C15U;
        std::uint64_t z = mState;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        z ^= z >> 31U;
        return static_cast<std::size_t>(z % bound);
    }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    double between(double low, double high) {
        return low + (high - low) * (static_cast<double>(below(std::size_t{1} << 30U)) * 0x1p-30);
    }

private:
    std::uint64_t mState = 20;
};

/// What the numbers of a call have to fit to.
struct Scene {
    double nearDist = 0.0; ///< of the state, or drawn before for the same call
    std::uint32_t resolutionX = 0;
    std::uint32_t resolutionY = 0;
};

/// A number that makes sense as the argument of this name; `fractions` tells a viewport's width from a scene's.
inline double ordinaryNumber(Draw& draw, Scene& scene, const std::string_view name, const bool fractions) {
    struct Range {
        std::string_view name;
        double low;
        double high;
    };
    constexpr std::array ranges{
        Range{"radius", 0.25, 3.0},     Range{"minimumNearDist", 0.01, 0.5},
        Range{"factor", 0.25, 2.0},     Range{"aspectRatio", 0.25, 4.0},
        Range{"verticalFoV", 0.1, 2.8}, Range{"horizontalFoV", 0.1, 2.8},
        Range{"depthMin", 0.0, 0.25},   Range{"depthMax", 0.75, 1.0},
        Range{"x", 0.0, 0.5},           Range{"y", 0.0, 0.5},
        Range{"angle", -3.0, 3.0},      Range{"tilt", -3.0, 3.0},
        Range{"yaw", -3.0, 3.0},        Range{"pitch", -3.0, 3.0},
        Range{"roll", -3.0, 3.0},       Range{"x1", -4.0, 4.0},
        Range{"y1", -4.0, 4.0},         Range{"z1", -4.0, 4.0},
        Range{"x2", -4.0, 4.0},         Range{"y2", -4.0, 4.0},
        Range{"z2", -4.0, 4.0},         Range{"xMin", -4.0, 0.0},
        Range{"yMin", -4.0, 0.0},       Range{"zMin", -12.0, -5.0},
        Range{"xMax", 0.0, 4.0},        Range{"yMax", 0.0, 4.0},
        Range{"zMax", -5.0, -1.0},
    };
    for (const Range& range : ranges) {
        if (range.name == name) {
            return draw.between(range.low, range.high);
        }
    }
    if (name == "nearDist") {
        return scene.nearDist = draw.between(0.0625, 2.0);
    }
    if (name == "farDist") {
        return scene.nearDist + draw.between(0.5, 100.0);
    }
    if (name == "width" || name == "height") {
        return fractions ? draw.between(0.125, 1.0) : draw.between(0.5, 8.0);
    }
    if (name == "depth" || name == "depth1" || name == "depth2") {
        return draw.oneIn(8) ? 1.0 : draw.between(0.0, 1.0); // 1 is what a depth buffer holds where nothing is seen
    }
    throw std::logic_error("nobody says what the number " + std::string(name) + " means");
}

inline std::int32_t ordinaryInteger(Draw& draw, const Scene& scene, const std::string_view name) {
    const auto pixelOf = [&](const std::uint32_t resolution) {
        return static_cast<std::int32_t>(draw.below(resolution - 1U < 4096U ? resolution : 4096U));
    };
    if (name == "x" || name == "x1" || name == "x2") {
        return pixelOf(scene.resolutionX);
    }
    if (name == "y" || name == "y1" || name == "y2") {
        return pixelOf(scene.resolutionY);
    }
    if (name == "dx" || name == "dy") {
        return static_cast<std::int32_t>(draw.below(201)) - 100;
    }
    if (name == "width" || name == "height" || name == "resolutionX" || name == "resolutionY") {
        return static_cast<std::int32_t>(draw.below(1800)) + 200;
    }
    throw std::logic_error("nobody says what the integer " + std::string(name) + " means");
}

/// Refused by many operations, taken over by the others.
inline double hostileNumber(Draw& draw) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr std::array numbers{0.0,   -0.0,   1.0,  -1.0,     1e-8,      1e16,
                                 1e300, 5e-324, 1e-4, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()};
    return draw.oneIn(2) ? draw.between(-4.0, 4.0) : numbers[draw.below(numbers.size())];
}

inline std::int32_t hostileInteger(Draw& draw) {
    constexpr std::array<std::int32_t, 6> integers{
        0, 1, -1, 65536, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()};
    return draw.oneIn(2) ? static_cast<std::int32_t>(draw.below(1600)) - 800 : integers[draw.below(integers.size())];
}

} // namespace qel::api::camera::test
