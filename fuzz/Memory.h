// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>

extern "C" {
// Offered by the sanitizers' runtime libraries.
__attribute__((weak)) int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, std::size_t),
                                                                    void (*)(const volatile void*));
__attribute__((weak)) std::size_t __sanitizer_get_allocated_size(const volatile void*);
}

namespace camera::fuzz {

/// Measures the memory that this process holds beyond what it held at the start of the measurement, for the one thread
/// that runs a target. Works under a sanitizer that tells of every allocation; elsewhere it finds nothing.
class Memory {
public:
    Memory() {
        [[maybe_unused]] static const bool installed = __sanitizer_install_malloc_and_free_hooks != nullptr &&
                                                       __sanitizer_get_allocated_size != nullptr &&
                                                       __sanitizer_install_malloc_and_free_hooks(onMalloc, onFree) != 0;
        held = mostHeld = 0;
        measuring = true;
    }
    ~Memory() { measuring = false; }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    /// The most bytes that were held at once.
    [[nodiscard]] std::size_t most() const { return static_cast<std::size_t>(mostHeld); }

private:
    static void onMalloc(const volatile void*, std::size_t size) {
        if (measuring) {
            held += static_cast<std::ptrdiff_t>(size);
            mostHeld = std::max(mostHeld, held);
        }
    }
    static void onFree(const volatile void* pointer) {
        if (measuring && pointer != nullptr) {
            held -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(pointer));
        }
    }

    static inline bool measuring = false;
    static inline std::ptrdiff_t held = 0;
    static inline std::ptrdiff_t mostHeld = 0;
};

} // namespace camera::fuzz
