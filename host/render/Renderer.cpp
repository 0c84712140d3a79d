// SPDX-License-Identifier: Apache-2.0
#include "host/render/Renderer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "host/render/OffscreenContext.h"
#include "host/render/Shaders.h"

namespace qel::host {
namespace {

constexpr Colour backgroundLower{203, 213, 226};
constexpr Colour backgroundUpper{244, 247, 251};
constexpr Colour modelColour{205, 124, 84};
constexpr Colour boxColour{74, 92, 130};
constexpr float boxWidth = 1.3F;
constexpr Colour rimColour{250, 252, 255};
constexpr float rimWidth = 2.6F;

using Linear = std::array<float, 3>;

Linear linear(Colour colour) {
    const auto part = [](float value) {
        const float s = value / 255.0F;
        return s <= 0.04045F ? s / 12.92F : std::pow((s + 0.055F) / 1.055F, 2.4F);
    };
    return {part(colour.red), part(colour.green), part(colour.blue)};
}

void setMatrix(GLint uniform, const Rows& rows) {
    std::array<float, 16> values{};
    for (std::size_t i = 0; i < 16; ++i) {
        values[i] = static_cast<float>(rows[i / 4][i % 4]);
    }
    glUniformMatrix4fv(uniform, 1, GL_TRUE, values.data());
}

/// Clip coordinates mean the same whatever they are all multiplied by, so the largest number of the matrix is made 1:
/// models of any size then stay within single precision.
Rows balanced(Rows rows) {
    double largest = 0.0;
    for (const auto& row : rows) {
        for (const double value : row) {
            largest = std::max(largest, std::abs(value));
        }
    }
    if (largest > 0.0 && std::isfinite(largest)) {
        for (auto& row : rows) {
            for (double& value : row) {
                value /= largest;
            }
        }
    }
    return rows;
}

template <class Element>
GLuint makeBuffer(GLenum kind, const std::vector<Element>& elements) {
    GLuint name = 0;
    glGenBuffers(1, &name);
    glBindBuffer(kind, name);
    glBufferData(kind, static_cast<GLsizeiptr>(elements.size() * sizeof(Element)), elements.data(), GL_STATIC_DRAW);
    return name;
}

GLuint makeArray() {
    GLuint name = 0;
    glGenVertexArrays(1, &name);
    glBindVertexArray(name);
    return name;
}

void describe(GLuint location, GLint count) {
    glEnableVertexAttribArray(location);
    glVertexAttribPointer(location, count, GL_FLOAT, GL_FALSE, 0, nullptr);
}

std::array<float, 3> toFloats(const Vec3& v) {
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}

void requireSuccess() {
    if (const GLenum error = glGetError(); error != GL_NO_ERROR) {
        throw GraphicsError("OpenGL failed to draw, with error " + std::to_string(error));
    }
}

} // namespace

// On the graphics side the model is moved to the origin and made of unit size, in double precision, so that a model
// far from the origin loses nothing.
Renderer::Renderer(const Mesh& mesh)
    : mBackgroundProgram(shaders::backgroundVertex, nullptr, shaders::backgroundFragment),
      mMeshProgram(shaders::meshVertex, nullptr, shaders::meshFragment),
      mLineProgram(shaders::lineVertex, shaders::lineGeometry, shaders::lineFragment),
      mIndexCount(static_cast<GLsizei>(mesh.triangles.size())),
      mCentre(mesh.box.centre()),
      mRadius(mesh.box.radius()) {
    const auto toModel = [&](const Vec3& point) { return toFloats((point - mCentre) * (1.0 / mRadius)); };

    mEmptyArray = makeArray();
    mMeshArray = makeArray();
    std::vector<std::array<float, 3>> positions(mesh.positions.size());
    std::transform(mesh.positions.begin(), mesh.positions.end(), positions.begin(), toModel);
    makeBuffer(GL_ARRAY_BUFFER, positions);
    describe(0, 3);
    makeBuffer(GL_ARRAY_BUFFER, mesh.normals);
    describe(1, 3);
    makeBuffer(GL_ELEMENT_ARRAY_BUFFER, mesh.triangles);

    mBoxArray = makeArray();
    std::vector<std::array<float, 3>> edges;
    for (std::size_t corner = 0; corner < 8; ++corner) {
        for (const std::size_t axis : {1U, 2U, 4U}) {
            if ((corner & axis) == 0) {
                edges.push_back(toModel(mesh.box.corner(corner)));
                edges.push_back(toModel(mesh.box.corner(corner | axis)));
            }
        }
    }
    makeBuffer(GL_ARRAY_BUFFER, edges);
    describe(0, 3);

    mStrokeArray = makeArray();
    mStrokeBuffer = makeBuffer(GL_ARRAY_BUFFER, std::vector<float>{});
    describe(0, 2);
}

Rows Renderer::worldFromModel() const {
    return {{{mRadius, 0, 0, mCentre[0]}, {0, mRadius, 0, mCentre[1]}, {0, 0, mRadius, mCentre[2]}, {0, 0, 0, 1}}};
}

Picture Renderer::draw(const api::camera::PlanarCameraState& camera, const Strokes& strokes) {
    drawAll(CameraView(camera), strokes);
    Picture picture = mFrameBuffer->readPicture();
    requireSuccess();
    return picture;
}

void Renderer::show(const api::camera::PlanarCameraState& camera, const Strokes& strokes) {
    drawAll(CameraView(camera), strokes);
    mFrameBuffer->show();
    requireSuccess();
}

DepthImage Renderer::drawDepth(const api::camera::PlanarCameraState& camera) {
    const CameraView view(camera);
    begin(view);
    drawMesh(view);
    return mFrameBuffer->readDepth();
}

float Renderer::drawDepth(const api::camera::PlanarCameraState& camera, Pixel pixel) {
    const CameraView view(camera);
    begin(view);
    drawMesh(view);
    return mFrameBuffer->readDepth(pixel);
}

void Renderer::drawAll(const CameraView& view, const Strokes& strokes) {
    begin(view);
    drawBackground();
    drawMesh(view);
    drawBox(view);
    drawStrokes(view, strokes);
}

void Renderer::begin(const CameraView& view) {
    if (!mFrameBuffer || mFrameBuffer->width() != view.width || mFrameBuffer->height() != view.height) {
        mFrameBuffer.emplace(view.width, view.height);
    }
    mFrameBuffer->bind();
    glViewport(0, 0, view.width, view.height);
    glDepthRange(0.0, 1.0);
    glEnable(GL_FRAMEBUFFER_SRGB);
    glEnable(GL_MULTISAMPLE);
    glDisable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_TRUE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void Renderer::drawBackground() const {
    glDisable(GL_DEPTH_TEST);
    mBackgroundProgram.use();
    glUniform3fv(mBackgroundProgram.uniform("lower"), 1, linear(backgroundLower).data());
    glUniform3fv(mBackgroundProgram.uniform("upper"), 1, linear(backgroundUpper).data());
    glBindVertexArray(mEmptyArray);
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void Renderer::drawMesh(const CameraView& view) const {
    const auto pixels = [](double fraction, int resolution) {
        return static_cast<GLint>(std::lround(fraction * resolution));
    };
    glViewport(pixels(view.viewport.mX, view.width), pixels(view.viewport.mY, view.height),
               pixels(view.viewport.mWidth, view.width), pixels(view.viewport.mHeight, view.height));
    glDepthRange(view.viewport.mDepthMin, view.viewport.mDepthMax);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    const Rows viewFromModel = view.viewFromWorld * worldFromModel();
    mMeshProgram.use();
    setMatrix(mMeshProgram.uniform("clipFromModel"), balanced(view.clipFromView * viewFromModel));
    setMatrix(mMeshProgram.uniform("viewFromModel"), balanced(viewFromModel));
    glUniform3fv(mMeshProgram.uniform("surface"), 1, linear(modelColour).data());
    glUniform1i(mMeshProgram.uniform("orthographic"), view.orthographic ? 1 : 0);
    glBindVertexArray(mMeshArray);
    glDrawElements(GL_TRIANGLES, mIndexCount, GL_UNSIGNED_INT, nullptr);
}

void Renderer::drawBox(const CameraView& view) const {
    glEnable(GL_BLEND);
    glDepthMask(GL_FALSE);
    mLineProgram.use();
    setMatrix(mLineProgram.uniform("clipFromPoint"),
              balanced(view.clipFromView * view.viewFromWorld * worldFromModel()));
    glUniform2f(mLineProgram.uniform("picture"), static_cast<float>(view.width * view.viewport.mWidth),
                static_cast<float>(view.height * view.viewport.mHeight));
    glUniform1f(mLineProgram.uniform("width"), boxWidth);
    // Sides of the model that lie in the box's faces do not hide its edges.
    glUniform1f(mLineProgram.uniform("bias"), 2e-4F);
    glBindVertexArray(mBoxArray);
    const Linear colour = linear(boxColour);
    for (const auto& [test, opacity] : {std::pair<GLenum, float>{GL_GREATER, 0.22F}, {GL_LEQUAL, 0.9F}}) {
        glDepthFunc(test);
        glUniform4f(mLineProgram.uniform("line"), colour[0], colour[1], colour[2], opacity);
        glDrawArrays(GL_LINES, 0, 24);
    }
}

void Renderer::drawStrokes(const CameraView& view, Strokes strokes) const {
    addAxes(strokes, view);
    glViewport(0, 0, view.width, view.height);
    glDisable(GL_DEPTH_TEST);
    mLineProgram.use();
    setMatrix(mLineProgram.uniform("clipFromPoint"),
              {{{2.0 / view.width, 0, 0, -1}, {0, 2.0 / view.height, 0, -1}, {0, 0, 0, 0}, {0, 0, 0, 1}}});
    glUniform2f(mLineProgram.uniform("picture"), static_cast<float>(view.width), static_cast<float>(view.height));
    glUniform1f(mLineProgram.uniform("bias"), 0.0F);
    glBindVertexArray(mStrokeArray);
    drawStrokes(strokes, true);
    drawStrokes(strokes, false);
}

void Renderer::drawStrokes(const Strokes& strokes, bool rim) const {
    for (const Stroke& stroke : strokes) {
        std::vector<float> points;
        for (const Vec2& point : stroke.points) {
            points.push_back(static_cast<float>(point.x));
            points.push_back(static_cast<float>(point.y));
        }
        const Linear colour = linear(rim ? rimColour : stroke.colour);
        glUniform4f(mLineProgram.uniform("line"), colour[0], colour[1], colour[2], 1.0F);
        glUniform1f(mLineProgram.uniform("width"), stroke.width + (rim ? rimWidth : 0.0F));
        glBindBuffer(GL_ARRAY_BUFFER, mStrokeBuffer);
        glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(points.size() * sizeof(float)), points.data(),
                     GL_STREAM_DRAW);
        glDrawArrays(GL_LINE_STRIP, 0, static_cast<GLsizei>(stroke.points.size()));
    }
}

} // namespace qel::host
