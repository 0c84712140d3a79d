// SPDX-License-Identifier: Apache-2.0
#include "component/WriteState.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <qel/api/camera/Fields.h>

#include "impl/Blob.h"
#include "math/Pipeline.h"
#include "math/Quaternions.h"

namespace qel::api::camera::component {

namespace {

// The storage of a payload: every list and every blob in it, with the size that it has once it is written.

template <class Visit>
bool visitStorage(Vector& vector, const Visit& visit) {
    return visit(vector.mData, 3);
}
template <class Visit>
bool visitStorage(Quaternion& quaternion, const Visit& visit) {
    return visit(quaternion.mData, 4);
}
template <class Visit>
bool visitStorage(Matrix& matrix, const Visit& visit) {
    auto& rows = matrix.mData;
    return visit(rows, 4) && visit(rows[0], 4) && visit(rows[1], 4) && visit(rows[2], 4) && visit(rows[3], 4);
}
template <class Visit>
bool visitStorage(ViewState& state, const Visit& visit) {
    return visitStorage(state.mViewMatrix, visit) && visitStorage(state.mViewTransformMatrix, visit) &&
           visitStorage(state.mEye, visit) && visitStorage(state.mDirection, visit) &&
           visitStorage(state.mOrientation, visit) && visit(state.mPrivate, impl::blobSize<impl::View>);
}
template <class Visit>
bool visitStorage(ProjectionState& state, const Visit& visit) {
    return visitStorage(state.mProjectionMatrix, visit) && visit(state.mPrivate, impl::blobSize<impl::Projection>);
}
template <class Visit>
bool visitStorage(SurfaceState& state, const Visit& visit) {
    return visit(state.mPrivate, impl::blobSize<impl::Surface>);
}
template <class Visit>
bool visitStorage(PlanarCameraState& state, const Visit& visit) {
    return visitStorage(state.mViewState, visit) && visitStorage(state.mProjectionState, visit) &&
           visitStorage(state.mSurfaceState, visit) && visit(state.mPrivate, impl::blobSize<impl::PlanarCamera>);
}

constexpr auto hasSize = [](const auto& list, std::size_t size) { return list.size() == size; };
constexpr auto setSize = [](auto& list, std::size_t size) {
    list.resize(size);
    return true;
};

/// Swaps in the storage of a new payload, so that nothing has changed where there is no memory for all of it.
template <class Payload>
[[gnu::noinline, gnu::cold]] void replaceStorage(Payload& payload) {
    Payload fresh;
    visitStorage(fresh, setSize);
    fresh.__isset = payload.__isset;
    swap(payload, fresh);
}

template <class Payload>
void makeRoom(Payload& payload) {
    if (!visitStorage(payload, hasSize)) [[unlikely]] {
        replaceStorage(payload);
    }
}

// The numbers, into storage that is there.

void assign(Vector& vector, const math::Vec3& v) noexcept {
    double* data = vector.mData.data();
    data[0] = v.x;
    data[1] = v.y;
    data[2] = v.z;
}

void assign(Quaternion& quaternion, const math::Quat& q) noexcept {
    double* data = quaternion.mData.data();
    data[0] = q.x;
    data[1] = q.y;
    data[2] = q.z;
    data[3] = q.w;
}

void assign(Matrix& matrix, const math::Mat4& m) noexcept {
    std::vector<double>* rows = matrix.mData.data();
    for (std::size_t r = 0; r < 4; ++r) {
        double* row = rows[r].data();
        for (std::size_t k = 0; k < 4; ++k) {
            row[k] = m(r, k);
        }
    }
}

/// Of a frustum and of a viewport the record has the same six numbers in the same order.
template <class Record, class Six>
void assignSix(Record& record, const Six& six) noexcept {
    const auto& [first, second, third, fourth, fifth, sixth] = six;
    const std::array numbers{first, second, third, fourth, fifth, sixth};
    std::size_t i = 0;
    forEachField<Record>([&](const auto& field) { record.*field.member = numbers[i++]; });
}
void assign(Frustum& record, const math::Frustum& frustum) noexcept { assignSix(record, frustum); }
void assign(Viewport& record, const math::Viewport& viewport) noexcept { assignSix(record, viewport); }

void assign(ViewState& state, const impl::View& view) noexcept;
void assign(ProjectionState& state, const impl::Projection& projection) noexcept;
void assign(SurfaceState& state, const impl::Surface& surface) noexcept;

/// A record inside a payload is as good as new.
template <class Record, class Value>
void assignFresh(Record& record, const Value& value) noexcept {
    record.__isset = {};
    assign(record, value);
}

template <class Object>
void assignBlob(std::string& bytes, const Object& object) noexcept {
    constexpr std::size_t size = impl::blobSize<Object>;
    object.writeTo(impl::BlobBytes<size>(bytes.data(), size));
}

void assign(ViewState& state, const impl::View& view) noexcept {
    assignFresh(state.mViewMatrix, view.viewMatrix());
    assignFresh(state.mViewTransformMatrix, view.viewTransformMatrix());
    assignFresh(state.mEye, view.eye());
    assignFresh(state.mDirection, view.direction());
    assignFresh(state.mOrientation, math::mat3ToQuaternion(view.rotation()));
    assignBlob(state.mPrivate, view);
}

void assign(ProjectionState& state, const impl::Projection& projection) noexcept {
    assignFresh(state.mProjectionMatrix, projection.matrix());
    state.mProjectionType = projection.isOrthographic() ? ProjectionType::ORTHOGRAPHIC : ProjectionType::PERSPECTIVE;
    assignFresh(state.mFrustum, projection.frustum());
    assignBlob(state.mPrivate, projection);
}

void assign(SurfaceState& state, const impl::Surface& surface) noexcept {
    assignFresh(state.mViewport, surface.viewport());
    state.mResolutionX = static_cast<double>(surface.resolutionX());
    state.mResolutionY = static_cast<double>(surface.resolutionY());
    assignBlob(state.mPrivate, surface);
}

void assign(PlanarCameraState& state, const impl::PlanarCamera& camera) noexcept {
    assignFresh(state.mViewState, camera.view());
    assignFresh(state.mProjectionState, camera.projection());
    assignFresh(state.mSurfaceState, camera.surface());
    assignBlob(state.mPrivate, camera);
}

template <class Payload, class Value>
void writeInto(Payload& payload, const Value& value) {
    makeRoom(payload);
    assign(payload, value);
}

} // namespace

void makeRoom(Vector& vector) { vector.mData.resize(3); }
void write(ViewState& state, const impl::View& view) { writeInto(state, view); }
void write(ProjectionState& state, const impl::Projection& projection) { writeInto(state, projection); }
void write(SurfaceState& state, const impl::Surface& surface) { writeInto(state, surface); }
void write(PlanarCameraState& state, const impl::PlanarCamera& camera) { writeInto(state, camera); }
void write(Matrix& matrix, const math::Mat4& m) { writeInto(matrix, m); }

} // namespace qel::api::camera::component
