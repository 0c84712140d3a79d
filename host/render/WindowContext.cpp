// SPDX-License-Identifier: Apache-2.0
#include "host/render/WindowContext.h"

#include <cmath>
#include <string>

#include <GLFW/glfw3.h>

#include "host/render/OffscreenContext.h"

namespace qel::host {

Pixel pixelUnder(double right, double down, double scale, int height) {
    return {static_cast<std::int32_t>(std::floor(right * scale)),
            height - 1 - static_cast<std::int32_t>(std::floor(down * scale))};
}

namespace {

[[noreturn]] void fail() {
    const char* words = nullptr;
    glfwGetError(&words);
    const std::string reason = words != nullptr ? words : "GLFW gives no reason";
    throw GraphicsError("no window: " + reason);
}

} // namespace

WindowContext::WindowContext(int width, int height, const char* title) {
    if (glfwInit() == GLFW_FALSE) {
        fail();
    }
    glfwWindowHint(GLFW_CONTEXT_VERSION_MAJOR, 3);
    glfwWindowHint(GLFW_CONTEXT_VERSION_MINOR, 3);
    glfwWindowHint(GLFW_OPENGL_PROFILE, GLFW_OPENGL_CORE_PROFILE);
    glfwWindowHint(GLFW_OPENGL_FORWARD_COMPAT, GLFW_TRUE);
    mWindow = glfwCreateWindow(width, height, title, nullptr, nullptr);
    if (mWindow == nullptr) {
        fail();
    }
    glfwMakeContextCurrent(mWindow);
}

// GLFW is the process's, and does not count who uses it: to end it would end every other window.
WindowContext::~WindowContext() { glfwDestroyWindow(mWindow); }

int WindowContext::width() const {
    int width = 0;
    glfwGetFramebufferSize(mWindow, &width, nullptr);
    return width;
}

int WindowContext::height() const {
    int height = 0;
    glfwGetFramebufferSize(mWindow, nullptr, &height);
    return height;
}

Pixel WindowContext::pixelUnder(double right, double down) const {
    int units = 0;
    glfwGetWindowSize(mWindow, &units, nullptr);
    return host::pixelUnder(right, down, units > 0 ? static_cast<double>(width()) / units : 1.0, height());
}

} // namespace qel::host
