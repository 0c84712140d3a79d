// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <qel/api/base/Records.h>
#include <qel/api/camera/CameraAPIIf.h>

#include "host/console/Input.h"

namespace qel::host {

/// What an operation left behind.
struct CallOutcome {
    std::string json; ///< the whole result record, laid out
    api::base::ServiceResult status;
};

/// A call whose arguments are read and which waits for a service.
using Call = std::function<CallOutcome(api::camera::CameraAPIIf& service)>;

/// Reads the arguments of an operation, given by its name, and makes the call of them. Throws ArgumentError, whose text
/// names the operation and the argument, for an operation that there is not, for too few or too many arguments, and for
/// one that cannot be read.
Call prepareCall(const std::string& operation, const std::vector<std::string>& arguments, Input& input);

} // namespace qel::host
