// SPDX-License-Identifier: Apache-2.0
#include "host/view/Viewer.h"

#include <cstdio>
#include <exception>

#include <GLFW/glfw3.h>
#include <qel/host/ComponentLoader.h>

#include "host/render/Renderer.h"
#include "host/render/WindowContext.h"
#include "host/scene/Mesh.h"
#include "host/state/StateFile.h"
#include "host/view/Navigator.h"

namespace qel::host {
namespace {

struct Viewer {
    WindowContext& context;
    Renderer& renderer;
    std::filesystem::path stateFile;
    Navigator navigator;
    Pixel cursor{};
    int button = -1;   ///< that a drag began with
    bool stale = true; ///< the window shows something else than the camera sees

    void draw() {
        Strokes strokes;
        if (navigator.dragged() == Navigator::Drag::area) {
            addRectangle(strokes, navigator.from(), cursor, firstMark);
        }
        renderer.show(navigator.camera(), strokes);
        glfwSwapBuffers(context.window());
        stale = false;
    }

    void onMove(double right, double down) {
        cursor = context.pixelUnder(right, down);
        navigator.drag(cursor);
        stale = stale || navigator.dragged();
    }

    void onButton(int which, int action, int modifiers) {
        if (action == GLFW_PRESS && !navigator.dragged()) {
            const auto left = (modifiers & GLFW_MOD_SHIFT) != 0 ? Navigator::Drag::area : Navigator::Drag::rotate;
            navigator.beginDrag(which == GLFW_MOUSE_BUTTON_LEFT ? left : Navigator::Drag::pan, cursor);
            button = which;
        } else if (action == GLFW_RELEASE && which == button) {
            navigator.endDrag(cursor);
        }
        stale = true;
    }

    void onWheel(double /*sideways*/, double turns) {
        navigator.zoom(cursor, turns);
        stale = true;
    }

    void onResize(int width, int height) {
        navigator.resize(width, height);
        stale = true;
    }

    void onRefresh() { stale = true; }
    void onCharacter(unsigned int character);
};

struct Key {
    char key;
    const char* use;
    void (*act)(Viewer&);
    const char* done = nullptr; ///< with the file, where there is something to be told
};

/// Along an axis, with y up; or, where that is the axis, as if one had bent forwards or backwards from the front.
template <int x, int y, int z>
void look(Viewer& viewer) {
    viewer.navigator.look({x, y, z}, x == 0 && z == 0 ? Vec3{0, 0, y} : Vec3{0, 1, 0});
}

constexpr Key keys[] = {
    {'1', "view from the front", look<0, 0, -1>},
    {'2', "view from the back", look<0, 0, 1>},
    {'3', "view from the left", look<1, 0, 0>},
    {'4', "view from the right", look<-1, 0, 0>},
    {'5', "view from the top", look<0, -1, 0>},
    {'6', "view from the bottom", look<0, 1, 0>},
    {'7', "isometric view", look<-1, -1, -1>},
    {'p', "perspective or orthographic", [](Viewer& viewer) { viewer.navigator.switchProjection(); }},
    {'f', "fit the model into the window", [](Viewer& viewer) { viewer.navigator.fit(); }},
    {'u', "undo", [](Viewer& viewer) { viewer.navigator.undo(); }},
    {'r', "redo", [](Viewer& viewer) { viewer.navigator.redo(); }},
    {'s', "save", [](Viewer& viewer) { writeState(viewer.navigator.camera(), viewer.stateFile); }, "saved"},
    {'l', "load", [](Viewer& viewer) { viewer.navigator.restore(readState(viewer.stateFile)); }, "loaded"},
    {'h', "list the keys", [](Viewer&) { std::puts(viewControls().c_str()); }},
    {'?', "the same", [](Viewer&) { std::puts(viewControls().c_str()); }},
    {'q', "quit", [](Viewer& viewer) { glfwSetWindowShouldClose(viewer.context.window(), GLFW_TRUE); }},
};

void Viewer::onCharacter(unsigned int character) {
    for (const Key& key : keys) {
        if (character == static_cast<unsigned int>(key.key)) {
            key.act(*this);
            if (key.done != nullptr) {
                std::printf("%s %s\n", key.done, stateFile.c_str());
                std::fflush(stdout);
            }
            stale = true;
        }
    }
}

/// Calls a member of the viewer and tells what it throws: no exception may pass through GLFW, which is C.
template <auto callback, class... Arguments>
void call(GLFWwindow* window, Arguments... arguments) {
    try {
        (static_cast<Viewer*>(glfwGetWindowUserPointer(window))->*callback)(arguments...);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "camera: %s\n", error.what());
    }
}

} // namespace

std::string viewControls() {
    std::string text = "left drag           turn about the point under the cursor\n"
                       "other drag          move the point under the cursor\n"
                       "shift + left drag   draw a rectangle that fills the window then\n"
                       "wheel               zoom about the point under the cursor, out to 120 degrees (perspective)\n";
    for (const Key& key : keys) {
        text += key.key + std::string(19, ' ') + key.use + "\n";
    }
    return text;
}

void view(const std::filesystem::path& model, const std::filesystem::path& module,
          const std::filesystem::path& stateFile) {
    const Mesh mesh = loadMesh(model);
    const ComponentLoader component(module);
    WindowContext context(960, 640, model.filename().c_str());
    Renderer renderer(mesh);
    const auto depthAt = [&renderer](const auto& camera, Pixel at) { return renderer.drawDepth(camera, at); };
    Viewer viewer{context, renderer, stateFile,
                  Navigator(component.camera(), mesh.box, context.width(), context.height(), depthAt)};

    GLFWwindow* window = context.window();
    glfwSetWindowUserPointer(window, &viewer);
    glfwSetWindowRefreshCallback(window, call<&Viewer::onRefresh>);
    glfwSetFramebufferSizeCallback(window, call<&Viewer::onResize>);
    glfwSetCursorPosCallback(window, call<&Viewer::onMove>);
    glfwSetMouseButtonCallback(window, call<&Viewer::onButton>);
    glfwSetScrollCallback(window, call<&Viewer::onWheel>);
    glfwSetCharCallback(window, call<&Viewer::onCharacter>);
    while (glfwWindowShouldClose(window) == GLFW_FALSE) {
        if (viewer.stale) {
            viewer.draw();
        }
        glfwWaitEvents();
    }
}

} // namespace qel::host
