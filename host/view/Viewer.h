// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>

namespace qel::host {

/// What the mouse and the keys do, a line each.
std::string viewControls();

/// Opens a window with the model and returns when it is closed. The component is loaded from `module`; cameras are
/// saved to and loaded from `stateFile`. Throws where there is no model, no component or no window to be had.
void view(const std::filesystem::path& model, const std::filesystem::path& module,
          const std::filesystem::path& stateFile);

} // namespace qel::host
