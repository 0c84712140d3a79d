// SPDX-License-Identifier: Apache-2.0
#include "component/ReadState.h"

#include <stdexcept>
#include <string>

namespace qel::api::camera::component {

void throwShortBlob(const char* state, const std::size_t expected, const std::size_t size) {
    throw std::invalid_argument(std::string(state) + "::mPrivate: expected " + std::to_string(expected) +
                                " bytes, got " + std::to_string(size));
}

} // namespace qel::api::camera::component
