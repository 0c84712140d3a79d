// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <span>
#include <type_traits>

#include "math/Matrices.h"

namespace qel::api::camera::impl {

// An object's blob: the bytes from which it is rebuilt exactly. It is eight zero bytes, where the object itself has the
// reference to its virtual functions, and then the object's block as it lies in the memory of a little-endian machine:
// numbers of 32 and 64 bits, doubles IEEE 754 binary64, and padding, which is zero in every blob that is written, so
// that equal objects have equal blobs.

inline constexpr std::size_t blobHeaderSize = 8;

template <class Object>
inline constexpr std::size_t blobSize = blobHeaderSize + sizeof(typename Object::Block);

/// Bytes that hold a blob: aligned for a double, as those of a string and of an object are.
template <std::size_t Size>
using BlobBytes = std::span<char, Size>;
template <std::size_t Size>
using ConstBlobBytes = std::span<const char, Size>;

/// Turns the order of the bytes of each number in a block's member.
template <class Member>
void swapByteOrder(char* bytes) noexcept {
    const auto swap = [](char* first, std::size_t size, std::size_t count) {
        for (; count > 0; --count, first += size) {
            std::reverse(first, first + size);
        }
    };
    if constexpr (sizeof(Member) == 4) {
        swap(bytes, 4, 1);
    } else if constexpr (requires { &Member::mKind; }) {
        swap(bytes, 8, sizeof(Member::mElements) / 8);
        swap(bytes + offsetof(Member, mKind), 4, 1);
    } else if constexpr (requires { &Member::mPadding; }) {
        swap(bytes, 4, 2);
    } else {
        swap(bytes, 8, sizeof(Member) / 8); // doubles, or whole numbers of 64 bits
    }
}

/// Takes the members of a block out of a blob one after the other, every number as it stands there.
class BlobReader {
public:
    explicit BlobReader(const char* blob) noexcept : mNext(blob + blobHeaderSize) {}

    template <class Member>
    [[gnu::always_inline]] Member next() noexcept {
        const char* bytes = mNext;
        mNext += sizeof(Member);
        if constexpr (std::endian::native == std::endian::big) {
            Member member = copyOf<Member>(bytes);
            swapByteOrder<Member>(reinterpret_cast<char*>(&member));
            return member;
        } else {
            return copyOf<Member>(bytes);
        }
    }

private:
    template <class Member>
    [[gnu::always_inline]] static Member copyOf(const char* bytes) noexcept {
#if defined(__GNUC__) && !defined(__clang__)
        // GCC leaves out a copy that it can see through, but not a memcpy: a question about a view takes 86
        // instructions so, and 104 by memcpy.
        return reinterpret_cast<const InBytes<Member>*>(bytes)->value;
#else
        Member member;
        std::memcpy(&member, bytes, sizeof(Member));
        return member;
#endif
    }

    template <class Member>
    struct [[gnu::may_alias]] InBytes {
        Member value;
    };

    const char* mNext;
};

/// Puts the members of a block into a blob one after the other, padding as zeros whatever a forged blob has put there.
class BlobWriter {
public:
    explicit BlobWriter(char* blob) noexcept : mNext(blob + blobHeaderSize) { std::memset(blob, 0, blobHeaderSize); }

    template <class Member>
    void put(const Member& member) noexcept {
        static_assert(std::is_standard_layout_v<Member> && std::is_trivially_copyable_v<Member>);
        std::memcpy(mNext, &member, sizeof(Member));
        if constexpr (std::endian::native == std::endian::big) {
            swapByteOrder<Member>(mNext);
        }
        if constexpr (requires { &Member::mPadding; }) {
            std::memset(mNext + offsetof(Member, mPadding), 0, sizeof(Member::mPadding));
        }
        mNext += sizeof(Member);
    }

private:
    char* mNext;
};

} // namespace qel::api::camera::impl
