// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qel::api::camera::test {

// A sanitizer adds libraries, replaces the heap, and keeps memory of its own.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool sanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
inline constexpr bool sanitized = true;
#else
inline constexpr bool sanitized = false;
#endif
#else
inline constexpr bool sanitized = false;
#endif

} // namespace qel::api::camera::test
