// SPDX-License-Identifier: Apache-2.0
#include "host/render/FrameBuffer.h"

#include <algorithm>
#include <string>

#include "host/render/OffscreenContext.h"

namespace qel::host {
namespace {

constexpr GLint wantedSamples = 8;

void store(GLuint name, GLenum attachment, GLenum format, GLint samples, int width, int height) {
    glBindRenderbuffer(GL_RENDERBUFFER, name);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, width, height);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, name);
}

} // namespace

FrameBuffer::FrameBuffer(int width, int height) : mWidth(width), mHeight(height) {
    GLint mostSamples = 0;
    glGetIntegerv(GL_MAX_SAMPLES, &mostSamples);
    const std::array<GLint, 2> samples{std::min(wantedSamples, mostSamples), 0};

    glGenFramebuffers(2, mBuffers.data());
    glGenRenderbuffers(4, mStores.data());
    for (std::size_t i = 0; i < 2; ++i) {
        glBindFramebuffer(GL_FRAMEBUFFER, mBuffers[i]);
        store(mStores[i * 2], GL_COLOR_ATTACHMENT0, GL_SRGB8_ALPHA8, samples[i], width, height);
        store(mStores[i * 2 + 1], GL_DEPTH_ATTACHMENT, GL_DEPTH_COMPONENT32F, samples[i], width, height);
        if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
            throw GraphicsError("the OpenGL driver cannot draw pictures of " + std::to_string(width) + "x" +
                                std::to_string(height));
        }
    }
}

FrameBuffer::~FrameBuffer() {
    glDeleteFramebuffers(2, mBuffers.data());
    glDeleteRenderbuffers(4, mStores.data());
}

void FrameBuffer::bind() const { glBindFramebuffer(GL_FRAMEBUFFER, mBuffers[0]); }

void FrameBuffer::resolve(GLbitfield what) const {
    glBindFramebuffer(GL_READ_FRAMEBUFFER, mBuffers[0]);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, mBuffers[1]);
    glBlitFramebuffer(0, 0, mWidth, mHeight, 0, 0, mWidth, mHeight, what, GL_NEAREST);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, mBuffers[1]);
}

Picture FrameBuffer::readPicture() const {
    resolve(GL_COLOR_BUFFER_BIT);
    Picture picture{mWidth, mHeight, {}};
    const auto rowSize = static_cast<std::size_t>(mWidth) * 4;
    const auto rows = static_cast<std::size_t>(mHeight);
    picture.bytes.resize(rowSize * rows);
    glReadPixels(0, 0, mWidth, mHeight, GL_RGBA, GL_UNSIGNED_BYTE, picture.bytes.data());
    // OpenGL's first row is the lowest.
    const auto row = [&](std::size_t index) {
        return picture.bytes.begin() + static_cast<std::ptrdiff_t>(index * rowSize);
    };
    for (std::size_t low = 0; low < rows / 2; ++low) {
        std::swap_ranges(row(low), row(low + 1), row(rows - 1 - low));
    }
    return picture;
}

void FrameBuffer::show() const {
    resolve(GL_COLOR_BUFFER_BIT);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
    glDisable(GL_FRAMEBUFFER_SRGB); // the bytes as they are: they are in sRGB, which a window expects
    glBlitFramebuffer(0, 0, mWidth, mHeight, 0, 0, mWidth, mHeight, GL_COLOR_BUFFER_BIT, GL_NEAREST);
}

DepthImage FrameBuffer::readDepth() const {
    resolve(GL_DEPTH_BUFFER_BIT);
    DepthImage image{mWidth, mHeight, {}};
    image.depths.resize(static_cast<std::size_t>(mWidth) * static_cast<std::size_t>(mHeight));
    glReadPixels(0, 0, mWidth, mHeight, GL_DEPTH_COMPONENT, GL_FLOAT, image.depths.data());
    return image;
}

float FrameBuffer::readDepth(Pixel pixel) const {
    float depth = 1.0F;
    if (pixel.x >= 0 && pixel.x < mWidth && pixel.y >= 0 && pixel.y < mHeight) {
        resolve(GL_DEPTH_BUFFER_BIT);
        glReadPixels(pixel.x, pixel.y, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
    }
    return depth;
}

} // namespace qel::host
