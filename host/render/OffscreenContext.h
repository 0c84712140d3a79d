// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <stdexcept>

namespace qel::host {

/// OpenGL cannot draw here, or failed while it drew.
class GraphicsError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An OpenGL 3.3 core context without a window, a display or a graphics card: Mesa's surfaceless platform with its
/// software renderer, so that pictures are the same on every machine (LIBGL_ALWAYS_SOFTWARE=0 in the environment
/// lets a card draw). Current on the thread that made it, which uses and destroys it and has one at a time.
class OffscreenContext {
public:
    /// Throws GraphicsError where there is no such driver.
    OffscreenContext();
    ~OffscreenContext();

    OffscreenContext(const OffscreenContext&) = delete;
    OffscreenContext& operator=(const OffscreenContext&) = delete;

private:
    struct Handles;
    std::unique_ptr<Handles> mHandles;
};

} // namespace qel::host
