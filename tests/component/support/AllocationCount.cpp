// SPDX-License-Identifier: Apache-2.0
#include "tests/component/support/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t count = 0;

void* allocate(const std::size_t size) noexcept {
    ++count;
    return std::malloc(size == 0 ? 1 : size);
}

void* allocateOrThrow(const std::size_t size) {
    void* const block = allocate(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

} // namespace

void* operator new(const std::size_t size) { return allocateOrThrow(size); }
void* operator new[](const std::size_t size) { return allocateOrThrow(size); }
void* operator new(const std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](const std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* const block) noexcept { std::free(block); }
void operator delete[](void* const block) noexcept { std::free(block); }
void operator delete(void* const block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* const block, std::size_t) noexcept { std::free(block); }
void operator delete(void* const block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete[](void* const block, const std::nothrow_t&) noexcept { std::free(block); }

namespace qel::api::camera::test {

std::size_t allocationCount() { return count; }

} // namespace qel::api::camera::test
