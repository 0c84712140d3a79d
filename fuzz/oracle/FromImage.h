// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "Camera.h"

namespace camera::oracle {

/// The numbers of a camera's image, at the places that its layout gives them.
class Image {
public:
    explicit Image(const std::string& bytes) : mBytes(bytes) {}

    [[nodiscard]] Camera camera() const {
        Camera camera;
        camera.view.toWorld = matrix(24 + 8);
        camera.view.toView = matrix(24 + 144);
        for (std::size_t k = 0; k < 3; ++k) {
            for (std::size_t r = 0; r < 3; ++r) {
                camera.view.rotation[r][k] = real(24 + 280 + 8 * (3 * k + r));
            }
        }
        camera.view.eye = {real(24 + 360), real(24 + 368), real(24 + 376)};

        Projection& p = camera.projection;
        p.matrix = matrix(408 + 8);
        p.inverse = matrix(408 + 144);
        p.orthographic = integer(408 + 280) == 1;
        p.l = real(408 + 288), p.r = real(408 + 296), p.b = real(408 + 304), p.t = real(408 + 312);
        p.n = real(408 + 320), p.f = real(408 + 328);

        Surface& s = camera.surface;
        for (std::size_t i = 0; i < 6; ++i) {
            s.viewport[i] = real(744 + 8 + 8 * i);
        }
        s.matrix = matrix(744 + 56);
        s.inverse = matrix(744 + 192);
        s.resolutionX = integer(744 + 328);
        s.resolutionY = integer(744 + 332);
        return camera;
    }

private:
    template <class Bits>
    [[nodiscard]] Bits bits(std::size_t offset) const {
        Bits value = 0;
        if constexpr (std::endian::native == std::endian::little) {
            std::memcpy(&value, mBytes.data() + offset, sizeof value);
        } else {
            for (std::size_t i = 0; i < sizeof value; ++i) {
                value |= static_cast<Bits>(Bits{static_cast<std::uint8_t>(mBytes[offset + i])} << (8U * i));
            }
        }
        return value;
    }
    [[nodiscard]] Real real(std::size_t offset) const { return std::bit_cast<double>(bits<std::uint64_t>(offset)); }
    [[nodiscard]] std::uint32_t integer(std::size_t offset) const { return bits<std::uint32_t>(offset); }
    [[nodiscard]] Matrix4 matrix(std::size_t offset) const {
        Matrix4 m{};
        for (std::size_t k = 0; k < 4; ++k) {
            for (std::size_t r = 0; r < 4; ++r) {
                m[r][k] = real(offset + 8 * (4 * k + r));
            }
        }
        return m;
    }

    const std::string& mBytes;
};

} // namespace camera::oracle
