// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>

#include <epoxy/gl.h>

#include "host/render/Picture.h"
#include "host/scene/Geometry.h"

namespace qel::host {

/// The depths of a picture's pixels as the viewport maps them (0 near to 1 far by default), its bottom row first,
/// as the camera counts rows.
struct DepthImage {
    int width = 0;
    int height = 0;
    std::vector<float> depths;

    [[nodiscard]] float at(int x, int y) const {
        return depths[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }
};

/// Where OpenGL draws: several samples a pixel, averaged in linear light when the picture is read.
class FrameBuffer {
public:
    FrameBuffer(int width, int height);
    ~FrameBuffer();

    FrameBuffer(const FrameBuffer&) = delete;
    FrameBuffer& operator=(const FrameBuffer&) = delete;

    [[nodiscard]] int width() const { return mWidth; }
    [[nodiscard]] int height() const { return mHeight; }

    void bind() const;
    [[nodiscard]] Picture readPicture() const;
    /// Puts the picture into the window whose context is current.
    void show() const;
    [[nodiscard]] DepthImage readDepth() const;
    /// Of one pixel; 1 for a pixel outside.
    [[nodiscard]] float readDepth(Pixel pixel) const;

private:
    void resolve(GLbitfield what) const;

    int mWidth;
    int mHeight;
    // First what is drawn into, then what is read from, colour and depth each.
    std::array<GLuint, 2> mBuffers{};
    std::array<GLuint, 4> mStores{};
};

} // namespace qel::host
