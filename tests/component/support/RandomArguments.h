// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include <qel/api/camera/Operations.h>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

/// Arguments of any kind for any operation: ordinary, at the borders of what is allowed, not finite, too short, too
/// long; states as they are, altered, cut off, or no states at all. The same seed gives the same arguments.
class RandomArguments {
public:
    RandomArguments(const std::uint64_t seed, const Samples& states) : mRandom(seed), mStates(states) {}

    /// The states that are handed out; to be replaced by those that operations give.
    Samples& states() { return mStates; }

    std::size_t below(const std::size_t bound) { return static_cast<std::size_t>(mRandom() % bound); }
    bool oneIn(const std::size_t count) { return below(count) == 0; }

    template <class Result, class... Arguments>
    auto argumentsOf(const Operation<Result, Arguments...>&) {
        // Braces, for an order of evaluation that every compiler shares.
        return std::tuple<std::remove_cvref_t<Arguments>...>{argument<std::remove_cvref_t<Arguments>>()...};
    }

private:
    template <class Argument>
    Argument argument() {
        if constexpr (std::is_same_v<Argument, double>) {
            return number();
        } else if constexpr (std::is_same_v<Argument, std::int32_t>) {
            return integer();
        } else if constexpr (std::is_same_v<Argument, ProjectionType::type>) {
            return static_cast<ProjectionType::type>(oneIn(4) ? integer() : static_cast<std::int32_t>(below(2)));
        } else if constexpr (std::is_same_v<Argument, Vector>) {
            Vector vector;
            vector.mData = numbers(oneIn(30) ? below(6) : 3);
            return vector;
        } else if constexpr (std::is_same_v<Argument, Quaternion>) {
            Quaternion quaternion;
            quaternion.mData = numbers(oneIn(30) ? below(7) : 4);
            return quaternion;
        } else if constexpr (std::is_same_v<Argument, Matrix>) {
            Matrix matrix;
            matrix.mData.resize(oneIn(10) ? below(6) : 4);
            const bool odd = oneIn(10);
            for (std::vector<double>& row : matrix.mData) {
                row = numbers(odd ? below(6) : 4);
            }
            return matrix;
        } else if constexpr (std::is_same_v<Argument, Frustum>) {
            return frustum();
        } else if constexpr (std::is_same_v<Argument, Viewport>) {
            return viewport();
        } else {
            return altered(mStates.argument<Argument>(""));
        }
    }

    double fraction() { return static_cast<double>(mRandom() >> 11) * 0x1p-53; }

    double number() {
        static constexpr double infinity = std::numeric_limits<double>::infinity();
        static constexpr std::array special{
            0.0,
            -0.0,
            1.0,
            -1.0,
            0.5,
            1e-7,
            -1e-7,
            1.0000001e-7,
            1e-4,
            1e-8,
            0.001,
            0.9,
            1e16,
            1e150,
            1e300,
            -1e300,
            3.14159265358979323846,
            1.5707963267948966,
            3.4028234663852886e38,
            2147483647.0,
            2147483648.0,
            4294967295.0,
            -2147483649.0,
            infinity,
            -infinity,
            std::numeric_limits<double>::quiet_NaN(),
            std::numeric_limits<double>::max(),
            std::numeric_limits<double>::min(),
            std::numeric_limits<double>::denorm_min(),
            std::numeric_limits<double>::lowest(),
        };
        switch (below(8)) {
        case 0: return special[below(special.size())];
        case 1: return static_cast<double>(static_cast<std::int64_t>(below(41)) - 20);
        case 2: return fraction();
        case 3: return std::bit_cast<double>(mRandom()); // any double there is
        default: return (fraction() - 0.5) * 20.0;
        }
    }

    std::int32_t integer() {
        static constexpr std::array<std::int32_t, 8> special{
            0,   1,    -1, 2, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min(),
            640, 65536};
        return oneIn(5) ? special[below(special.size())] : static_cast<std::int32_t>(below(2000)) - 200;
    }

    std::vector<double> numbers(const std::size_t count) {
        std::vector<double> values(count);
        for (double& value : values) {
            value = number();
        }
        return values;
    }

    Frustum frustum() {
        const std::vector<double> n = numbers(6);
        if (oneIn(2)) {
            return frustumOf(n[0], n[1], n[2], n[3], n[4], n[5]);
        }
        return frustumOf(-1.0 - fraction(), fraction(), -fraction(), 1.0 + fraction(), 0.01 + fraction(), n[5]);
    }

    Viewport viewport() {
        const std::vector<double> n = numbers(6);
        return viewportOf(n[0], n[1], n[2], n[3], n[4], n[5]);
    }

    template <class State>
    State altered(State state) {
        std::string& image = state.mPrivate;
        if (oneIn(4)) {
            for (std::size_t i = 1 + below(4); i > 0; --i) { // some numbers replaced
                putDouble(image, 8 * below(image.size() / 8), number());
            }
        }
        if (oneIn(10)) {
            image[below(image.size())] = static_cast<char>(mRandom()); // one byte
        }
        if (oneIn(40)) {
            for (char& byte : image) { // nothing but noise
                byte = static_cast<char>(mRandom());
            }
        }
        if (oneIn(30)) {
            image.resize(below(image.size()));
        } else if (oneIn(30)) {
            image.append(1 + below(50), 'x');
        }
        return state;
    }

    std::mt19937_64 mRandom;
    Samples mStates;
};

} // namespace qel::api::camera::test
