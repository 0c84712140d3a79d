// SPDX-License-Identifier: Apache-2.0
#include "tests/wire/HeldBytes.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> live{0};
std::atomic<std::size_t> peak{0};

// In front of each block stands its size; 16 bytes keep the block aligned for every type.
constexpr std::size_t header = 16;

void* allocate(std::size_t size) {
    auto* block = static_cast<char*>(std::malloc(size + header));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    *reinterpret_cast<std::size_t*>(block) = size;
    const std::size_t now = live += size;
    peak = std::max(peak.load(), now);
    return block + header;
}

void release(void* pointer) {
    if (pointer != nullptr) {
        char* block = static_cast<char*>(pointer) - header;
        live -= *reinterpret_cast<std::size_t*>(block);
        std::free(block);
    }
}

} // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* pointer) noexcept { release(pointer); }
void operator delete[](void* pointer) noexcept { release(pointer); }
void operator delete(void* pointer, std::size_t) noexcept { release(pointer); }
void operator delete[](void* pointer, std::size_t) noexcept { release(pointer); }

namespace qel::api {

std::size_t allocatedBytes() { return live; }
std::size_t peakBytes() { return peak; }
void forgetPeak() { peak = live.load(); }

} // namespace qel::api
