// SPDX-License-Identifier: Apache-2.0
#include <qel/api/camera/Results.h>

#include <qel/api/camera/Fields.h>

#include "records/RecordText.h"
#include "records/RecordValue.h"
#include "records/RecordWire.h"

namespace qel::api::camera {

using ::apache::thrift::protocol::TProtocol;
using namespace ::qel::api::records;

void VectorResult::__set_mValue(const Vector& value) {
    mValue = value;
    __isset.mValue = true;
}

void VectorResult::__set_mResult(const base::ServiceResult& value) {
    mResult = value;
    __isset.mResult = true;
}

bool VectorResult::operator==(const VectorResult& other) const { return equalRecords(*this, other); }
std::uint32_t VectorResult::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t VectorResult::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void VectorResult::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(VectorResult& a, VectorResult& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const VectorResult& record) {
    record.printTo(out);
    return out;
}

void MatrixResult::__set_mValue(const Matrix& value) {
    mValue = value;
    __isset.mValue = true;
}

void MatrixResult::__set_mResult(const base::ServiceResult& value) {
    mResult = value;
    __isset.mResult = true;
}

bool MatrixResult::operator==(const MatrixResult& other) const { return equalRecords(*this, other); }
std::uint32_t MatrixResult::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t MatrixResult::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void MatrixResult::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(MatrixResult& a, MatrixResult& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const MatrixResult& record) {
    record.printTo(out);
    return out;
}

void ViewStateResult::__set_mValue(const ViewState& value) {
    mValue = value;
    __isset.mValue = true;
}

void ViewStateResult::__set_mResult(const base::ServiceResult& value) {
    mResult = value;
    __isset.mResult = true;
}

bool ViewStateResult::operator==(const ViewStateResult& other) const { return equalRecords(*this, other); }
std::uint32_t ViewStateResult::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t ViewStateResult::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void ViewStateResult::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(ViewStateResult& a, ViewStateResult& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const ViewStateResult& record) {
    record.printTo(out);
    return out;
}

void ProjectionStateResult::__set_mValue(const ProjectionState& value) {
    mValue = value;
    __isset.mValue = true;
}

void ProjectionStateResult::__set_mResult(const base::ServiceResult& value) {
    mResult = value;
    __isset.mResult = true;
}

bool ProjectionStateResult::operator==(const ProjectionStateResult& other) const { return equalRecords(*this, other); }
std::uint32_t ProjectionStateResult::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t ProjectionStateResult::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void ProjectionStateResult::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(ProjectionStateResult& a, ProjectionStateResult& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const ProjectionStateResult& record) {
    record.printTo(out);
    return out;
}

void SurfaceStateResult::__set_mValue(const SurfaceState& value) {
    mValue = value;
    __isset.mValue = true;
}

void SurfaceStateResult::__set_mResult(const base::ServiceResult& value) {
    mResult = value;
    __isset.mResult = true;
}

bool SurfaceStateResult::operator==(const SurfaceStateResult& other) const { return equalRecords(*this, other); }
std::uint32_t SurfaceStateResult::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t SurfaceStateResult::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void SurfaceStateResult::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(SurfaceStateResult& a, SurfaceStateResult& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const SurfaceStateResult& record) {
    record.printTo(out);
    return out;
}

void PlanarCameraStateResult::__set_mValue(const PlanarCameraState& value) {
    mValue = value;
    __isset.mValue = true;
}

void PlanarCameraStateResult::__set_mResult(const base::ServiceResult& value) {
    mResult = value;
    __isset.mResult = true;
}

bool PlanarCameraStateResult::operator==(const PlanarCameraStateResult& other) const {
    return equalRecords(*this, other);
}
std::uint32_t PlanarCameraStateResult::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t PlanarCameraStateResult::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void PlanarCameraStateResult::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(PlanarCameraStateResult& a, PlanarCameraStateResult& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const PlanarCameraStateResult& record) {
    record.printTo(out);
    return out;
}

void DoubleResult::__set_mResult(const base::ServiceResult& value) {
    mResult = value;
    __isset.mResult = true;
}

void DoubleResult::__set_mValue(double value) {
    mValue = value;
    __isset.mValue = true;
}

bool DoubleResult::operator==(const DoubleResult& other) const { return equalRecords(*this, other); }
std::uint32_t DoubleResult::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t DoubleResult::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void DoubleResult::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(DoubleResult& a, DoubleResult& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const DoubleResult& record) {
    record.printTo(out);
    return out;
}

} // namespace qel::api::camera
