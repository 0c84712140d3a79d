// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include <qel/api/camera/Results.h>

#include "tests/component/support/Blobs.h"
#include "tests/reliability/Difference.h"

namespace qel::api::camera::test {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

VectorResult vectorResult(const double x, const double y, const double z) {
    VectorResult result;
    result.mValue.mData = {x, y, z};
    return result;
}

SurfaceStateResult surfaceResult(const std::uint32_t resolutionX, const std::uint32_t resolutionY) {
    SurfaceStateResult result;
    result.mValue.mPrivate.assign(at::surfaceSize, '\0');
    putWord(result.mValue.mPrivate, at::resolutionX, resolutionX);
    putWord(result.mValue.mPrivate, at::resolutionY, resolutionY);
    return result;
}

} // namespace

TEST(Difference, NothingDiffersFromItself) {
    EXPECT_TRUE(differenceOf(vectorResult(1.0, 2.0, 3.0), vectorResult(1.0, 2.0, 3.0)).none());
    EXPECT_TRUE(differenceOf(surfaceResult(640, 480), surfaceResult(640, 480)).none());
}

TEST(Difference, OneUnitInTheLastPlaceIsSeen) {
    const Difference difference =
        differenceOf(vectorResult(1.0, 2.0, 3.0), vectorResult(1.0, 2.0, std::nextafter(3.0, 4.0)));
    EXPECT_FALSE(difference.none());
    EXPECT_EQ(difference.units, 1U);
    EXPECT_DOUBLE_EQ(difference.roundings, 2.0 / 3.0); // a unit at 3 is 2 * 2^-52
}

TEST(Difference, TheSignOfZeroIsSeen) {
    EXPECT_FALSE(differenceOf(vectorResult(1.0, 0.0, 0.0), vectorResult(1.0, -0.0, 0.0)).none());
}

TEST(Difference, EveryNaNIsAsGoodAsAnyOther) {
    const double other = std::bit_cast<double>(std::uint64_t{0xFFF8000000000001});
    const double ordinary = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(differenceOf(vectorResult(ordinary, 0.0, 0.0), vectorResult(other, 0.0, 0.0)).none());
}

TEST(Difference, ANaNOrAnInfinityIsFarFromEveryNumber) {
    const VectorResult number = vectorResult(1.0, 0.0, 0.0);
    for (const double odd : {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity}) {
        EXPECT_EQ(differenceOf(number, vectorResult(odd, 0.0, 0.0)).roundings, infinity) << odd;
        EXPECT_EQ(differenceOf(vectorResult(odd, 0.0, 0.0), number).roundings, infinity) << odd;
    }
}

// 0xFFFFFFFF above any word is a NaN, read as a double.
TEST(Difference, AResolutionBesideANegativeOneIsSeen) {
    EXPECT_TRUE(std::isnan(doubleAt(surfaceResult(640, 0xFFFFFFFFU).mValue.mPrivate, at::resolutionX)));
    EXPECT_EQ(differenceOf(surfaceResult(640, 0xFFFFFFFFU), surfaceResult(641, 0xFFFFFFFFU)).roundings, infinity);
    EXPECT_EQ(differenceOf(surfaceResult(640, 0xFFFFFFFFU), surfaceResult(640, 0xFFFFFFFEU)).roundings, infinity);
}

TEST(Difference, EveryByteOfABlobThatIsNoDoubleIsSeen) {
    ViewStateResult view;
    view.mValue.mPrivate.assign(at::viewSize, '\0');
    for (const Stretch& stretch : stretchesOf(view.mValue)) {
        for (std::size_t i = stretch.offset; stretch.holds != Holds::doubles && i < stretch.offset + stretch.size;
             ++i) {
            ViewStateResult other = view;
            other.mValue.mPrivate[i] = '\1';
            EXPECT_EQ(differenceOf(view, other).roundings, infinity) << i;
        }
    }
}

TEST(Difference, ALengthAFlagAndATextAreSeen) {
    const VectorResult result = vectorResult(1.0, 2.0, 3.0);
    VectorResult longer = result;
    longer.mValue.mData.push_back(0.0);
    EXPECT_EQ(differenceOf(result, longer).roundings, infinity);
    VectorResult flagged = result;
    flagged.mResult.__isset.mMessage = true;
    EXPECT_EQ(differenceOf(result, flagged).roundings, infinity);
    VectorResult failed = result;
    failed.mResult.mMessage = "failed";
    EXPECT_EQ(differenceOf(result, failed).roundings, infinity);
}

// A rounding of the eye far away is none of the orientation's.
TEST(Difference, IsMeasuredByTheLargestNumberOfItsOwnVector) {
    ViewStateResult view;
    view.mValue.mEye.mData = {1e6, 0.0, 0.0};
    view.mValue.mOrientation.mData = {0.0, 0.0, 0.0, 1.0};
    ViewStateResult other = view;
    other.mValue.mOrientation.mData[0] = 1e-9;
    EXPECT_DOUBLE_EQ(differenceOf(view, other).roundings, 1e-9 * 0x1p52);
}

} // namespace qel::api::camera::test
