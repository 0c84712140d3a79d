// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/base/Records.h>

#include "component/Failure.h"

namespace qel::api::camera::component {

// What the three operations that say who the component is have in common. Their texts are short enough to need no
// memory, so that a host never sees them fail; longer ones would.

inline constexpr Failure versionFailure = Failure::withText("Unable to get component version.");
inline constexpr Failure variantFailure = Failure::withText("Unable to get component variant.");
inline constexpr Failure nameFailure = Failure::withText("Unable to get component name.");

/// Replaces the whole result, so that an older error in it is gone; on failure the value is left alone.
void identify(base::StringResult& _return, const char* value, Failure failure) noexcept;

} // namespace qel::api::camera::component
