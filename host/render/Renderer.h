// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include <epoxy/gl.h>

#include <qel/api/camera/CameraAPIIf.h>

#include "CameraView.h"
#include "FrameBuffer.h"
#include "Mesh.h"
#include "OffscreenContext.h"
#include "Picture.h"
#include "Program.h"
#include "Stroke.h"

namespace qel::host {

/// Draws a model as a camera's state record says: its view and projection matrices, its viewport, a picture of its
/// surface's resolution. To be used on the thread that made it.
class Renderer {
public:
    explicit Renderer(const Mesh& mesh);

    /// The model in its bounding box, the world's axes in the corner, and the strokes over them.
    Picture draw(const api::camera::PlanarCameraState& camera, const Strokes& strokes);
    /// The depths of the model alone.
    DepthImage drawDepth(const api::camera::PlanarCameraState& camera);

private:
    void begin(const CameraView& view);
    void drawBackground() const;
    void drawMesh(const CameraView& view) const;
    void drawBox(const CameraView& view) const;
    void drawStrokes(const CameraView& view, Strokes strokes) const;
    void drawStrokes(const Strokes& strokes, bool rim) const;

    [[nodiscard]] Rows worldFromModel() const;

    OffscreenContext mContext; // before everything that lives in it
    Program mBackgroundProgram;
    Program mMeshProgram;
    Program mLineProgram;
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
