// SPDX-License-Identifier: Apache-2.0
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>
#include <thrift/TBase.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

#include "tests/records/AllRecords.h"
#include "tests/records/RandomRecords.h"
#include "tests/records/SameBits.h"

namespace qel::api {
namespace {

using base::ServiceResult;
using camera::Matrix;
using camera::ProjectionState;
using camera::ProjectionType;
using camera::Vector;

// What the check of a table's ids refuses.
template <int first, int second>
struct Pretended {
    int mA = 0;
    int mB = 0;
    struct {
        bool mA : 1;
        bool mB : 1;
    } __isset{};
};

template <class Record>
constexpr bool hasTheShapeOfARecord() {
    static_assert(std::is_base_of_v<::apache::thrift::TBase, Record>);
    static_assert(!std::is_final_v<Record>);
    static_assert(std::has_virtual_destructor_v<Record>);
    static_assert(std::is_nothrow_default_constructible_v<Record>);
    static_assert(std::is_copy_constructible_v<Record> && std::is_copy_assignable_v<Record>);
    static_assert(std::is_nothrow_move_constructible_v<Record>);
    static_assert(std::is_nothrow_move_assignable_v<Record>);
    static_assert(std::is_nothrow_swappable_v<Record>);
    static_assert(!std::is_aggregate_v<Record>);
    static_assert(!std::is_convertible_v<int, Record> && !std::is_convertible_v<double, Record> &&
                  !std::is_convertible_v<std::string, Record>);
    static_assert(std::is_same_v<decltype(&Record::printTo), void (Record::*)(std::ostream&) const>);
    static_assert(std::is_trivially_copyable_v<decltype(Record::__isset)>);
    static_assert(sizeof(Record::__isset) == 1, "one bit a field, and no record has more than eight");
    return true;
}

template <class... Records>
constexpr bool haveTheShapeOfARecord(RecordList<Records...>) {
    return (hasTheShapeOfARecord<Records>() && ...);
}
static_assert(haveTheShapeOfARecord(AllRecords{}));

// A virtual base cannot be reached by a static_cast downwards.
template <class Record>
concept CastFromBase = requires(::apache::thrift::TBase& base) {
    static_cast<Record&>(base);
};
static_assert(!CastFromBase<Vector> && !CastFromBase<ServiceResult>);

// Any 32-bit number may be stored in an enumeration; without a fixed type that would be undefined.
static_assert(std::is_same_v<std::underlying_type_t<ProjectionType::type>, std::int32_t>);
static_assert(std::is_same_v<std::underlying_type_t<camera::CameraAPIError::type>, std::int32_t>);

template <class Record>
class EveryRecord : public ::testing::Test {};
TYPED_TEST_SUITE(EveryRecord, AllRecords::As<::testing::Types>);

template <class Record>
std::size_t flagsRaised(const Record& record) {
    std::size_t raised = 0;
    forEachField<Record>([&](const auto& field) { raised += field.isSet(record) ? 1U : 0U; });
    return raised;
}

TYPED_TEST(EveryRecord, StartsEmptyWithNoFlagRaised) {
    const TypeParam record;
    EXPECT_EQ(flagsRaised(record), 0U);
    forEachField<TypeParam>([&](const auto& field) {
        using Value = typename std::remove_cvref_t<decltype(field)>::Value;
        EXPECT_EQ(record.*field.member, Value{}) << field.name;
    });
}

TYPED_TEST(EveryRecord, CopiesMovesAndSwapsValuesAndFlags) {
    RandomRecords random(7);
    for (int i = 0; i < 20; ++i) {
        const auto first = random.make<TypeParam>();
        const auto second = random.make<TypeParam>();
        TypeParam a(first);
        TypeParam b = random.make<TypeParam>();
        b = second;
        swap(a, b);
        EXPECT_TRUE(sameBits(a, second));
        EXPECT_TRUE(sameBits(b, first));
        swap(a, a);
        EXPECT_TRUE(sameBits(a, second));
        TypeParam moved(std::move(a));
        EXPECT_TRUE(sameBits(moved, second));
        b = std::move(moved);
        EXPECT_TRUE(sameBits(b, second));
    }
}

TYPED_TEST(EveryRecord, EqualsByItsFieldsAlone) {
    RandomRecords random(13);
    for (int i = 0; i < 20; ++i) {
        const auto original = random.make<TypeParam>();
        forEachField<TypeParam>([&](const auto& field) {
            TypeParam other(original);
            random.change(other.*field.member);
            field.markSet(other, field.form == Form::optional || field.isSet(other));
            EXPECT_FALSE(other == original) << field.name;
            EXPECT_TRUE(other != original) << field.name;
            if (field.form == Form::optional) {
                return;
            }
            TypeParam flagged(original);
            field.markSet(flagged, !field.isSet(flagged));
            EXPECT_TRUE(flagged == original) << field.name;
        });
        EXPECT_TRUE(original == TypeParam(original));
    }
}

TEST(ServiceResult, AnAbsentMessageEqualsAnAbsentOneWhateverItHolds) {
    ServiceResult a;
    ServiceResult b;
    a.mMessage = "left over";
    EXPECT_TRUE(a == b);
    b.__set_mMessage("left over");
    EXPECT_FALSE(a == b);
    a.__isset.mMessage = true;
    EXPECT_TRUE(a == b);
}

/// The setter stores its value in the member and raises the member's flag; the other fields and flags stay.
template <class Record, class Parameter, class Value>
void expectSets(void (Record::*set)(Parameter), Value Record::*member) {
    RandomRecords random(19);
    auto record = random.make<Record>();
    forEachField<Record>([&](const auto& field) { field.markSet(record, false); });
    const Record before(record);
    Value value = before.*member;
    random.change(value);
    (record.*set)(value);
    forEachField<Record>([&](const auto& field) {
        bool itself = false;
        if constexpr (std::is_same_v<decltype(field.member), Value Record::*>) {
            itself = field.member == member;
        }
        EXPECT_EQ(field.isSet(record), itself) << field.name;
        if (!itself) {
            EXPECT_TRUE(sameBits(record.*field.member, before.*field.member)) << field.name;
        }
    });
    EXPECT_TRUE(sameBits(record.*member, value));
}

template <class Result>
void expectSetsBoth() {
    expectSets(&Result::__set_mResult, &Result::mResult);
    expectSets(&Result::__set_mValue, &Result::mValue);
}

TEST(Setters, StoreAndRaiseTheFlagOfTheirOwnFieldAlone) {
    using namespace camera;
    using base::StringResult;
    expectSets(&ServiceResult::__set_mError, &ServiceResult::mError);
    expectSets(&ServiceResult::__set_mMessage, &ServiceResult::mMessage);
    expectSets(&Vector::__set_mData, &Vector::mData);
    expectSets(&Quaternion::__set_mData, &Quaternion::mData);
    expectSets(&Matrix::__set_mData, &Matrix::mData);
    expectSets(&Frustum::__set_mLeft, &Frustum::mLeft);
    expectSets(&Frustum::__set_mRight, &Frustum::mRight);
    expectSets(&Frustum::__set_mBottom, &Frustum::mBottom);
    expectSets(&Frustum::__set_mTop, &Frustum::mTop);
    expectSets(&Frustum::__set_mNearDist, &Frustum::mNearDist);
    expectSets(&Frustum::__set_mFarDist, &Frustum::mFarDist);
    expectSets(&Viewport::__set_mX, &Viewport::mX);
    expectSets(&Viewport::__set_mY, &Viewport::mY);
    expectSets(&Viewport::__set_mWidth, &Viewport::mWidth);
    expectSets(&Viewport::__set_mHeight, &Viewport::mHeight);
    expectSets(&Viewport::__set_mDepthMin, &Viewport::mDepthMin);
    expectSets(&Viewport::__set_mDepthMax, &Viewport::mDepthMax);
    expectSets(&ViewState::__set_mViewTransformMatrix, &ViewState::mViewTransformMatrix);
    expectSets(&ViewState::__set_mViewMatrix, &ViewState::mViewMatrix);
    expectSets(&ViewState::__set_mEye, &ViewState::mEye);
    expectSets(&ViewState::__set_mDirection, &ViewState::mDirection);
    expectSets(&ViewState::__set_mOrientation, &ViewState::mOrientation);
    expectSets(&ViewState::__set_mPrivate, &ViewState::mPrivate);
    expectSets(&ProjectionState::__set_mProjectionMatrix, &ProjectionState::mProjectionMatrix);
    expectSets(&ProjectionState::__set_mProjectionType, &ProjectionState::mProjectionType);
    expectSets(&ProjectionState::__set_mFrustum, &ProjectionState::mFrustum);
    expectSets(&ProjectionState::__set_mPrivate, &ProjectionState::mPrivate);
    expectSets(&SurfaceState::__set_mViewport, &SurfaceState::mViewport);
    expectSets(&SurfaceState::__set_mResolutionX, &SurfaceState::mResolutionX);
    expectSets(&SurfaceState::__set_mResolutionY, &SurfaceState::mResolutionY);
    expectSets(&SurfaceState::__set_mPrivate, &SurfaceState::mPrivate);
    expectSets(&PlanarCameraState::__set_mViewState, &PlanarCameraState::mViewState);
    expectSets(&PlanarCameraState::__set_mProjectionState, &PlanarCameraState::mProjectionState);
    expectSets(&PlanarCameraState::__set_mSurfaceState, &PlanarCameraState::mSurfaceState);
    expectSets(&PlanarCameraState::__set_mPrivate, &PlanarCameraState::mPrivate);
    expectSetsBoth<StringResult>();
    expectSetsBoth<VectorResult>();
    expectSetsBoth<MatrixResult>();
    expectSetsBoth<ViewStateResult>();
    expectSetsBoth<ProjectionStateResult>();
    expectSetsBoth<SurfaceStateResult>();
    expectSetsBoth<PlanarCameraStateResult>();
    expectSetsBoth<DoubleResult>();
}

TEST(ProjectionState, StartsPerspective) { EXPECT_EQ(ProjectionState().mProjectionType, ProjectionType::PERSPECTIVE); }

TEST(ProjectionType, NamesItsTwoValuesAndNoOther) {
    EXPECT_STREQ(camera::nameOf(ProjectionType::PERSPECTIVE), "PERSPECTIVE");
    EXPECT_STREQ(camera::nameOf(ProjectionType::ORTHOGRAPHIC), "ORTHOGRAPHIC");
    EXPECT_EQ(camera::nameOf(static_cast<ProjectionType::type>(2)), nullptr);
    EXPECT_EQ(camera::nameOf(static_cast<ProjectionType::type>(-1)), nullptr);
}

} // namespace

template <int first, int second>
struct FieldTable<Pretended<first, second>> {
    using Record = Pretended<first, second>;
    static constexpr std::tuple fields{QEL_API_FIELD(first, mA, plain), QEL_API_FIELD(second, mB, plain)};
};
static_assert(fieldIdsAreSound<Pretended<1, 2>>());
static_assert(fieldIdsAreSound<Pretended<1, 16>>());
static_assert(!fieldIdsAreSound<Pretended<1, 1>>(), "not unique");
static_assert(!fieldIdsAreSound<Pretended<2, 1>>(), "not ascending");
static_assert(!fieldIdsAreSound<Pretended<0, 1>>(), "not from 1");
static_assert(!fieldIdsAreSound<Pretended<1, 17>>(), "a step too wide");

} // namespace qel::api
