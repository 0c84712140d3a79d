// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/scene/Geometry.h"

struct GLFWwindow;

namespace qel::host {

/// The pixel under a cursor that is counted from a window's upper left corner in units of `scale` pixels each. `height`
/// is the window's in pixels.
Pixel pixelUnder(double right, double down, double scale, int height);

/// A window of the desktop with an OpenGL 3.3 core context, current on the thread that made it, which uses and destroys
/// it and has one at a time. Events come through GLFW's functions on window().
class WindowContext {
public:
    /// Throws GraphicsError, with GLFW's words, where there is no desktop or no such OpenGL.
    WindowContext(int width, int height, const char* title);
    ~WindowContext();

    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;

    [[nodiscard]] GLFWwindow* window() const { return mWindow; }
    /// In pixels, as is height(). Positions and sizes of a window itself are in units that may be several pixels each.
    [[nodiscard]] int width() const;
    [[nodiscard]] int height() const;
    /// Takes the cursor's position as the window tells it.
    [[nodiscard]] Pixel pixelUnder(double right, double down) const;

private:
    GLFWwindow* mWindow;
};

} // namespace qel::host
