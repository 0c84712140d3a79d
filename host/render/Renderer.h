// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include <epoxy/gl.h>

#include <qel/api/camera/CameraAPIIf.h>

#include "host/render/CameraView.h"
#include "host/render/FrameBuffer.h"
#include "host/render/Picture.h"
#include "host/render/ShaderProgram.h"
#include "host/render/Stroke.h"
#include "host/scene/Mesh.h"

namespace qel::host {

/// Draws a model as a camera's state record says: its view and projection matrices, its viewport, a picture of its
/// surface's resolution. It lives in the OpenGL 3.3 context that is current when it is made, and is used and destroyed
/// while that is.
class Renderer {
public:
    explicit Renderer(const Mesh& mesh);

    /// The model in its bounding box, the world's axes in the corner, and the strokes over them.
    Picture draw(const api::camera::PlanarCameraState& camera, const Strokes& strokes);
    /// The same, to the window whose context this is; it becomes visible when its buffers are swapped.
    void show(const api::camera::PlanarCameraState& camera, const Strokes& strokes);
    /// The depths of the model alone.
    DepthImage drawDepth(const api::camera::PlanarCameraState& camera);
    /// The model's depth at one pixel, 1 where it is not seen.
    float drawDepth(const api::camera::PlanarCameraState& camera, Pixel pixel);

private:
    void drawAll(const CameraView& view, const Strokes& strokes);
    void begin(const CameraView& view);
    void drawBackground() const;
    void drawMesh(const CameraView& view) const;
    void drawBox(const CameraView& view) const;
    void drawStrokes(const CameraView& view, Strokes strokes) const;
    void drawStrokes(const Strokes& strokes, bool rim) const;

    [[nodiscard]] Rows worldFromModel() const;

    ShaderProgram mBackgroundProgram;
    ShaderProgram mMeshProgram;
    ShaderProgram mLineProgram;
    GLuint mEmptyArray = 0;
    GLuint mMeshArray = 0;
    GLuint mBoxArray = 0;
    GLuint mStrokeArray = 0;
    GLuint mStrokeBuffer = 0;
    GLsizei mIndexCount = 0;
    Vec3 mCentre;
    double mRadius;
    std::optional<FrameBuffer> mFrameBuffer;
};

} // namespace qel::host
