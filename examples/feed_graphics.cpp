// SPDX-License-Identifier: Apache-2.0
// A camera's matrices as OpenGL, Vulkan and Direct3D take them.
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/host/ComponentLoader.h>

using namespace qel::api::camera;

/// a * b, in doubles: large coordinates cancel here and not in the graphics card's floats.
Matrix product(const Matrix& a, const Matrix& b) {
    Matrix result;
    result.mData.assign(4, std::vector<double>(4));
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            for (std::size_t i = 0; i < 4; ++i) {
                result.mData[row][column] += a.mData[row][i] * b.mData[i][column];
            }
        }
    }
    return result;
}

// [columns]
using Columns = std::array<float, 16>;

/// Column after column, as GLSL and HLSL store a matrix: glUniformMatrix4fv(location, 1, GL_FALSE, columns.data()).
Columns columnsOf(const Matrix& matrix) {
    Columns columns{};
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            columns[4 * column + row] = static_cast<float>(matrix.mData[row][column]);
        }
    }
    return columns;
}
// [/columns]

// [depth]
/// Clip z from -w..w (OpenGL) to 0..w (Vulkan, Direct3D, Metal): z' = (z + w) / 2.
Matrix withDepthFromZero(Matrix projection) {
    for (std::size_t column = 0; column < 4; ++column) {
        projection.mData[2][column] = (projection.mData[2][column] + projection.mData[3][column]) / 2;
    }
    return projection;
}

/// Clip y downwards, as Vulkan has it; Direct3D and Metal keep it upwards. Front faces turn their winding.
Matrix withYDown(Matrix projection) {
    for (double& value : projection.mData[1]) {
        value = -value;
    }
    return projection;
}
// [/depth]

void expect(bool condition, const std::string& what) {
    if (!condition) {
        throw std::logic_error("not so: " + what);
    }
}

struct Seen {
    double x, y, depth; // normalised device coordinates
};

/// What a vertex shader and the division after it make of a point.
Seen seen(const Columns& m, const std::array<double, 3>& p) {
    std::array<double, 4> clip{};
    for (std::size_t row = 0; row < 4; ++row) {
        clip[row] = m[row] * p[0] + m[4 + row] * p[1] + m[8 + row] * p[2] + m[12 + row];
    }
    return {clip[0] / clip[3], clip[1] / clip[3], clip[2] / clip[3]};
}

bool near(double a, double b) { return std::abs(a - b) < 1e-4; }

void use(CameraAPIIf& service) {
    PlanarCameraStateResult camera;
    service.planarCameraCreateDefault(camera);
    service.planarCameraUpdateWindowSize(camera, camera.mValue, 1280, 720);
    service.planarCameraFitWorldSpaceBoundingBox(camera, camera.mValue, -1, -1, -1, 1, 1, 1);
    Vector corner;
    corner.mData = {1, 1, 0.5};
    VectorResult pixel;
    service.transformWorldPointToScreenPoint(pixel, camera.mValue, corner);
    const double x = pixel.mValue.mData[0] / 1280 * 2 - 1;
    const double y = pixel.mValue.mData[1] / 720 * 2 - 1;
    const double depth = pixel.mValue.mData[2];
    const double pixelSize = 2.0 / 720;

    // [use]
    const Matrix& view = camera.mValue.mViewState.mViewMatrix;
    const Matrix& projection = camera.mValue.mProjectionState.mProjectionMatrix;

    const Columns openGL = columnsOf(product(projection, view));
    const Columns direct3D = columnsOf(product(withDepthFromZero(projection), view));
    const Columns vulkan = columnsOf(product(withYDown(withDepthFromZero(projection)), view));
    // [/use]

    const std::array<double, 3> point{1, 1, 0.5};
    const Seen gl = seen(openGL, point);
    expect(std::abs(gl.x - x) <= pixelSize && std::abs(gl.y - y) <= pixelSize, "OpenGL meets the service's pixel");
    expect(near((gl.depth + 1) / 2, depth), "OpenGL's depth is (z + 1) / 2");
    const Seen d3d = seen(direct3D, point);
    expect(near(d3d.x, gl.x) && near(d3d.y, gl.y) && near(d3d.depth, depth), "Direct3D has the depth as its z");
    const Seen vk = seen(vulkan, point);
    expect(near(vk.x, gl.x) && near(vk.y, -gl.y) && near(vk.depth, depth), "Vulkan has y the other way round");
}

int main(int count, char** arguments) try {
    const qel::host::ComponentLoader component(count > 1 ? arguments[1] : "CameraLibrary.so"); // the module's file
    use(component.camera());
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
}
