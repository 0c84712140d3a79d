// SPDX-License-Identifier: Apache-2.0
#include <qel/api/camera/Values.h>

#include <qel/api/camera/Fields.h>

#include "records/RecordText.h"
#include "records/RecordValue.h"
#include "records/RecordWire.h"

namespace qel::api::camera {

using ::apache::thrift::protocol::TProtocol;
using namespace ::qel::api::records;

const char* nameOf(const ProjectionType::type value) noexcept {
    switch (value) {
    case ProjectionType::PERSPECTIVE: return "PERSPECTIVE";
    case ProjectionType::ORTHOGRAPHIC: return "ORTHOGRAPHIC";
    }
    return nullptr;
}

void Vector::__set_mData(const std::vector<double>& value) {
    mData = value;
    __isset.mData = true;
}

bool Vector::operator==(const Vector& other) const { return equalRecords(*this, other); }
std::uint32_t Vector::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t Vector::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void Vector::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(Vector& a, Vector& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const Vector& record) {
    record.printTo(out);
    return out;
}

void Quaternion::__set_mData(const std::vector<double>& value) {
    mData = value;
    __isset.mData = true;
}

bool Quaternion::operator==(const Quaternion& other) const { return equalRecords(*this, other); }
std::uint32_t Quaternion::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t Quaternion::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void Quaternion::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(Quaternion& a, Quaternion& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const Quaternion& record) {
    record.printTo(out);
    return out;
}

void Matrix::__set_mData(const std::vector<std::vector<double>>& value) {
    mData = value;
    __isset.mData = true;
}

bool Matrix::operator==(const Matrix& other) const { return equalRecords(*this, other); }
std::uint32_t Matrix::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t Matrix::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void Matrix::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(Matrix& a, Matrix& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const Matrix& record) {
    record.printTo(out);
    return out;
}

void Frustum::__set_mLeft(double value) {
    mLeft = value;
    __isset.mLeft = true;
}

void Frustum::__set_mRight(double value) {
    mRight = value;
    __isset.mRight = true;
}

void Frustum::__set_mBottom(double value) {
    mBottom = value;
    __isset.mBottom = true;
}

void Frustum::__set_mTop(double value) {
    mTop = value;
    __isset.mTop = true;
}

void Frustum::__set_mNearDist(double value) {
    mNearDist = value;
    __isset.mNearDist = true;
}

void Frustum::__set_mFarDist(double value) {
    mFarDist = value;
    __isset.mFarDist = true;
}

bool Frustum::operator==(const Frustum& other) const { return equalRecords(*this, other); }
std::uint32_t Frustum::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t Frustum::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void Frustum::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(Frustum& a, Frustum& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const Frustum& record) {
    record.printTo(out);
    return out;
}

void Viewport::__set_mX(double value) {
    mX = value;
    __isset.mX = true;
}

void Viewport::__set_mY(double value) {
    mY = value;
    __isset.mY = true;
}

void Viewport::__set_mWidth(double value) {
    mWidth = value;
    __isset.mWidth = true;
}

void Viewport::__set_mHeight(double value) {
    mHeight = value;
    __isset.mHeight = true;
}

void Viewport::__set_mDepthMin(double value) {
    mDepthMin = value;
    __isset.mDepthMin = true;
}

void Viewport::__set_mDepthMax(double value) {
    mDepthMax = value;
    __isset.mDepthMax = true;
}

bool Viewport::operator==(const Viewport& other) const { return equalRecords(*this, other); }
std::uint32_t Viewport::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t Viewport::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void Viewport::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(Viewport& a, Viewport& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const Viewport& record) {
    record.printTo(out);
    return out;
}

} // namespace qel::api::camera
