// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

namespace qel::api::camera::test {

/// How often this thread has asked operator new for memory, from the program or from a module that it loaded. For
/// programs with AllocationCount.cpp among their sources.
std::size_t allocationCount();

} // namespace qel::api::camera::test
