// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/console/Json.h"
#include "host/show/StateReport.h"

namespace qel::host {

/// Tells of the state that is written as this JSON, of whichever kind it is, or of the one in a result, even in that of
/// a call that failed. Throws JsonError where there is no state.
StateReport reportState(const Json& json);

} // namespace qel::host
