// SPDX-License-Identifier: Apache-2.0
#include <qel/api/camera/States.h>

#include <qel/api/camera/Fields.h>

#include "records/RecordText.h"
#include "records/RecordValue.h"
#include "records/RecordWire.h"

namespace qel::api::camera {

using ::apache::thrift::protocol::TProtocol;
using namespace ::qel::api::records;

void ViewState::__set_mViewTransformMatrix(const Matrix& value) {
    mViewTransformMatrix = value;
    __isset.mViewTransformMatrix = true;
}

void ViewState::__set_mViewMatrix(const Matrix& value) {
    mViewMatrix = value;
    __isset.mViewMatrix = true;
}

void ViewState::__set_mEye(const Vector& value) {
    mEye = value;
    __isset.mEye = true;
}

void ViewState::__set_mDirection(const Vector& value) {
    mDirection = value;
    __isset.mDirection = true;
}

void ViewState::__set_mOrientation(const Quaternion& value) {
    mOrientation = value;
    __isset.mOrientation = true;
}

void ViewState::__set_mPrivate(const std::string& value) {
    mPrivate = value;
    __isset.mPrivate = true;
}

bool ViewState::operator==(const ViewState& other) const { return equalRecords(*this, other); }
std::uint32_t ViewState::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t ViewState::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void ViewState::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(ViewState& a, ViewState& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const ViewState& record) {
    record.printTo(out);
    return out;
}

void ProjectionState::__set_mProjectionMatrix(const Matrix& value) {
    mProjectionMatrix = value;
    __isset.mProjectionMatrix = true;
}

void ProjectionState::__set_mProjectionType(ProjectionType::type value) {
    mProjectionType = value;
    __isset.mProjectionType = true;
}

void ProjectionState::__set_mFrustum(const Frustum& value) {
    mFrustum = value;
    __isset.mFrustum = true;
}

void ProjectionState::__set_mPrivate(const std::string& value) {
    mPrivate = value;
    __isset.mPrivate = true;
}

bool ProjectionState::operator==(const ProjectionState& other) const { return equalRecords(*this, other); }
std::uint32_t ProjectionState::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t ProjectionState::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void ProjectionState::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(ProjectionState& a, ProjectionState& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const ProjectionState& record) {
    record.printTo(out);
    return out;
}

void SurfaceState::__set_mViewport(const Viewport& value) {
    mViewport = value;
    __isset.mViewport = true;
}

void SurfaceState::__set_mResolutionX(double value) {
    mResolutionX = value;
    __isset.mResolutionX = true;
}

void SurfaceState::__set_mResolutionY(double value) {
    mResolutionY = value;
    __isset.mResolutionY = true;
}

void SurfaceState::__set_mPrivate(const std::string& value) {
    mPrivate = value;
    __isset.mPrivate = true;
}

bool SurfaceState::operator==(const SurfaceState& other) const { return equalRecords(*this, other); }
std::uint32_t SurfaceState::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t SurfaceState::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void SurfaceState::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(SurfaceState& a, SurfaceState& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const SurfaceState& record) {
    record.printTo(out);
    return out;
}

void PlanarCameraState::__set_mViewState(const ViewState& value) {
    mViewState = value;
    __isset.mViewState = true;
}

void PlanarCameraState::__set_mProjectionState(const ProjectionState& value) {
    mProjectionState = value;
    __isset.mProjectionState = true;
}

void PlanarCameraState::__set_mSurfaceState(const SurfaceState& value) {
    mSurfaceState = value;
    __isset.mSurfaceState = true;
}

void PlanarCameraState::__set_mPrivate(const std::string& value) {
    mPrivate = value;
    __isset.mPrivate = true;
}

bool PlanarCameraState::operator==(const PlanarCameraState& other) const { return equalRecords(*this, other); }
std::uint32_t PlanarCameraState::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t PlanarCameraState::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void PlanarCameraState::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(PlanarCameraState& a, PlanarCameraState& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const PlanarCameraState& record) {
    record.printTo(out);
    return out;
}

} // namespace qel::api::camera
