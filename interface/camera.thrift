// SPDX-License-Identifier: Apache-2.0
// Written by scripts/pages/thrift.py from the public headers. Change those.

include "base.thrift"

namespace cpp qel.api.camera
namespace py qel.api.camera
namespace js qel.api.camera

/**
 * Values of ServiceResult.mError. The component produces 0, 4 and -1; the others are declared for hosts that manage
 * camera objects by id.
 */
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

/**
 * The two kinds of projection. Any other value that a message brings is kept as it is, and an operation treats it as
 * PERSPECTIVE.
 */
enum ProjectionType {
    PERSPECTIVE = 0
    ORTHOGRAPHIC = 1
}

/**
 * Three coordinates x, y, z: a point or a vector, as the operation that takes it says. Operations read the first three
 * values of `mData` and fail when there are fewer; results hold exactly three.
 */
struct Vector {
    1: list<double> mData
}

/**
 * An orientation as a quaternion x, y, z, w (scalar last; the identity is 0, 0, 0, 1). Operations read the first four
 * values of `mData` and fail when there are fewer; results hold exactly four.
 */
struct Quaternion {
    1: list<double> mData
}

/**
 * A 4x4 matrix as a list of its rows: `mData[r][c]` is the element at row r, column c. Matrices act on column vectors,
 * so a translation stands in the last value of rows 0, 1 and 2. Operations read the first four values of the first four
 * rows and fail when there are fewer; results are exactly 4x4.
 */
struct Matrix {
    1: list<list<double>> mData
}

/**
 * The planes of a projection, in units of view space. The four sides are view-space coordinates; for a perspective
 * projection they lie on the near plane. The frustum that projectionSetProjectionMatrix leaves keeps none of the ranges
 * below.
 */
struct Frustum {
    /** Left plane, less than mRight. */
    1: double mLeft
    /** Right plane. */
    2: double mRight
    /** Bottom plane, less than mTop. */
    3: double mBottom
    /** Top plane. */
    4: double mTop
    /** Distance of the near plane from the eye, positive ahead. */
    5: double mNearDist
    /** Distance of the far plane from the eye, positive ahead. */
    6: double mFarDist
}

/** The part of a surface that the picture covers, in fractions of the surface's resolution, and the range of depths. */
struct Viewport {
    /** Left edge, 0 to 1. */
    1: double mX
    /** Lower edge, 0 to 1; screen y grows upwards. */
    2: double mY
    /** Width, greater than 0. */
    3: double mWidth
    /** Height, greater than 0. */
    4: double mHeight
    /** Depth of the near plane, 0 by default. */
    5: double mDepthMin
    /** Depth of the far plane, 1 by default. */
    6: double mDepthMax
}

/**
 * Where the eye is and how it is turned. A digest for the host: operations rebuild the view from `mPrivate` alone, so
 * changing another field changes nothing.
 */
struct ViewState {
    /** View to world: the view's x, y and z axes and the eye as columns. */
    1: Matrix mViewTransformMatrix
    /** World to view. */
    2: Matrix mViewMatrix
    /** Eye position, world space. */
    3: Vector mEye
    /** Unit vector along which the view looks, world space. */
    4: Vector mDirection
    /** The rotation from the world's axes to the view's. */
    5: Quaternion mOrientation
    /** The view's blob, 384 bytes, opaque. */
    6: binary mPrivate
}

/** How the scene is projected. A digest for the host, as ViewState is. */
struct ProjectionState {
    /** View space to clip space, OpenGL conventions. */
    1: Matrix mProjectionMatrix
    2: ProjectionType mProjectionType
    3: Frustum mFrustum
    /** The projection's blob, 336 bytes, opaque. */
    4: binary mPrivate
}

/** Which pixels the picture lands on. A digest for the host, as ViewState is. */
struct SurfaceState {
    1: Viewport mViewport
    /** Width of the whole surface in pixels, a whole number. */
    2: double mResolutionX
    /** Height of the whole surface in pixels, a whole number. */
    3: double mResolutionY
    /** The surface's blob, 336 bytes, opaque. */
    4: binary mPrivate
}

/**
 * A planar camera: a view, a projection and a surface. Operations read the camera from this record's own `mPrivate`
 * alone, not from the nested states, which are there for the host and for the operations on their kind.
 */
struct PlanarCameraState {
    1: ViewState mViewState
    2: ProjectionState mProjectionState
    3: SurfaceState mSurfaceState
    /** The camera's blob, 1080 bytes, opaque. */
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

/** A number and the outcome of the call that made it; the outcome comes first, as in StringResult. */
struct DoubleResult {
    1: base.ServiceResult mResult
    2: double mValue
}

/**
 * The camera service: operations over value records.
 *
 * State. The service keeps nothing between calls. An operation receives complete states, rebuilds the objects from the
 * blobs in their `mPrivate`, and writes the new state or the computed value into the result, so one instance may be
 * called from many threads at once. A blob is the object's own bytes: 384 of a view, 336 of a projection or a surface,
 * 1080 of a planar camera. One that the component did not write is taken on trust.
 *
 * Errors. No operation throws. A failed call sets `mResult`: the code CAMERA_API_ERROR_UNKNOWN (-1) and the message
 * "Call to <operation>() failed.", unless the operation names others. It leaves `mValue` exactly as it was, nested
 * records included. A call fails when a state's `mPrivate` is shorter than its blob, when a Vector holds fewer than 3
 * values, a Quaternion fewer than 4 or a Matrix fewer than 4 rows of 4, or when memory runs out; what is longer is read
 * from its beginning. Where there is no memory even for the message, the code alone is set.
 *
 * Degenerate numbers are no errors. "Unchanged when ..." below means that the call succeeds and returns the state as it
 * came. Each condition is meant as written: a comparison with NaN is false, so a NaN passes a test such as "unchanged
 * when near <= 1e-7" and ends up in the result. A finite camera stays finite except where an operation says that it
 * divides by zero, and where a result exceeds the range of a double.
 *
 * Conventions. Angles are radians. World space is right-handed; positive turns run counterclockwise, seen from the tip
 * of their axis. View space has the eye at its origin, x to the right, y up, and looks along its negative z axis, so a
 * point ahead has a negative z. Matrices act on column vectors. Normalised device coordinates run from -1 to 1 on all
 * axes, near to far as z grows. A screen position is a whole pixel of the surface and a depth: x grows to the right, y
 * upwards, pixel (0, 0) is the lower left corner of the surface; the depth runs from the viewport's minimum (0 by
 * default) at the near plane to its maximum (1) at the far plane. Pixels may lie outside the surface. Resolutions and
 * window sizes are read as unsigned, so -1 is 4294967295.
 */
service CameraAPI extends base.BaseAPI {
    // View: where the eye is and how it is turned.

    /**
     * Makes the default view: the eye at the world origin, looking along the world's negative z axis, y up. Failure:
     * "Unable to create View object.".
     */
    ViewStateResult viewCreateDefault()

    /**
     * Makes a view from `eye` towards the point `lookat` with `up` upwards, as viewUpdateLookat does. Where that leaves
     * its view unchanged, the result is blank: all matrices the identity, the eye at the origin. Failure: "Unable to
     * create View object.".
     */
    ViewStateResult viewCreate(1: Vector eye, 2: Vector lookat, 3: Vector up)

    /** Moves the eye to `eye` (world point); the orientation stays. Every point is taken. */
    ViewStateResult viewSetEye(1: ViewState state, 2: Vector eye)

    /**
     * Looks at `target` (world point) along `axis` (world vector of any length) from the distance that the eye has now:
     * the eye moves to target - distance * axis / |axis|. An eye within 1e-7 of the target stays where it is and looks
     * along the axis. `up` is that of viewUpdateLookat. Unchanged when |axis| <= 1e-7, and when the look-at is refused,
     * as for an `up` parallel to the axis.
     */
    ViewStateResult viewSetViewAlongWorldAxis(1: ViewState state, 2: Vector target, 3: Vector axis, 4: Vector up)

    /**
     * Turns the view so that its axes are the world's axes rotated by `orientation` (x, y, z, w); the eye stays. A
     * quaternion of length 1e-4 or more is normalised first; a shorter one, or one whose length is NaN, is used as it
     * is, on purpose: the rotation formula then gives a matrix near the identity and no error (Shoemake, "Animating
     * Rotation with Quaternion Curves", SIGGRAPH 1985).
     */
    ViewStateResult viewSetOrientation(1: ViewState state, 2: Quaternion orientation)

    /**
     * Moves the eye to `eye` and turns it towards `lookat` (world points), rolled so that `up` (world vector of any
     * length, not necessarily perpendicular) points upwards: gluLookAt of the OpenGL 2.1 reference pages. Unchanged
     * when |lookat - eye| <= 1e-7, when |up| <= 1e-7, and when up is parallel or opposite to the direction: 1 - |cosine
     * of their angle| <= 1e-7, within about 4.5e-4 radians.
     */
    ViewStateResult viewUpdateLookat(1: ViewState state, 2: Vector eye, 3: Vector lookat, 4: Vector up)

    /**
     * Takes `matrix` (world to view) as the view matrix, as given. The view transform matrix becomes its affine
     * inverse: the 3x3 part transposed, the translation -(transposed 3x3 * t) / m33, the bottom row 0, 0, 0, 1 / m33,
     * with 0 for 1 / m33 when |m33| <= 1e-8; the bottom row given is not looked at otherwise. Orientation and eye
     * follow from the quaternion of the 3x3 part (Shoemake 1985), which is not normalised. Nothing is orthonormalised,
     * so for a matrix that is not rigid the four descriptions of the view contradict each other.
     */
    ViewStateResult viewSetViewMatrix(1: ViewState state, 2: Matrix matrix)

    /**
     * Takes `matrix` (view to world) as the view transform matrix, as given; the view matrix becomes its affine inverse
     * as in viewSetViewMatrix, the eye its translation column. The orientation does not follow: `mDirection` and
     * `mOrientation` are those of the transposed rotation that the view had before the call, and what works from the
     * orientation (viewSetEye, turns, moves in view space) goes on from there; saved cameras depend on it. A host that
     * wants the matrix's placement in all fields passes its inverse to viewSetViewMatrix.
     */
    ViewStateResult viewSetViewTransformMatrix(1: ViewState state, 2: Matrix matrix)

    /**
     * Turns the view about its own y axis by twice `angle` (radians); positive turns it to the left. Hosts rely on the
     * doubling in viewYaw, viewPitch and viewRoll and pass half the angle; viewYawPitchRoll turns by the angle itself.
     * The eye stays. Unchanged when |angle| <= 1e-7.
     */
    ViewStateResult viewYaw(1: ViewState state, 2: double angle)

    /** Turns the view about its own x axis by twice `angle` (radians); positive turns it upwards. As viewYaw. */
    ViewStateResult viewPitch(1: ViewState state, 2: double angle)

    /**
     * Turns the view about its own z axis by twice `angle` (radians); positive tips its top to the left, so that the
     * picture turns clockwise. As viewYaw.
     */
    ViewStateResult viewRoll(1: ViewState state, 2: double angle)

    /**
     * Turns the view by `pitch` about its x axis, then by `yaw` about its y axis, then by `roll` about its z axis
     * (radians, not doubled). All three axes are those from before the call. The eye stays. An angle that is NaN or at
     * most 1e-7 in absolute value is left out. Unchanged when all three absolute values are <= 1e-7.
     */
    ViewStateResult viewYawPitchRoll(1: ViewState state, 2: double yaw, 3: double pitch, 4: double roll)

    /** Moves the eye by `offset` in view coordinates (x right, y up, z backwards). Unchanged when |offset| <= 1e-7. */
    ViewStateResult viewTranslateInViewSpace(1: ViewState state, 2: Vector offset)

    /** Moves the eye by `offset` in world coordinates. Unchanged when |offset| <= 1e-7. */
    ViewStateResult viewTranslateInWorldSpace(1: ViewState state, 2: Vector offset)

    /**
     * Turntable: swings eye and view together about `pivot` (world point), first by `tilt` about the cross product of
     * `axis` and the arm from pivot to eye, then by `angle` about `axis` (world vector of any length). A positive tilt
     * carries the eye away from the axis's tip. The tilt is left out, and the angle still applied, when |tilt| <= 1e-7
     * or NaN, when the eye is within 1e-7 of the pivot or on the axis (1 - |cosine| < 1e-7), and when it would end on
     * or beyond a pole: arm and axis within 1e-7 radians of parallel or opposite. An angle that is NaN or at most 1e-7
     * in absolute value is left out. Unchanged when both absolute values are <= 1e-7, when |axis| <= 1e-7, and when the
     * look-at that ends the turn is refused, as for an eye so far from the origin (1e16) that a step of 1 does not move
     * it.
     */
    ViewStateResult viewRotateAboutWorldAxis(
        1: ViewState state, 2: Vector pivot, 3: Vector axis, 4: double angle, 5: double tilt)

    /**
     * viewRotateAboutWorldAxis about the view's own y axis, as it is in world space, and without the limit at the
     * poles: a tilt may carry the eye over one, and the picture is then upside down.
     */
    ViewStateResult viewRotateAboutViewAxes(1: ViewState state, 2: Vector pivot, 3: double angle, 4: double tilt)

    /**
     * A world vector in view coordinates: the product of the view matrix and (vector, 0), divided by its w when |w| >
     * 1e-4, which only a matrix set by the host can give. Translations do not count. Every vector is taken.
     */
    VectorResult viewTransformWorldVectorToViewVector(1: ViewState state, 2: Vector vector)

    /**
     * A view vector in world coordinates, through the view transform matrix, as viewTransformWorldVectorToViewVector
     * does through the view matrix.
     */
    VectorResult viewTransformViewVectorToWorldVector(1: ViewState state, 2: Vector vector)

    /**
     * A world point in view coordinates: transformed as by viewTransformWorldVectorToViewVector, and only then moved by
     * the view matrix's translation column, which is never divided.
     */
    VectorResult viewTransformWorldPointToViewPoint(1: ViewState state, 2: Vector point)

    /**
     * A view point in world coordinates, through the view transform matrix, as viewTransformWorldPointToViewPoint does
     * through the view matrix.
     */
    VectorResult viewTransformViewPointToWorldPoint(1: ViewState state, 2: Vector point)

    // Projection: the frustum. Its sides lie on the near plane when it is perspective.

    /**
     * Makes the default projection: perspective, vertical field of view pi/4, width to height 4:3, near 0.01, far
     * 10000. Failure: "Unable to create Projection object.".
     */
    ProjectionStateResult projectionCreateDefault()

    /**
     * Makes a projection as projectionSetFrustum does; a frustum that is refused there gives the default projection.
     * Failure: "Unable to create Projection object.".
     */
    ProjectionStateResult projectionCreate(1: Frustum frustum, 2: ProjectionType projectionType)

    /**
     * Sets the six planes and the type, and from them the projection matrix (glFrustum or glOrtho of the OpenGL 2.1
     * reference pages) and its inverse. The frustum may be off centre. A type other than ORTHOGRAPHIC is perspective.
     * Refused, leaving the projection unchanged, when left >= right, bottom >= top, near <= 1e-7 or near >= far. Every
     * frustum that another operation makes is subject to the same test unless that operation says otherwise.
     */
    ProjectionStateResult projectionSetFrustum(
        1: ProjectionState state, 2: Frustum frustum, 3: ProjectionType projectionType)

    /**
     * Opens the frustum to `horizontalFoV` (radians) from left to right. The horizontal direction of its centre, the
     * vertical centre and the aspect ratio stay. Unchanged for an orthographic projection and when horizontalFoV <=
     * 1e-7. There is no upper bound: above pi the tangents change sign, and the frustum that they give is refused as a
     * rule, or is that of an angle smaller by 2 pi.
     */
    ProjectionStateResult projectionSetHFoV(1: ProjectionState state, 2: double horizontalFoV)

    /**
     * The horizontal field of view in radians: the angle between (left, near) and (right, near); 0 for an orthographic
     * projection. The cosine is not clamped, so for an extremely narrow frustum its rounding may give NaN.
     */
    DoubleResult projectionGetHFoV(1: ProjectionState state)

    /**
     * Opens the frustum to `verticalFoV` (radians) from bottom to top: projectionSetHFoV with the directions exchanged.
     */
    ProjectionStateResult projectionSetVFoV(1: ProjectionState state, 2: double verticalFoV)

    /** The vertical field of view in radians, between (bottom, near) and (top, near). As projectionGetHFoV. */
    DoubleResult projectionGetVFoV(1: ProjectionState state)

    /**
     * Opens the frustum to both angles (radians); the direction of its centre stays, the aspect ratio follows.
     * Unchanged for an orthographic projection and when either angle is <= 1e-7; above pi as projectionSetHFoV.
     */
    ProjectionStateResult projectionSetFoV(1: ProjectionState state, 2: double horizontalFoV, 3: double verticalFoV)

    /**
     * Scales bottom and top so that width / height becomes `aspectRatio`; left and right stay. The scaling is about 0,
     * not about the vertical centre, on purpose: an off-centre frustum keeps its ratio of bottom to top. Unchanged when
     * aspectRatio <= 1e-7.
     */
    ProjectionStateResult projectionSetAspectRatio(1: ProjectionState state, 2: double aspectRatio)

    /**
     * The aspect ratio (right - left) / (top - bottom) of whatever frustum there is. One without height gives infinity
     * or NaN. The outcome is reported as by projectionGetHFoV.
     */
    DoubleResult projectionGetAspectRatio(1: ProjectionState state)

    /**
     * Moves the near plane to the distance `nearDist`. A perspective frustum keeps its angles: its sides are scaled by
     * new over old near; an orthographic one keeps its sides. Unchanged when nearDist <= 1e-7 or nearDist >= far.
     */
    ProjectionStateResult projectionSetNear(1: ProjectionState state, 2: double nearDist)

    /** Moves the far plane to the distance `farDist`. Unchanged when near >= farDist. */
    ProjectionStateResult projectionSetFar(1: ProjectionState state, 2: double farDist)

    /**
     * Sets a symmetric perspective projection from the vertical field of view (radians), width / height, and the
     * distances of near and far: gluPerspective of the OpenGL 2.1 reference pages. Unchanged when verticalFoV,
     * aspectRatio or nearDist is <= 1e-7, or when nearDist >= farDist. The sides are not tested: a field of view
     * between pi and 2 pi stores a frustum turned over (left > right, bottom > top).
     */
    ProjectionStateResult projectionUpdatePerspective(
        1: ProjectionState state, 2: double verticalFoV, 3: double aspectRatio, 4: double nearDist, 5: double farDist)

    /**
     * Sets a symmetric orthographic projection `width` by `height` (view-space units), with near and far at the
     * distances given. Unchanged when width, height or nearDist is <= 1e-7, or when nearDist >= farDist.
     */
    ProjectionStateResult projectionUpdateOrthographic(
        1: ProjectionState state, 2: double width, 3: double height, 4: double nearDist, 5: double farDist)

    /**
     * Takes `matrix` (view to clip space) as the projection matrix and the type, both unchecked. The inverse stays that
     * of the previous projection, and the frustum becomes what that inverse makes of the sides and ends of normalised
     * device space (divided by w when |w| > 1e-4), near and far with the sign of their view-space z, so negative as a
     * rule; saved cameras depend on it. Until an operation that replaces the whole frustum, matrix, inverse and frustum
     * do not belong together, operations that keep near or far are refused, screen positions mix both projections, and
     * what is computed from them (zoom area, zoom with an anchor, pan, clipping planes, fit) may divide by zero.
     */
    ProjectionStateResult projectionSetProjectionMatrix(
        1: ProjectionState state, 2: Matrix matrix, 3: ProjectionType projectionType)

    /**
     * Scales the frustum's sides about their centre by `factor`: above 1 shows more, below 1 magnifies. Near, far and
     * the eye stay. Unchanged when factor < 0, and for 0, whose empty frustum is refused.
     */
    ProjectionStateResult projectionZoom(1: ProjectionState state, 2: double factor)

    // Surface: the pixels on which the picture lands.

    /**
     * Makes the default surface: 640 by 480 pixels, the viewport all of it, depths 0 to 1. Failure: "Unable to create
     * Surface object.".
     */
    SurfaceStateResult surfaceCreateDefault()

    /**
     * Makes a surface as surfaceUpdate does; arguments that are refused there give the default surface. Failure:
     * "Unable to create Surface object.".
     */
    SurfaceStateResult surfaceCreate(
        1: double x, 2: double y, 3: double width, 4: double height, 5: double depthMin, 6: double depthMax,
        7: i32 resolutionX, 8: i32 resolutionY)

    /**
     * Stores `viewport` (fractions of the resolution) without any check, and does not rebuild the viewport matrices:
     * screen positions are converted with the old ones until surfaceSetResolutionX or Y or planarCameraUpdateWindowSize
     * rebuilds them; surfaceUpdate sets viewport and matrices together. A width or height of 0 or equal depths are
     * stored too, and divide by zero in that rebuild.
     */
    SurfaceStateResult surfaceSetViewport(1: SurfaceState state, 2: Viewport viewport)

    /**
     * Sets the width of the surface in pixels and rebuilds the viewport matrices; the viewport keeps its fractions.
     * Unchanged when resolutionX is 0.
     */
    SurfaceStateResult surfaceSetResolutionX(1: SurfaceState state, 2: i32 resolutionX)

    /** Sets the height of the surface in pixels. As surfaceSetResolutionX. */
    SurfaceStateResult surfaceSetResolutionY(1: SurfaceState state, 2: i32 resolutionY)

    /**
     * Sets the viewport (lower left corner, width and height in fractions of the resolution, depth range) and the
     * resolution in pixels, and from them the viewport matrix (glViewport and glDepthRange of the OpenGL 2.1 reference
     * pages, unrounded) and its inverse. Unchanged when x or y is < 0 or > 1, when width or height is <= 1e-7, or when
     * a resolution is 0. The viewport may reach beyond the surface, and the depths are not checked: equal depths divide
     * by zero and put infinities or NaN into the inverse.
     */
    SurfaceStateResult surfaceUpdate(
        1: SurfaceState state, 2: double x, 3: double y, 4: double width, 5: double height, 6: double depthMin,
        7: double depthMax, 8: i32 resolutionX, 9: i32 resolutionY)

    // Planar camera: a view, a projection and a surface together.

    /**
     * Makes a camera of the default view, projection and surface. Failure: "Unable to create default PlanarCamera
     * object.".
     */
    PlanarCameraStateResult planarCameraCreateDefault()

    /**
     * Makes a camera of the three parts, each taken as it is. Failure: "Unable to create PlanarCamera object from
     * arguments.".
     */
    PlanarCameraStateResult planarCameraCreate(
        1: ViewState view, 2: ProjectionState projection, 3: SurfaceState surface)

    /** Replaces the camera's view; projection and surface stay. */
    PlanarCameraStateResult planarCameraSetView(1: PlanarCameraState state, 2: ViewState view)

    /** Replaces the camera's projection; view and surface stay. */
    PlanarCameraStateResult planarCameraSetProjection(1: PlanarCameraState state, 2: ProjectionState projection)

    /** Replaces the camera's surface; view and projection stay. */
    PlanarCameraStateResult planarCameraSetSurface(1: PlanarCameraState state, 2: SurfaceState surface)

    /**
     * Sets the surface's resolution to the window's size in pixels and scales the frustum alike: left and right by new
     * over old width, bottom and top by new over old height. The extent per pixel is kept, so a larger window shows
     * more of the scene. Unchanged when width or height is 0. A frustum that is refused stays; the resolution changes
     * all the same.
     */
    PlanarCameraStateResult planarCameraUpdateWindowSize(1: PlanarCameraState state, 2: i32 width, 3: i32 height)

    /**
     * Fits near and far to a sphere (centre in world space): near 5 % closer than its front, at least
     * `minimumNearDist`, far 5 % beyond its back. A perspective frustum keeps its angles, an orthographic one its
     * sides. Unchanged when radius or minimumNearDist is <= 1e-7, when the whole sphere is behind the eye (view-space z
     * - radius >= 0), and when near would reach far. A front that is NaN counts as nearer than the minimum.
     */
    PlanarCameraStateResult planarCameraUpdateClippingPlanes(
        1: PlanarCameraState state, 2: Vector centre, 3: double radius, 4: double minimumNearDist)

    /**
     * Fits the view-space box around the eight corners of a world-space box, as planarCameraFitViewSpaceBoundingBox
     * does; the two opposite corners may come in any order. The orientation stays. Coordinates are searched between
     * -3.4e38 and 3.4e38 (the largest float), and corners that are NaN are passed over. Unchanged when the corners are
     * at most 1e-7 apart.
     */
    PlanarCameraStateResult planarCameraFitWorldSpaceBoundingBox(
        1: PlanarCameraState state, 2: double x1, 3: double y1, 4: double z1, 5: double x2, 6: double y2, 7: double z2)

    /**
     * Moves the eye and sets the frustum so that the box fills the picture in one direction and fits in the other. With
     * dist = half the box's diagonal across the view / tan(pi/8) and h = half its diagonal in space, the box's centre
     * comes to lie h + dist ahead on the viewing axis, near is dist, far 2 h + dist. Sides: those of the box, in
     * perspective of its front face as seen on the near plane, widened to the aspect ratio of the present frustum. The
     * 45 degrees in dist are fixed, whatever the field of view was. Unchanged when the diagonal is <= 1e-7. The corners
     * are not put in order: when x and y are both reversed, as when dist <= 1e-7 (no extent across the view), the eye
     * moves but the projection stays. In perspective a box some 1e16 times deeper than wide divides by zero.
     */
    PlanarCameraStateResult planarCameraFitViewSpaceBoundingBox(
        1: PlanarCameraState state, 2: double xMin, 3: double yMin, 4: double zMin, 5: double xMax, 6: double yMax,
        7: double zMax)

    /**
     * Turns a perspective projection into an orthographic one or back, scaling the sides so that the visible height at
     * the depth of a world-space box's centre stays; near, far and the view stay. The depth is that of the view-space
     * box around the eight corners; a centre more than near behind the eye counts as near ahead. Unchanged when the
     * corners are at most 1e-7 apart, and when the centre is in or behind the eye's plane by no more than near; a
     * view-space z of exactly -0 divides by zero when the projection is orthographic.
     */
    PlanarCameraStateResult planarCameraSwitchProjectionType(
        1: PlanarCameraState state, 2: double x1, 3: double y1, 4: double z1, 5: double x2, 6: double y2, 7: double z2)

    /** viewSetViewAlongWorldAxis of the camera's view; projection and surface stay. */
    PlanarCameraStateResult planarCameraSetViewAlongWorldAxis(
        1: PlanarCameraState state, 2: Vector target, 3: Vector axis, 4: Vector up)

    // Navigation. The first eight are those of the view, on the camera's view; projection and surface stay.

    /** viewRotateAboutViewAxes of the camera's view: about its own y axis, without the limit at the poles. */
    PlanarCameraStateResult planarCameraRotateAboutViewAxes(
        1: PlanarCameraState state, 2: Vector pivot, 3: double angle, 4: double tilt)

    /** viewRotateAboutWorldAxis of the camera's view: the turntable, with the limit at the poles. */
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
     * Magnifies the rectangle between two screen positions, widened to the frustum's aspect ratio, until it fills the
     * picture. The eye moves sideways only, never forward: the frustum narrows instead, symmetric about the new axis.
     * In perspective the rectangle is measured on the near plane, and its centre is brought to the axis at the depth of
     * the corner nearer to the eye. Its width and height there count as at least 0.001 units. When both depths are
     * within 1e-7 of each other and the first of the viewport's maximum (background), 0.9 is taken for both. Unchanged
     * when the pixels are the same, and when a depth is < 0 or > 1. In perspective the depth of infinity (see
     * planarCameraPanWithAnchor) divides by zero.
     */
    PlanarCameraStateResult planarCameraZoomArea(
        1: PlanarCameraState state, 2: i32 x1, 3: i32 y1, 4: double depth1, 5: i32 x2, 6: i32 y2, 7: double depth2)

    /**
     * projectionZoom by `factor`, then a move of the eye in the view plane that brings what was seen at the screen
     * position back to it. Unchanged when factor is negative or 0. The depth is not limited to the viewport's range; in
     * perspective that of infinity (see planarCameraPanWithAnchor) divides by zero, whatever the factor.
     */
    PlanarCameraStateResult planarCameraZoomWithAnchor_Screen(
        1: PlanarCameraState state, 2: i32 x, 3: i32 y, 4: double depth, 5: double factor)

    /**
     * planarCameraZoomWithAnchor_Screen about the pixel at which the world point `anchor` is seen, with its depth. The
     * position is rounded to whole pixels first (halves away from zero), on purpose. Unchanged when the position is not
     * a number or no 32-bit integer. In perspective an anchor some 1e16 times farther than near, whose depth cannot be
     * told from infinity's, divides by zero.
     */
    PlanarCameraStateResult planarCameraZoomWithAnchor_World(
        1: PlanarCameraState state, 2: Vector anchor, 3: double factor)

    /**
     * Moves the eye in the view plane so that what is seen at the screen position (x, y, depth) is then seen at (x +
     * dx, y + dy). The sum wraps around in 32 bits. In perspective the depth decides how far the eye moves. The depth
     * is not limited to the viewport's range, and the depth of infinity, far / (far - near) when the viewport's is 0 to
     * 1, divides by zero; when far exceeds near some 1e16 times, that is the depth of the far plane, too.
     */
    PlanarCameraStateResult planarCameraPanWithAnchor(
        1: PlanarCameraState state, 2: i32 x, 3: i32 y, 4: double depth, 5: i32 dx, 6: i32 dy)

    /**
     * Swings eye and view about `pivot` (world point) as if a ball were dragged from pixel (x1, y1) to (x2, y2), read
     * as unsigned: Shoemake's arcball ("ARCBALL: A User Interface for Specifying Three-Dimensional Orientation Using a
     * Mouse", Graphics Interface 1992) with Bell's hyperbolic sheet outside. The turn is the angle between the two
     * points of the ball, not twice that. The aspect ratio that centres the ball is truncated to a whole number, so the
     * ball is off centre unless the width is a whole multiple of the height; the sheet begins at radius 0.5, with a
     * step there; the cosine is not clamped, so a turn whose angle comes out NaN is left out. Recorded drags depend on
     * these three. Unchanged for equal pixels, and where viewRotateAboutViewAxes would be. Fails when the surface's
     * resolution y is 0 (a forged blob).
     */
    PlanarCameraStateResult planarCameraArcballRotation(
        1: PlanarCameraState state, 2: Vector pivot, 3: i32 x1, 4: i32 y1, 5: i32 x2, 6: i32 y2)

    // Utilities: matrices without a camera. Failure has the code CAMERA_API_ERROR_CALL_FAILED (4).

    /**
     * The perspective matrix of `frustum` (glFrustum). Nothing is tested: an empty frustum gives infinities or NaN and
     * success.
     */
    MatrixResult utilsMakePerspectiveMatrix(1: Frustum frustum)

    /**
     * The orthographic matrix of `frustum` (glOrtho). Nothing is tested here either: an empty frustum gives infinities
     * or NaN and success.
     */
    MatrixResult utilsMakeOrthographicMatrix(1: Frustum frustum)

    /**
     * Transposes a list of rows of any shape. The first row's length counts: surplus values of longer rows are left
     * out, and an empty first row gives an empty list. Fails when there are no rows or one is shorter than the first.
     */
    MatrixResult utilsConvertMatrixFromRowMajorToColumnMajor(1: Matrix matrix)

    // Space transforms: between screen, view and world space. The camera does not change.

    /**
     * The view-space point at a screen position. In perspective the depth of infinity (see planarCameraPanWithAnchor)
     * gives infinities or NaN, a greater one a point behind the eye.
     */
    VectorResult transformScreenPointToViewPoint(1: PlanarCameraState state, 2: i32 x, 3: i32 y, 4: double depth)

    /**
     * The world-space point at a screen position: that of transformScreenPointToViewPoint, turned by the orientation
     * and moved by the eye.
     */
    VectorResult transformScreenPointToWorldPoint(1: PlanarCameraState state, 2: i32 x, 3: i32 y, 4: double depth)

    /**
     * The screen position at which a view-space point is seen: x and y rounded to whole pixels (halves away from zero,
     * never -0), z the depth, not rounded. Points outside the frustum are projected too; in perspective one behind the
     * eye comes out mirrored, and one in the eye's plane gives infinities or NaN.
     */
    VectorResult transformViewPointToScreenPoint(1: PlanarCameraState state, 2: Vector point)

    /**
     * The screen position at which a world-space point is seen: transformWorldPointToViewPoint, then
     * transformViewPointToScreenPoint.
     */
    VectorResult transformWorldPointToScreenPoint(1: PlanarCameraState state, 2: Vector point)

    /** viewTransformWorldPointToViewPoint of the camera's view. */
    VectorResult transformWorldPointToViewPoint(1: PlanarCameraState state, 2: Vector point)

    /** viewTransformWorldVectorToViewVector of the camera's view. */
    VectorResult transformWorldVectorToViewVector(1: PlanarCameraState state, 2: Vector vector)

    /**
     * A view point in world coordinates: turned by the orientation and moved by the eye, not through the view transform
     * matrix; the two agree unless the host set a view matrix that is not rigid, or a view transform matrix. Every
     * point is taken.
     */
    VectorResult transformViewPointToWorldPoint(1: PlanarCameraState state, 2: Vector point)

    /** A view vector in world coordinates: turned by the orientation. Every vector is taken. */
    VectorResult transformViewVectorToWorldVector(1: PlanarCameraState state, 2: Vector vector)

    /**
     * The view-space vector to the first screen position from the second: the difference of what
     * transformScreenPointToViewPoint gives for them.
     */
    VectorResult transformScreenVectorToViewVector(
        1: PlanarCameraState state, 2: i32 x1, 3: i32 y1, 4: double depth1, 5: i32 x2, 6: i32 y2, 7: double depth2)

    /**
     * The world-space vector to the first screen position from the second: that of transformScreenVectorToViewVector,
     * turned by the orientation.
     */
    VectorResult transformScreenVectorToWorldVector(
        1: PlanarCameraState state, 2: i32 x1, 3: i32 y1, 4: double depth1, 5: i32 x2, 6: i32 y2, 7: double depth2)
}
