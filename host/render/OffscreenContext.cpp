// SPDX-License-Identifier: Apache-2.0
#include "host/render/OffscreenContext.h"

#include <cstdlib>
#include <initializer_list>
#include <string>

#include <dlfcn.h>
#include <epoxy/egl.h>

namespace qel::host {
namespace {

/// epoxy ends the process when it does not find the libraries it forwards to, so they are looked for first.
void requireLibrary(std::initializer_list<const char*> names) {
    for (const char* name : names) {
        if (void* handle = dlopen(name, RTLD_LAZY | RTLD_LOCAL)) {
            dlclose(handle);
            return;
        }
    }
    throw GraphicsError(std::string("no OpenGL driver: ") + *names.begin() + " is not installed");
}

[[noreturn]] void fail(const std::string& what) { throw GraphicsError("no OpenGL driver: " + what); }

} // namespace

struct OffscreenContext::Handles {
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLContext context = EGL_NO_CONTEXT;

    ~Handles() {
        if (display == EGL_NO_DISPLAY) {
            return;
        }
        eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        if (context != EGL_NO_CONTEXT) {
            eglDestroyContext(display, context);
        }
        // The display is the process's, and EGL does not count who uses it: to end it would end every other context.
    }
};

OffscreenContext::OffscreenContext() : mHandles(std::make_unique<Handles>()) {
    requireLibrary({"libEGL.so.1"});
    requireLibrary({"libOpenGL.so.0", "libGL.so.1"});
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 0);
    setenv("EGL_LOG_LEVEL", "fatal", 0); // what goes wrong is said once, by the exception

    if (!epoxy_has_egl_extension(EGL_NO_DISPLAY, "EGL_MESA_platform_surfaceless")) {
        fail("Mesa's EGL, which draws without a display, is not installed");
    }
    mHandles->display = eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (mHandles->display == EGL_NO_DISPLAY || eglInitialize(mHandles->display, nullptr, nullptr) == EGL_FALSE) {
        fail("EGL cannot start Mesa's software renderer");
    }
    if (eglBindAPI(EGL_OPENGL_API) == EGL_FALSE) {
        fail("EGL offers no OpenGL");
    }
    // Pictures are drawn into buffers of our own, so that no configuration of a surface is asked for.
    constexpr EGLint attributes[] = {
        EGL_CONTEXT_MAJOR_VERSION,           3,       EGL_CONTEXT_MINOR_VERSION, 3, EGL_CONTEXT_OPENGL_PROFILE_MASK,
        EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT, EGL_NONE};
    mHandles->context = eglCreateContext(mHandles->display, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, attributes);
    if (mHandles->context == EGL_NO_CONTEXT) {
        fail("OpenGL 3.3 is not offered");
    }
    if (eglMakeCurrent(mHandles->display, EGL_NO_SURFACE, EGL_NO_SURFACE, mHandles->context) == EGL_FALSE) {
        fail("OpenGL cannot draw without a surface");
    }
}

OffscreenContext::~OffscreenContext() = default;

} // namespace qel::host
