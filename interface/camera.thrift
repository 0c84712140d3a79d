// SPDX-License-Identifier: Apache-2.0

include "base.thrift"

namespace cpp qel.api.camera
namespace py qel.api.camera
namespace js qel.api.camera

/** Values of ServiceResult.mError. The camera component produces 0, 4 and -1. */
enum CameraAPIError {
    CAMERA_API_SUCCESS = 0
    CAMERA_API_ERROR_INVALID_ID = 1
    CAMERA_API_ERROR_CREATION_FAILED = 2
    CAMERA_API_ERROR_DESTRUCTION_FAILED = 3
    /** A utility failed. */
    CAMERA_API_ERROR_CALL_FAILED = 4
    /** Any other operation failed. */
    CAMERA_API_ERROR_UNKNOWN = -1
}

/** The two kinds of projection; an operation treats any other value as PERSPECTIVE. */
enum ProjectionType {
    PERSPECTIVE = 0
    ORTHOGRAPHIC = 1
}

/** A point or a vector x, y, z, as the operation says. Operations read three values and fail on fewer. */
struct Vector {
    1: list<double> mData
}

/** An orientation x, y, z, w (scalar last). Operations read four values and fail on fewer. */
struct Quaternion {
    1: list<double> mData
}

/**
 * A 4x4 matrix as a list of its rows. Matrices act on column vectors, so a translation stands in the last
 * value of rows 0, 1 and 2. Operations read four rows of four values and fail on fewer.
 */
struct Matrix {
    1: list<list<double>> mData
}

/**
 * The planes of a projection, in units of view space. The sides are coordinates across the viewing axis,
 * on the near plane when the projection is perspective; near and far are distances ahead of the eye.
 */
struct Frustum {
    1: double mLeft
    2: double mRight
    3: double mBottom
    4: double mTop
    5: double mNearDist
    6: double mFarDist
}

/** The part of a surface that the image covers, in fractions of its resolution, and the range of depths. */
struct Viewport {
    /** Left edge, 0 to 1. */
    1: double mX
    /** Lower edge, 0 to 1; screen y grows upwards. */
    2: double mY
    3: double mWidth
    4: double mHeight
    /** Depth of the near plane, 0 by default. */
    5: double mDepthMin
    /** Depth of the far plane, 1 by default. */
    6: double mDepthMax
}

/**
 * Where the eye is and how it is turned. Operations read mPrivate alone; changing another field changes
 * nothing.
 */
struct ViewState {
    /** View to world: the view's x, y and z axes and the eye as columns. */
    1: Matrix mViewTransformMatrix
    /** World to view. */
    2: Matrix mViewMatrix
    /** The eye, world space. */
    3: Vector mEye
    /** The direction in which the view looks, world space, length 1. */
    4: Vector mDirection
    /** The rotation from the world's axes to the view's. */
    5: Quaternion mOrientation
    /** The complete image of the view, opaque. */
    6: binary mPrivate
}

/** How the scene is projected. Operations read mPrivate alone. */
struct ProjectionState {
    /** View space to clip space, OpenGL conventions. */
    1: Matrix mProjectionMatrix
    2: ProjectionType mProjectionType
    3: Frustum mFrustum
    /** The complete image of the projection, opaque. */
    4: binary mPrivate
}

/** Which pixels the image lands on. Operations read mPrivate alone. */
struct SurfaceState {
    1: Viewport mViewport
    /** Width of the whole surface in pixels, a whole number. */
    2: double mResolutionX
    /** Height of the whole surface in pixels, a whole number. */
    3: double mResolutionY
    /** The complete image of the surface, opaque. */
    4: binary mPrivate
}

/** A view, a projection and a surface together. Operations read this record's own mPrivate alone. */
struct PlanarCameraState {
    1: ViewState mViewState
    2: ProjectionState mProjectionState
    3: SurfaceState mSurfaceState
    /** The complete image of the camera, opaque. */
    4: binary mPrivate
}

/** A point or a vector, and the outcome of the call that made it. */
struct VectorResult {
    1: Vector mValue
    2: base.ServiceResult mResult
}

/** A matrix and the outcome of the call that made it. */
struct MatrixResult {
    1: Matrix mValue
    2: base.ServiceResult mResult
}

/** A view and the outcome of the call that made it. */
struct ViewStateResult {
    1: ViewState mValue
    2: base.ServiceResult mResult
}

/** A projection and the outcome of the call that made it. */
struct ProjectionStateResult {
    1: ProjectionState mValue
    2: base.ServiceResult mResult
}

/** A surface and the outcome of the call that made it. */
struct SurfaceStateResult {
    1: SurfaceState mValue
    2: base.ServiceResult mResult
}

/** A planar camera and the outcome of the call that made it. */
struct PlanarCameraStateResult {
    1: PlanarCameraState mValue
    2: base.ServiceResult mResult
}

/** A number and the outcome of the call that made it; the outcome comes first. */
struct DoubleResult {
    1: base.ServiceResult mResult
    2: double mValue
}

/**
 * The camera service: 79 operations over value records.
 *
 * The service keeps nothing between calls: an operation takes complete states and returns the new state or
 * the computed value in mValue and the outcome in mResult. A failed call has the code
 * CAMERA_API_ERROR_UNKNOWN and the message "Call to <operation>() failed." (or "Unable to create ...
 * object." for those that create), unless the operation names others. It fails when an mPrivate is shorter
 * than its image, when a Vector, Quaternion or Matrix is too short, or when memory runs out. Where there is
 * no memory even for the message, the code alone is set and the message is absent. The value is a valid
 * record even so, perhaps partly written. Degenerate numbers are no errors: "unchanged when" means success
 * with the state as it came. Comparisons are meant as written, so NaN passes them.
 *
 * Angles are radians, world space is right-handed, positive turns run counterclockwise seen from the tip
 * of their axis. The view looks along its negative z axis, x to the right, y up. A screen position is a
 * whole pixel, x to the right and y upwards from the surface's lower left corner, and a depth between the
 * viewport's minimum at the near plane and its maximum at the far plane. Resolutions and window sizes are
 * read as unsigned 32-bit numbers.
 */
service CameraAPI extends base.BaseAPI {
    // View: where the eye is and how it is turned.

    /** The default view: the eye at the world origin, looking along the world's negative z axis, y up. */
    ViewStateResult viewCreateDefault()

    /**
     * A view from eye towards the point lookat, with up upwards. Where viewUpdateLookat would refuse the
     * arguments the view is blank: identity matrices, the eye at the origin.
     */
    ViewStateResult viewCreate(1: Vector eye, 2: Vector lookat, 3: Vector up)

    /** Moves the eye to a world point; the orientation stays. */
    ViewStateResult viewSetEye(1: ViewState state, 2: Vector eye)

    /**
     * Looks at a world point along an axis (world vector of any length), keeping the distance; with the eye
     * on the target (within 1e-7) the eye stays. Unchanged when |axis| <= 1e-7 or up is parallel to it.
     */
    ViewStateResult viewSetViewAlongWorldAxis(
        1: ViewState state, 2: Vector target, 3: Vector axis, 4: Vector up)

    /**
     * Turns the view so that its axes are the world's rotated by orientation; the eye stays. A quaternion of
     * length 1e-4 or more is normalised, a shorter one used as it is.
     */
    ViewStateResult viewSetOrientation(1: ViewState state, 2: Quaternion orientation)

    /**
     * Moves the eye and turns it towards lookat (world points) with up (world vector) upwards, as gluLookAt.
     * Unchanged when lookat is within 1e-7 of eye, |up| <= 1e-7, or up is parallel to the direction
     * (1 - |cosine| <= 1e-7).
     */
    ViewStateResult viewUpdateLookat(1: ViewState state, 2: Vector eye, 3: Vector lookat, 4: Vector up)

    /**
     * Takes the world-to-view matrix as given, without orthonormalising; the view transform matrix becomes
     * its affine inverse, orientation and eye follow from it. Meant for rigid matrices.
     */
    ViewStateResult viewSetViewMatrix(1: ViewState state, 2: Matrix matrix)

    /**
     * Takes the view-to-world matrix as given; the view matrix becomes its affine inverse, the eye its
     * translation. The orientation does not follow: it becomes the transpose of the one before the call, as
     * required. viewSetViewMatrix with the inverse matrix sets all of them.
     */
    ViewStateResult viewSetViewTransformMatrix(1: ViewState state, 2: Matrix matrix)

    /**
     * Turns the view about its own y axis by twice the angle (required); positive turns to the left.
     * Unchanged when |angle| <= 1e-7.
     */
    ViewStateResult viewYaw(1: ViewState state, 2: double angle)

    /**
     * Turns the view about its own x axis by twice the angle (required); positive turns upwards. Unchanged
     * when |angle| <= 1e-7.
     */
    ViewStateResult viewPitch(1: ViewState state, 2: double angle)

    /**
     * Turns the view about its own z axis by twice the angle (required); positive tips its top to the left.
     * Unchanged when |angle| <= 1e-7.
     */
    ViewStateResult viewRoll(1: ViewState state, 2: double angle)

    /**
     * Turns the view by pitch about its x axis, yaw about its y and roll about its z axis, in this order and
     * not doubled, about the axes from before the call. Angles of at most 1e-7 are left out.
     */
    ViewStateResult viewYawPitchRoll(1: ViewState state, 2: double yaw, 3: double pitch, 4: double roll)

    /**
     * Moves the eye by an offset in view coordinates (x right, y up, z backwards). Unchanged when
     * |offset| <= 1e-7.
     */
    ViewStateResult viewTranslateInViewSpace(1: ViewState state, 2: Vector offset)

    /** Moves the eye by an offset in world coordinates. Unchanged when |offset| <= 1e-7. */
    ViewStateResult viewTranslateInWorldSpace(1: ViewState state, 2: Vector offset)

    /**
     * Turntable: swings eye and view about the world point pivot, first by tilt away from the axis's tip,
     * then by angle about the axis (world vector of any length). A tilt that would carry the eye onto or past
     * a pole is left out, the angle still applied. Unchanged when both angles or |axis| are <= 1e-7.
     */
    ViewStateResult viewRotateAboutWorldAxis(
        1: ViewState state, 2: Vector pivot, 3: Vector axis, 4: double angle, 5: double tilt)

    /** The same about the view's own y axis and without the limit at the poles. */
    ViewStateResult viewRotateAboutViewAxes(
        1: ViewState state, 2: Vector pivot, 3: double angle, 4: double tilt)

    /** A world vector in view coordinates; translations do not count. */
    VectorResult viewTransformWorldVectorToViewVector(1: ViewState state, 2: Vector vector)

    /** A view vector in world coordinates. */
    VectorResult viewTransformViewVectorToWorldVector(1: ViewState state, 2: Vector vector)

    /** A world point in view coordinates. */
    VectorResult viewTransformWorldPointToViewPoint(1: ViewState state, 2: Vector point)

    /** A view point in world coordinates. */
    VectorResult viewTransformViewPointToWorldPoint(1: ViewState state, 2: Vector point)

    // Projection: the frustum. Its sides lie on the near plane when it is perspective.

    /**
     * The default projection: perspective, vertical field of view pi/4, aspect ratio 4:3, near 0.01, far
     * 10000.
     */
    ProjectionStateResult projectionCreateDefault()

    /** A projection of the frustum and type; the default one where projectionSetFrustum would refuse them. */
    ProjectionStateResult projectionCreate(1: Frustum frustum, 2: ProjectionType projectionType)

    /**
     * Sets the six planes and the type. Unchanged when left >= right, bottom >= top, near <= 1e-7 or
     * near >= far; every frustum that another operation makes is tested likewise.
     */
    ProjectionStateResult projectionSetFrustum(
        1: ProjectionState state, 2: Frustum frustum, 3: ProjectionType projectionType)

    /**
     * Sets the angle from left to right, keeping the direction of the frustum's centre and the aspect ratio.
     * Unchanged for an orthographic projection and when horizontalFoV <= 1e-7.
     */
    ProjectionStateResult projectionSetHFoV(1: ProjectionState state, 2: double horizontalFoV)

    /**
     * The angle from left to right; 0 for an orthographic projection, NaN possibly for an extremely narrow
     * one.
     */
    DoubleResult projectionGetHFoV(1: ProjectionState state)

    /**
     * Sets the angle from bottom to top, keeping the direction of the frustum's centre and the aspect ratio.
     * Unchanged for an orthographic projection and when verticalFoV <= 1e-7.
     */
    ProjectionStateResult projectionSetVFoV(1: ProjectionState state, 2: double verticalFoV)

    /** The angle from bottom to top. As projectionGetHFoV. */
    DoubleResult projectionGetVFoV(1: ProjectionState state)

    /**
     * Sets both angles, keeping the direction of the frustum's centre. Unchanged for an orthographic
     * projection and when either angle is <= 1e-7.
     */
    ProjectionStateResult projectionSetFoV(
        1: ProjectionState state, 2: double horizontalFoV, 3: double verticalFoV)

    /**
     * Scales bottom and top about 0 (not about their centre, on purpose) so that width / height becomes
     * aspectRatio. Unchanged when aspectRatio <= 1e-7.
     */
    ProjectionStateResult projectionSetAspectRatio(1: ProjectionState state, 2: double aspectRatio)

    /** (right - left) / (top - bottom). */
    DoubleResult projectionGetAspectRatio(1: ProjectionState state)

    /**
     * Moves the near plane; a perspective frustum keeps its angles, an orthographic one its sides. Unchanged
     * when nearDist <= 1e-7 or nearDist >= far.
     */
    ProjectionStateResult projectionSetNear(1: ProjectionState state, 2: double nearDist)

    /** Moves the far plane. Unchanged when near >= farDist. */
    ProjectionStateResult projectionSetFar(1: ProjectionState state, 2: double farDist)

    /**
     * Sets a symmetric perspective projection, as gluPerspective. Unchanged when verticalFoV, aspectRatio or
     * nearDist is <= 1e-7 or nearDist >= farDist. The sides are not tested: angles between pi and 2 pi turn
     * the frustum over.
     */
    ProjectionStateResult projectionUpdatePerspective(
        1: ProjectionState state, 2: double verticalFoV, 3: double aspectRatio, 4: double nearDist,
        5: double farDist)

    /**
     * Sets a symmetric orthographic projection of width by height units. Unchanged when width, height or
     * nearDist is <= 1e-7 or nearDist >= farDist.
     */
    ProjectionStateResult projectionUpdateOrthographic(
        1: ProjectionState state, 2: double width, 3: double height, 4: double nearDist, 5: double farDist)

    /**
     * Takes the view-to-clip matrix and the type unchecked. As required, the inverse stays that of the
     * previous projection and the frustum is derived from it, near and far usually negative: until the whole
     * frustum is replaced the parts do not belong together.
     */
    ProjectionStateResult projectionSetProjectionMatrix(
        1: ProjectionState state, 2: Matrix matrix, 3: ProjectionType projectionType)

    /**
     * Scales the frustum's sides about their centre: a factor above 1 shows more, below 1 magnifies.
     * Unchanged when factor <= 0.
     */
    ProjectionStateResult projectionZoom(1: ProjectionState state, 2: double factor)

    // Surface: the pixels on which the image lands.

    /** The default surface: 640 by 480 pixels, the viewport all of it, depths 0 to 1. */
    SurfaceStateResult surfaceCreateDefault()

    /**
     * A surface of the viewport and the resolution; the default one where surfaceUpdate would refuse them.
     */
    SurfaceStateResult surfaceCreate(
        1: double x, 2: double y, 3: double width, 4: double height, 5: double depthMin, 6: double depthMax,
        7: i32 resolutionX, 8: i32 resolutionY)

    /**
     * Stores the viewport unchecked. As required, screen positions are converted with the old one until the
     * resolution is set again.
     */
    SurfaceStateResult surfaceSetViewport(1: SurfaceState state, 2: Viewport viewport)

    /** Sets the width of the surface in pixels. Unchanged when it is 0. */
    SurfaceStateResult surfaceSetResolutionX(1: SurfaceState state, 2: i32 resolutionX)

    /** Sets the height of the surface in pixels. Unchanged when it is 0. */
    SurfaceStateResult surfaceSetResolutionY(1: SurfaceState state, 2: i32 resolutionY)

    /**
     * Sets viewport (fractions of the resolution, and depths) and resolution (pixels). Unchanged when x or y
     * is outside 0 to 1, width or height is <= 1e-7 or a resolution is 0. Equal depths are taken, and then
     * screen positions cannot be converted back.
     */
    SurfaceStateResult surfaceUpdate(
        1: SurfaceState state, 2: double x, 3: double y, 4: double width, 5: double height,
        6: double depthMin, 7: double depthMax, 8: i32 resolutionX, 9: i32 resolutionY)

    // Planar camera: a view, a projection and a surface together.

    /** A camera of the default view, projection and surface. */
    PlanarCameraStateResult planarCameraCreateDefault()

    /** A camera of the three parts, each taken as it is. */
    PlanarCameraStateResult planarCameraCreate(
        1: ViewState view, 2: ProjectionState projection, 3: SurfaceState surface)

    /** Replaces the camera's view. */
    PlanarCameraStateResult planarCameraSetView(1: PlanarCameraState state, 2: ViewState view)

    /** Replaces the camera's projection. */
    PlanarCameraStateResult planarCameraSetProjection(
        1: PlanarCameraState state, 2: ProjectionState projection)

    /** Replaces the camera's surface. */
    PlanarCameraStateResult planarCameraSetSurface(1: PlanarCameraState state, 2: SurfaceState surface)

    /**
     * Sets the surface's resolution to the window's size in pixels and scales the frustum alike, so that a
     * larger window shows more of the scene. Unchanged when width or height is 0.
     */
    PlanarCameraStateResult planarCameraUpdateWindowSize(
        1: PlanarCameraState state, 2: i32 width, 3: i32 height)

    /**
     * Fits near and far to a sphere in world space with a margin of 5 %, near at least minimumNearDist.
     * Unchanged when radius or minimumNearDist is <= 1e-7 or the whole sphere is behind the eye.
     */
    PlanarCameraStateResult planarCameraUpdateClippingPlanes(
        1: PlanarCameraState state, 2: Vector centre, 3: double radius, 4: double minimumNearDist)

    /**
     * Moves the eye and sets the frustum so that a world-space box, given by two opposite corners in any
     * order, fills the image; the orientation stays. Unchanged when the corners are at most 1e-7 apart.
     */
    PlanarCameraStateResult planarCameraFitWorldSpaceBoundingBox(
        1: PlanarCameraState state, 2: double x1, 3: double y1, 4: double z1, 5: double x2, 6: double y2,
        7: double z2)

    /**
     * The same for a box in view space, the lesser coordinates first. The distance is that from which the
     * box's diagonal across the view fills 45 degrees, whatever the field of view was.
     */
    PlanarCameraStateResult planarCameraFitViewSpaceBoundingBox(
        1: PlanarCameraState state, 2: double xMin, 3: double yMin, 4: double zMin, 5: double xMax,
        6: double yMax, 7: double zMax)

    /**
     * Perspective to orthographic and back, keeping the visible height at the depth of a world-space box's
     * centre. Unchanged when the corners are at most 1e-7 apart, and when the centre is in the plane of the
     * eye or behind it by no more than near.
     */
    PlanarCameraStateResult planarCameraSwitchProjectionType(
        1: PlanarCameraState state, 2: double x1, 3: double y1, 4: double z1, 5: double x2, 6: double y2,
        7: double z2)

    /** viewSetViewAlongWorldAxis of the camera's view. */
    PlanarCameraStateResult planarCameraSetViewAlongWorldAxis(
        1: PlanarCameraState state, 2: Vector target, 3: Vector axis, 4: Vector up)

    // Navigation. The first eight are those of the view; projection and surface stay.

    /** viewRotateAboutViewAxes of the camera's view. */
    PlanarCameraStateResult planarCameraRotateAboutViewAxes(
        1: PlanarCameraState state, 2: Vector pivot, 3: double angle, 4: double tilt)

    /** viewRotateAboutWorldAxis of the camera's view. */
    PlanarCameraStateResult planarCameraRotateAboutWorldAxis(
        1: PlanarCameraState state, 2: Vector pivot, 3: Vector axis, 4: double angle, 5: double tilt)

    /** viewTranslateInWorldSpace of the camera's view. */
    PlanarCameraStateResult planarCameraTranslateInWorldSpace(1: PlanarCameraState state, 2: Vector offset)

    /** viewTranslateInViewSpace of the camera's view. */
    PlanarCameraStateResult planarCameraTranslateInViewSpace(1: PlanarCameraState state, 2: Vector offset)

    /** viewYaw of the camera's view: by twice the angle. */
    PlanarCameraStateResult planarCameraYaw(1: PlanarCameraState state, 2: double angle)

    /** viewPitch of the camera's view: by twice the angle. */
    PlanarCameraStateResult planarCameraPitch(1: PlanarCameraState state, 2: double angle)

    /** viewRoll of the camera's view: by twice the angle. */
    PlanarCameraStateResult planarCameraRoll(1: PlanarCameraState state, 2: double angle)

    /** viewYawPitchRoll of the camera's view: by the angles themselves. */
    PlanarCameraStateResult planarCameraYawPitchRoll(
        1: PlanarCameraState state, 2: double yaw, 3: double pitch, 4: double roll)

    /**
     * Narrows the frustum so that the rectangle between two screen positions, widened to the frustum's aspect
     * ratio, fills the image; the eye moves sideways only. Unchanged when the pixels are the same or a depth
     * is outside 0 to 1; where both show background, depth 0.9 is taken.
     */
    PlanarCameraStateResult planarCameraZoomArea(
        1: PlanarCameraState state, 2: i32 x1, 3: i32 y1, 4: double depth1, 5: i32 x2, 6: i32 y2,
        7: double depth2)

    /**
     * projectionZoom that keeps what is seen at a screen position where it is. Unchanged when factor <= 0.
     */
    PlanarCameraStateResult planarCameraZoomWithAnchor_Screen(
        1: PlanarCameraState state, 2: i32 x, 3: i32 y, 4: double depth, 5: double factor)

    /** The same about the pixel at which a world point is seen. Unchanged where that is no 32-bit pixel. */
    PlanarCameraStateResult planarCameraZoomWithAnchor_World(
        1: PlanarCameraState state, 2: Vector anchor, 3: double factor)

    /**
     * Moves the eye in the view plane so that what is seen at (x, y, depth) is then seen at (x + dx, y + dy).
     */
    PlanarCameraStateResult planarCameraPanWithAnchor(
        1: PlanarCameraState state, 2: i32 x, 3: i32 y, 4: double depth, 5: i32 dx, 6: i32 dy)

    /**
     * Swings eye and view about the world point pivot as if a ball were dragged from pixel (x1, y1) to (x2,
     * y2): Shoemake's arcball with Bell's hyperbolic sheet. Equal pixels change nothing. Fails when the
     * surface's resolution y is 0 (a forged image).
     */
    PlanarCameraStateResult planarCameraArcballRotation(
        1: PlanarCameraState state, 2: Vector pivot, 3: i32 x1, 4: i32 y1, 5: i32 x2, 6: i32 y2)

    // Utilities: matrices without a camera. Failure has the code CAMERA_API_ERROR_CALL_FAILED.

    /**
     * The perspective matrix of a frustum, as glFrustum; untested, so an empty frustum gives infinities or
     * NaN.
     */
    MatrixResult utilsMakePerspectiveMatrix(1: Frustum frustum)

    /** The orthographic matrix of a frustum, as glOrtho; untested likewise. */
    MatrixResult utilsMakeOrthographicMatrix(1: Frustum frustum)

    /**
     * Transposes a list of rows of any shape. Fails when there are no rows or one is shorter than the first.
     */
    MatrixResult utilsConvertMatrixFromRowMajorToColumnMajor(1: Matrix matrix)

    // Space transforms: between screen, view and world space.

    /** The view-space point at a screen position. */
    VectorResult transformScreenPointToViewPoint(
        1: PlanarCameraState state, 2: i32 x, 3: i32 y, 4: double depth)

    /** The world-space point at a screen position. */
    VectorResult transformScreenPointToWorldPoint(
        1: PlanarCameraState state, 2: i32 x, 3: i32 y, 4: double depth)

    /** The screen position of a view-space point: x and y rounded to whole pixels, z the depth. */
    VectorResult transformViewPointToScreenPoint(1: PlanarCameraState state, 2: Vector point)

    /** The screen position of a world-space point: x and y rounded to whole pixels, z the depth. */
    VectorResult transformWorldPointToScreenPoint(1: PlanarCameraState state, 2: Vector point)

    /** A world point in view coordinates. */
    VectorResult transformWorldPointToViewPoint(1: PlanarCameraState state, 2: Vector point)

    /** A world vector in view coordinates; translations do not count. */
    VectorResult transformWorldVectorToViewVector(1: PlanarCameraState state, 2: Vector vector)

    /** A view point in world coordinates. */
    VectorResult transformViewPointToWorldPoint(1: PlanarCameraState state, 2: Vector point)

    /** A view vector in world coordinates. */
    VectorResult transformViewVectorToWorldVector(1: PlanarCameraState state, 2: Vector vector)

    /** The view-space vector to the first screen position from the second. */
    VectorResult transformScreenVectorToViewVector(
        1: PlanarCameraState state, 2: i32 x1, 3: i32 y1, 4: double depth1, 5: i32 x2, 6: i32 y2,
        7: double depth2)

    /** The world-space vector to the first screen position from the second. */
    VectorResult transformScreenVectorToWorldVector(
        1: PlanarCameraState state, 2: i32 x1, 3: i32 y1, 4: double depth1, 5: i32 x2, 6: i32 y2,
        7: double depth2)
}
