// SPDX-License-Identifier: Apache-2.0
#include "fuzz/Memory.h"

extern "C" {
// Offered by the sanitizers' runtime libraries.
__attribute__((weak)) int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, std::size_t),
                                                                    void (*)(const volatile void*));
__attribute__((weak)) std::size_t __sanitizer_get_allocated_size(const volatile void*);
}

namespace camera::fuzz {
namespace {

// One thread runs the targets.
bool measuring = false;
std::ptrdiff_t held = 0;
std::ptrdiff_t mostHeld = 0;

void onMalloc(const volatile void*, std::size_t size) {
    if (measuring) {
        held += static_cast<std::ptrdiff_t>(size);
        mostHeld = held > mostHeld ? held : mostHeld;
    }
}

void onFree(const volatile void* pointer) {
    if (measuring && pointer != nullptr) {
        held -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(pointer));
    }
}

[[maybe_unused]] const bool installed = __sanitizer_install_malloc_and_free_hooks != nullptr &&
                                        __sanitizer_get_allocated_size != nullptr &&
                                        __sanitizer_install_malloc_and_free_hooks(onMalloc, onFree) != 0;

} // namespace

Memory::Memory() {
    held = 0;
    mostHeld = 0;
    measuring = true;
}

Memory::~Memory() { measuring = false; }

std::size_t Memory::most() const { return static_cast<std::size_t>(mostHeld); }

} // namespace camera::fuzz
