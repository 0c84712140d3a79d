// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tests/component/support/Calls.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

/// One operation with arguments of its own.
struct PreparedCall {
    std::string name;
    std::function<std::string(CameraAPIIf&)> run; ///< every bit of a fresh result
};

/// A call of each operation in slot order. The calls hold copies of the arguments, and may run at the same time.
inline std::vector<PreparedCall> allCalls(const Samples& samples) {
    std::vector<PreparedCall> calls;
    forEachOperation([&](std::size_t, const auto& operation) {
        calls.push_back({std::string(operation.name),
                         [operation, arguments = samples.argumentsOf(operation)](CameraAPIIf& service) {
                             return fingerprint(callAfresh(service, operation, arguments));
                         }});
    });
    return calls;
}

} // namespace qel::api::camera::test
