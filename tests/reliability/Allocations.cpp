// SPDX-License-Identifier: Apache-2.0
#include "Allocations.h"

#include <atomic>
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

} // namespace

Allocations::Allocations(const Fail fail, const std::size_t first) { watch = {true, fail, first, 0, 0}; }
Allocations::~Allocations() { watch.active = false; }
void Allocations::stop() { watch.active = false; }
std::size_t Allocations::asked() const { return watch.asked; }
std::size_t Allocations::failed() const { return watch.failed; }
std::ptrdiff_t heldBlocks() { return blocks.load(); }

namespace {

constexpr bool mallocIsReplaced = CAMERA_REPLACE_MALLOC != 0;

void* allocate(const std::size_t size, const std::size_t alignment) noexcept {
    if (!mallocIsReplaced && mustFail()) {
        return nullptr;
    }
    void* const block = alignment <= __STDCPP_DEFAULT_NEW_ALIGNMENT__
                            ? std::malloc(size == 0 ? 1 : size)
                            : std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
    if (block != nullptr) {
        blocks.fetch_add(1, std::memory_order_relaxed);
    }
    return block;
}

void* allocateOrThrow(const std::size_t size, const std::size_t alignment) {
    if (void* const block = allocate(size, alignment)) {
        return block;
    }
    throw std::bad_alloc();
}

void release(void* const block) noexcept {
    if (block != nullptr) {
        blocks.fetch_sub(1, std::memory_order_relaxed);
        std::free(block);
    }
}

constexpr std::size_t usual = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

} // namespace

/// What the replaced malloc asks.
bool mallocMustFail() { return mustFail(); }

} // namespace qel::test

#if CAMERA_REPLACE_MALLOC
extern "C" {
void* __libc_malloc(std::size_t size); // glibc's own
__attribute__((visibility("default"))) void* malloc(std::size_t size) {
    return qel::test::mallocMustFail() ? nullptr : __libc_malloc(size);
}
}
#endif

// NOLINTBEGIN(misc-new-delete-overloads)
void* operator new(std::size_t size) { return qel::test::allocateOrThrow(size, qel::test::usual); }
void* operator new[](std::size_t size) { return qel::test::allocateOrThrow(size, qel::test::usual); }
void* operator new(std::size_t size, std::align_val_t alignment) {
    return qel::test::allocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return qel::test::allocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return qel::test::allocate(size, qel::test::usual);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return qel::test::allocate(size, qel::test::usual);
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return qel::test::allocate(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return qel::test::allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* block) noexcept { qel::test::release(block); }
void operator delete[](void* block) noexcept { qel::test::release(block); }
void operator delete(void* block, std::size_t) noexcept { qel::test::release(block); }
void operator delete[](void* block, std::size_t) noexcept { qel::test::release(block); }
void operator delete(void* block, std::align_val_t) noexcept { qel::test::release(block); }
void operator delete[](void* block, std::align_val_t) noexcept { qel::test::release(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { qel::test::release(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { qel::test::release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { qel::test::release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { qel::test::release(block); }
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept { qel::test::release(block); }
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept { qel::test::release(block); }
// NOLINTEND(misc-new-delete-overloads)
