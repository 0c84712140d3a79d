// SPDX-License-Identifier: Apache-2.0
#include "component/Failure.h"

#include <string>

namespace qel::api::camera {

void Failure::report(base::ServiceResult& result) const noexcept {
    result.__set_mError(mError);
    try {
        result.__set_mMessage(std::string(mBefore) + mOperation + mAfter);
    } catch (...) {
        result.mMessage.clear();
        result.__isset.mMessage = false;
    }
}

} // namespace qel::api::camera
