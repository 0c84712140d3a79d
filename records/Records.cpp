// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <ostream>
#include <tuple>
#include <type_traits>
#include <utility>

#include <thrift/protocol/TProtocol.h>

#include <qel/api/base/BaseFields.h>
#include <qel/api/camera/Fields.h>

#include "records/RecordText.h"
#include "records/RecordWire.h"

namespace qel::api::records {
namespace {

/// A setter takes a class by reference and a number by value.
template <class Value>
using Parameter = std::conditional_t<std::is_class_v<Value>, const Value&, Value>;

template <class Record, class FieldType>
bool equalField(const Record& a, const Record& b, const FieldType& field) {
    if (field.form == Form::optional) {
        const bool set = field.isSet(a);
        return set == field.isSet(b) && (!set || a.*field.member == b.*field.member);
    }
    return a.*field.member == b.*field.member;
}

/// Equal values, field by field. An absent optional field equals an absent one, whatever value it holds.
template <class Record>
bool equalRecords(const Record& a, const Record& b) {
    return std::apply([&](const auto&... field) { return (equalField(a, b, field) && ...); },
                      FieldTable<Record>::fields);
}

template <class Record>
void swapRecords(Record& a, Record& b) noexcept {
    forEachField<Record>([&](const auto& field) {
        using std::swap;
        swap(a.*field.member, b.*field.member);
    });
    std::swap(a.__isset, b.__isset);
}

} // namespace
} // namespace qel::api::records

// Everything that a record's header declares, setters aside.
#define RECORD(NAME)                                                                               \
    bool NAME::operator==(const NAME& other) const { return records::equalRecords(*this, other); } \
    std::uint32_t NAME::read(::apache::thrift::protocol::TProtocol* protocol) {                    \
        return records::readRecord(*this, *protocol);                                              \
    }                                                                                              \
    std::uint32_t NAME::write(::apache::thrift::protocol::TProtocol* protocol) const {             \
        return records::writeRecord(*this, *protocol);                                             \
    }                                                                                              \
    void NAME::printTo(std::ostream& out) const { records::printRecord(*this, out); }              \
    void swap(NAME& a, NAME& b) noexcept { records::swapRecords(a, b); }                           \
    std::ostream& operator<<(std::ostream& out, const NAME& record) {                              \
        record.printTo(out);                                                                       \
        return out;                                                                                \
    }

#define SETTER(NAME, FIELD)                                                     \
    void NAME::__set_##FIELD(records::Parameter<decltype(NAME::FIELD)> value) { \
        FIELD = value;                                                          \
        __isset.FIELD = true;                                                   \
    }

// A value and the outcome of the call that made it.
#define RESULT(NAME)     \
    RECORD(NAME)         \
    SETTER(NAME, mValue) \
    SETTER(NAME, mResult)

namespace qel::api::base {

RECORD(ServiceResult)
SETTER(ServiceResult, mError)
SETTER(ServiceResult, mMessage)

RESULT(StringResult)

} // namespace qel::api::base

namespace qel::api::camera {

const char* nameOf(const ProjectionType::type value) noexcept {
    switch (value) {
    case ProjectionType::PERSPECTIVE: return "PERSPECTIVE";
    case ProjectionType::ORTHOGRAPHIC: return "ORTHOGRAPHIC";
    }
    return nullptr;
}

RECORD(Vector)
SETTER(Vector, mData)

RECORD(Quaternion)
SETTER(Quaternion, mData)

RECORD(Matrix)
SETTER(Matrix, mData)

RECORD(Frustum)
SETTER(Frustum, mLeft)
SETTER(Frustum, mRight)
SETTER(Frustum, mBottom)
SETTER(Frustum, mTop)
SETTER(Frustum, mNearDist)
SETTER(Frustum, mFarDist)

RECORD(Viewport)
SETTER(Viewport, mX)
SETTER(Viewport, mY)
SETTER(Viewport, mWidth)
SETTER(Viewport, mHeight)
SETTER(Viewport, mDepthMin)
SETTER(Viewport, mDepthMax)

RECORD(ViewState)
SETTER(ViewState, mViewTransformMatrix)
SETTER(ViewState, mViewMatrix)
SETTER(ViewState, mEye)
SETTER(ViewState, mDirection)
SETTER(ViewState, mOrientation)
SETTER(ViewState, mPrivate)

RECORD(ProjectionState)
SETTER(ProjectionState, mProjectionMatrix)
SETTER(ProjectionState, mProjectionType)
SETTER(ProjectionState, mFrustum)
SETTER(ProjectionState, mPrivate)

RECORD(SurfaceState)
SETTER(SurfaceState, mViewport)
SETTER(SurfaceState, mResolutionX)
SETTER(SurfaceState, mResolutionY)
SETTER(SurfaceState, mPrivate)

RECORD(PlanarCameraState)
SETTER(PlanarCameraState, mViewState)
SETTER(PlanarCameraState, mProjectionState)
SETTER(PlanarCameraState, mSurfaceState)
SETTER(PlanarCameraState, mPrivate)

RESULT(VectorResult)
RESULT(MatrixResult)
RESULT(ViewStateResult)
RESULT(ProjectionStateResult)
RESULT(SurfaceStateResult)
RESULT(PlanarCameraStateResult)
RESULT(DoubleResult)

} // namespace qel::api::camera
