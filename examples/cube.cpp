// SPDX-License-Identifier: Apache-2.0
// A cube in a window: the left button orbits, the right button pans, the wheel zooms.
#include <cmath>
#include <cstdlib>
#include <iostream>

#include <GLFW/glfw3.h>
#include <qel/api/camera/CameraAPIIf.h>
#include <qel/host/ComponentLoader.h>

using namespace qel::api::camera;

CameraAPIIf* service = nullptr;        // the component, which keeps nothing between calls
PlanarCameraStateResult camera;        // the camera is a value, and it is ours
std::int32_t cursorX = 0, cursorY = 0; // the pixel under the cursor, counted from the lower left
float depth = 1;                       // of what the mouse took hold of: 0 at the near plane, 1 at the far plane

// A Matrix holds rows, OpenGL takes column after column. (In a shader's uniforms: glUniformMatrix4fv with GL_TRUE.)
void loadMatrix(GLenum mode, const Matrix& matrix) {
    double columns[16];
    for (std::size_t i = 0; i < 16; ++i) {
        columns[i] = matrix.mData[i % 4][i / 4];
    }
    glMatrixMode(mode);
    glLoadMatrixd(columns);
}

void draw() {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    loadMatrix(GL_PROJECTION, camera.mValue.mProjectionState.mProjectionMatrix);
    loadMatrix(GL_MODELVIEW, camera.mValue.mViewState.mViewMatrix);
    glBegin(GL_QUADS);
    for (int i = 0; i < 24; ++i) { // four corners of six faces, two across each axis
        double corner[3];
        corner[i / 8] = i % 8 < 4 ? -1 : 1;
        corner[(i / 8 + 1) % 3] = i % 4 < 2 ? -1 : 1;
        corner[(i / 8 + 2) % 3] = (i + 1) % 4 < 2 ? -1 : 1;
        glColor3dv(corner); // x, y and z as red, green and blue
        glVertex3dv(corner);
    }
    glEnd();
}

void onMove(GLFWwindow* window, double right, double down) {
    int width = 0, height = 0;
    glfwGetWindowSize(window, &width, &height); // like right and down, in units that may be several pixels each
    const double pixels = camera.mValue.mSurfaceState.mResolutionX / width;
    const auto x = std::int32_t(std::floor(right * pixels));
    const auto y = std::int32_t(std::ceil((height - down) * pixels)) - 1;
    if (glfwGetMouseButton(window, GLFW_MOUSE_BUTTON_LEFT) == GLFW_PRESS) {
        Vector centre;
        centre.mData = {0, 0, 0};
        service->planarCameraArcballRotation(camera, camera.mValue, centre, cursorX, cursorY, x, y);
    } else if (glfwGetMouseButton(window, GLFW_MOUSE_BUTTON_RIGHT) == GLFW_PRESS) {
        service->planarCameraPanWithAnchor(camera, camera.mValue, cursorX, cursorY, depth, x - cursorX, y - cursorY);
    }
    cursorX = x, cursorY = y;
}

void takeHold() {
    draw(); // again, as the depths of the last picture may have gone to the screen with it
    glReadPixels(cursorX, cursorY, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
}

int main(int count, char** arguments) try {
    const qel::host::ComponentLoader component(count > 1 ? arguments[1] : "CameraLibrary.so"); // the module's file
    service = &component.camera();
    glfwSetErrorCallback([](int, const char* text) { std::cerr << text << '\n', std::exit(1); });
    glfwInit();
    GLFWwindow* window = glfwCreateWindow(800, 600, "Cube", nullptr, nullptr);
    glfwMakeContextCurrent(window);
    glEnable(GL_DEPTH_TEST);
    const auto onResize = [](GLFWwindow*, int width, int height) {
        glViewport(0, 0, width, height);
        service->planarCameraUpdateWindowSize(camera, camera.mValue, width, height);
    };
    glfwSetFramebufferSizeCallback(window, onResize);
    glfwSetCursorPosCallback(window, onMove);
    glfwSetMouseButtonCallback(window, [](GLFWwindow*, int, int, int) { takeHold(); });
    glfwSetScrollCallback(window, [](GLFWwindow*, double, double up) {
        takeHold();
        service->planarCameraZoomWithAnchor_Screen(camera, camera.mValue, cursorX, cursorY, depth, std::pow(0.9, up));
    });
    service->planarCameraCreateDefault(camera);
    int width = 0, height = 0;
    glfwGetFramebufferSize(window, &width, &height);
    onResize(window, width, height);
    service->planarCameraYawPitchRoll(camera, camera.mValue, 0.6, -0.5, 0);
    service->planarCameraFitWorldSpaceBoundingBox(camera, camera.mValue, -1, -1, -1, 1, 1, 1);
    while (!glfwWindowShouldClose(window) && camera.mResult.mError == 0) {
        draw();
        glfwSwapBuffers(window);
        glfwWaitEvents();
    }
    return camera.mResult.mError;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
