// SPDX-License-Identifier: Apache-2.0
#include "component/Failure.h"

#include <string>

namespace qel::api::camera::component {

[[gnu::cold]] void reportFailure(base::ServiceResult& result, const std::int32_t error, const char* before,
                                 const char* operation, const char* after) noexcept {
    result.__set_mError(error);
    try {
        result.__set_mMessage(std::string(before) + operation + after);
    } catch (...) {
        result.mMessage.clear();
        result.__isset.mMessage = false;
    }
}

} // namespace qel::api::camera::component
