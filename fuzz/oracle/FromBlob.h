// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "fuzz/oracle/OracleCamera.h"

namespace camera::oracle {

/// The numbers of an image, at the places that its layout gives them: of a camera, or of one of its parts, which
/// begin where a caller says.
class Image {
public:
    explicit Image(const std::string& bytes) : mBytes(bytes) {}

    [[nodiscard]] Camera camera() const {
        return {view(viewInCamera), projection(projectionInCamera), surface(surfaceInCamera)};
    }

    [[nodiscard]] View view(std::size_t start = 0) const {
        View view;
        view.toWorld = matrix(start + 8);
        view.toWorldKind = static_cast<Kind>(integer(start + 136));
        view.toView = matrix(start + 144);
        view.toViewKind = static_cast<Kind>(integer(start + 272));
        for (std::size_t k = 0; k < 3; ++k) {
            for (std::size_t r = 0; r < 3; ++r) {
                view.rotation[r][k] = real(start + 280 + 8 * (3 * k + r));
            }
        }
        view.eye = {real(start + 360), real(start + 368), real(start + 376)};
        return view;
    }

    [[nodiscard]] Projection projection(std::size_t start = 0) const {
        Projection p;
        p.matrix = matrix(start + 8);
        p.inverse = matrix(start + 144);
        p.orthographic = integer(start + 280) == 1;
        p.l = real(start + 288), p.r = real(start + 296), p.b = real(start + 304), p.t = real(start + 312);
        p.n = real(start + 320), p.f = real(start + 328);
        return p;
    }

    [[nodiscard]] Surface surface(std::size_t start = 0) const {
        Surface s;
        for (std::size_t i = 0; i < 6; ++i) {
            s.viewport[i] = real(start + 8 + 8 * i);
        }
        s.matrix = matrix(start + 56);
        s.inverse = matrix(start + 192);
        s.resolutionX = integer(start + 328);
        s.resolutionY = integer(start + 332);
        return s;
    }

    // Where the parts begin in the image of a camera, and how long they are.
    static constexpr std::size_t viewInCamera = 24;
    static constexpr std::size_t projectionInCamera = 408;
    static constexpr std::size_t surfaceInCamera = 744;
    static constexpr std::size_t viewSize = 384;
    static constexpr std::size_t projectionSize = 336;
    static constexpr std::size_t surfaceSize = 336;
    static constexpr std::size_t cameraSize = 1080;

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
