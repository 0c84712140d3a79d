// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <type_traits>
#include <vector>

#include "impl/Blob.h"
#include "impl/Camera.h"
#include "impl/PlanarCamera.h"
#include "math/Matrices.h"
#include "math/Pipeline.h"
#include "math/Vectors.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using namespace impl;
using math::Frustum;
using math::Mat3;
using math::Mat4;
using math::Vec3;
using math::Viewport;

/// Bytes of a blob that say nothing: written as zeros, whatever stood there.
struct Range {
    std::size_t offset, size;
};
using Ranges = std::vector<Range>;

constexpr Range header{0, 8};
template <class Matrix>
constexpr Range paddingAfter(std::size_t member) {
    return {8 + member + offsetof(Matrix, mPadding), 4};
}

Ranges unused(std::type_identity<View>) {
    return {header, paddingAfter<Mat4>(offsetof(View::Block, viewTransformMatrix)),
            paddingAfter<Mat4>(offsetof(View::Block, viewMatrix)), paddingAfter<Mat3>(offsetof(View::Block, rotation))};
}

Ranges unused(std::type_identity<Projection>) {
    return {header, paddingAfter<Mat4>(offsetof(Projection::Block, matrix)),
            paddingAfter<Mat4>(offsetof(Projection::Block, inverse)),
            paddingAfter<Projection::Block::Type>(offsetof(Projection::Block, type))};
}

Ranges unused(std::type_identity<Surface>) {
    return {header, paddingAfter<Mat4>(offsetof(Surface::Block, matrix)),
            paddingAfter<Mat4>(offsetof(Surface::Block, inverse))};
}

Ranges unused(std::type_identity<PlanarCamera>) {
    Ranges ranges{header};
    const auto add = [&](std::size_t place, const Ranges& part) {
        for (const auto& [offset, size] : part) {
            ranges.push_back({place + offset, size});
        }
    };
    add(PlanarCamera::viewInBlob, unused(std::type_identity<View>{}));
    add(PlanarCamera::projectionInBlob, unused(std::type_identity<Projection>{}));
    add(PlanarCamera::surfaceInBlob, unused(std::type_identity<Surface>{}));
    return ranges;
}

template <class Object>
class BlobOf : public ::testing::Test {};
using Objects = ::testing::Types<View, Projection, Surface, PlanarCamera>;
TYPED_TEST_SUITE(BlobOf, Objects);

// Any bytes at all: doubles that are no numbers, kind words and types without a meaning, padding that holds something.
TYPED_TEST(BlobOf, GivesEveryByteBackButHeaderAndPaddingWhichAreZero) {
    Random random(501);
    for (int n = 0; n < 100; ++n) {
        Blob<TypeParam> given;
        std::generate(given.begin(), given.end(), [&] { return static_cast<char>(1 + random.below(255)); });
        Blob<TypeParam> expected = given;
        for (const auto& [offset, size] : unused(std::type_identity<TypeParam>{})) {
            std::fill_n(expected.begin() + static_cast<std::ptrdiff_t>(offset), size, '\0');
        }
        const TypeParam object(given);
        EXPECT_EQ(blobOf(object), expected);
        TypeParam assigned;
        assigned = object;
        EXPECT_EQ(blobOf(TypeParam(assigned)), expected) << "copied";
    }
}

TEST(BlobOfASurface, EndsWithTheResolutionsLeastByteFirst) {
    const Blob<Surface> blob = blobOf(forgedSurface(0x01020304U, 0xA0B0C0D0U));
    const std::array<char, 8> expected{'\x04', '\x03', '\x02', '\x01', '\xD0', '\xC0', '\xB0', '\xA0'};
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), blob.end() - 8));
}

TEST(BlobOfAView, IsEightZeroBytesAndTheBlock) {
    if constexpr (std::endian::native == std::endian::little) {
        const View view = someView();
        const View::Block block{view.viewTransformMatrix(), view.viewMatrix(), view.rotation(), view.eye()};
        Blob<View> expected{};
        std::memcpy(expected.data() + 8, &block, sizeof(block));
        EXPECT_EQ(blobOf(view), expected);
    } else {
        GTEST_SKIP() << "the block of this machine has the bytes of its numbers in another order";
    }
}

/// A member whose bytes are 0, 1, 2 and so on, as the machine with the other order of bytes has it: each number of so
/// many bytes by itself, and what follows them as it is.
template <class Member>
void expectSwapped(const std::vector<std::size_t>& numbers) {
    std::array<char, sizeof(Member)> counted;
    std::iota(counted.begin(), counted.end(), '\0');
    std::array<char, sizeof(Member)> expected = counted;
    auto place = expected.begin();
    for (const std::size_t size : numbers) {
        std::reverse(place, place + static_cast<std::ptrdiff_t>(size));
        place += static_cast<std::ptrdiff_t>(size);
    }
    std::array<char, sizeof(Member)> bytes = counted;
    swapByteOrder<Member>(bytes.data());
    EXPECT_EQ(bytes, expected);
    swapByteOrder<Member>(bytes.data());
    EXPECT_EQ(bytes, counted) << "turned back";
}

std::vector<std::size_t> doubles(std::size_t count) { return std::vector<std::size_t>(count, 8); }

TEST(ByteOrder, OfAMemberIsThatOfEachOfItsNumbers) {
    expectSwapped<std::uint32_t>({4});
    expectSwapped<Vec3>(doubles(3));
    expectSwapped<Frustum>(doubles(6));
    expectSwapped<Viewport>(doubles(6));
    expectSwapped<Camera::Block>({8, 8});
    expectSwapped<Projection::Block::Type>({4, 4});
}

TEST(ByteOrder, OfAMatrixLeavesThePaddingBehindTheKindWord) {
    std::vector<std::size_t> numbers = doubles(9);
    numbers.push_back(4);
    expectSwapped<Mat3>(numbers);
    numbers = doubles(16);
    numbers.push_back(4);
    expectSwapped<Mat4>(numbers);
}

} // namespace
} // namespace qel::api::camera::test
