// SPDX-License-Identifier: Apache-2.0
#include "tests/reliability/Allocations.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace qel::test {

namespace {

struct Watch {
    bool active;
    Allocations::Fail fail;
    std::size_t first;
    std::size_t asked;
    std::size_t failed;
};
// Constant-initialised and without a destructor: memory is allocated before and after everything.
thread_local constinit Watch watch{false, Allocations::Fail::none, 0, 0, 0};
constinit std::atomic<std::ptrdiff_t> blocks{0};

bool mustFail() {
    if (!watch.active) {
        return false;
    }
    ++watch.asked;
    const bool fails = (watch.fail == Allocations::Fail::one && watch.asked == watch.first) ||
                       (watch.fail == Allocations::Fail::allFrom && watch.asked >= watch.first);
    watch.failed += fails ? 1U : 0U;
    return fails;
}

void* counted(void* const block) {
    if (block != nullptr) {
        blocks.fetch_add(1, std::memory_order_relaxed);
    }
    return block;
}

void uncount(const void* const block) {
    if (block != nullptr) {
        blocks.fetch_sub(1, std::memory_order_relaxed);
    }
}

} // namespace

Allocations::Allocations(const Fail fail, const std::size_t first) { watch = {true, fail, first, 0, 0}; }
Allocations::~Allocations() { watch.active = false; }
void Allocations::stop() { watch.active = false; }
std::size_t Allocations::asked() const { return watch.asked; }
std::size_t Allocations::failed() const { return watch.failed; }
std::ptrdiff_t heldBlocks() { return blocks.load(); }

} // namespace qel::test

#if CAMERA_REPLACE_MALLOC
// All that a block can come from, since any of them may end in free. operator new ends in malloc.
#define CAMERA_VISIBLE __attribute__((visibility("default")))
extern "C" {
// glibc's own.
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

CAMERA_VISIBLE void* malloc(std::size_t size) noexcept {
    return qel::test::mustFail() ? nullptr : qel::test::counted(__libc_malloc(size));
}
CAMERA_VISIBLE void* calloc(std::size_t count, std::size_t size) noexcept {
    return qel::test::mustFail() ? nullptr : qel::test::counted(__libc_calloc(count, size));
}
CAMERA_VISIBLE void* realloc(void* block, std::size_t size) noexcept {
    if (qel::test::mustFail()) {
        return nullptr;
    }
    void* const moved = __libc_realloc(block, size);
    if (moved != nullptr || size == 0) { // else the old block stays
        qel::test::uncount(block);
    }
    return qel::test::counted(moved);
}
CAMERA_VISIBLE void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return qel::test::mustFail() ? nullptr : qel::test::counted(__libc_memalign(alignment, size));
}
CAMERA_VISIBLE void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return memalign(alignment, size);
}
CAMERA_VISIBLE int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
    void* const aligned = memalign(alignment, size);
    if (aligned == nullptr) {
        return ENOMEM;
    }
    *block = aligned;
    return 0;
}
CAMERA_VISIBLE void free(void* block) noexcept {
    qel::test::uncount(block);
    __libc_free(block);
}
}
#endif

#if CAMERA_REPLACE_MALLOC
// The library's own would throw and catch, for which it needs memory. All others end in malloc, and fail and count
// there.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size); }
#else
namespace {

constinit std::atomic<std::size_t> bytes{0};
constinit std::atomic<std::size_t> peak{0};

// In front of each block stands its size; 16 bytes keep the block aligned for every type.
constexpr std::size_t header = 16;

void* allocate(std::size_t size) noexcept {
    auto* const block = static_cast<char*>(qel::test::mustFail() ? nullptr : std::malloc(size + header));
    if (qel::test::counted(block) == nullptr) {
        return nullptr;
    }
    *reinterpret_cast<std::size_t*>(block) = size;
    peak = std::max(peak.load(), bytes += size);
    return block + header;
}
void* allocateOrThrow(std::size_t size) {
    if (void* const block = allocate(size)) {
        return block;
    }
    throw std::bad_alloc();
}
void release(void* pointer) noexcept {
    if (pointer != nullptr) {
        char* const block = static_cast<char*>(pointer) - header;
        bytes -= *reinterpret_cast<std::size_t*>(block);
        qel::test::uncount(block);
        std::free(block);
    }
}

} // namespace

std::size_t qel::test::heldBytes() { return bytes; }
std::size_t qel::test::peakBytes() { return peak; }
void qel::test::forgetPeak() { peak = bytes.load(); }

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t) noexcept { release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { release(block); }
#endif
