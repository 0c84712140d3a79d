// SPDX-License-Identifier: Apache-2.0
// One service, many threads: each brings its own records.
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/host/ComponentLoader.h>

using namespace qel::api::camera;

// [threads]
/// The pixel of each point, worked out by some threads; the camera is read only, so they may share it.
std::vector<VectorResult> pixelsOf(CameraAPIIf& service, const PlanarCameraState& camera,
                                   const std::vector<Vector>& points, std::size_t threadCount) {
    std::vector<VectorResult> pixels(points.size());
    std::vector<std::thread> threads;
    for (std::size_t first = 0; first < threadCount; ++first) {
        threads.emplace_back([&, first] {
            for (std::size_t i = first; i < points.size(); i += threadCount) {
                service.transformWorldPointToScreenPoint(pixels[i], camera, points[i]);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return pixels;
}
// [/threads]

int main(int count, char** arguments) try {
    const qel::host::ComponentLoader component(count > 1 ? arguments[1] : "CameraLibrary.so"); // the module's file
    PlanarCameraStateResult camera;
    component.camera().planarCameraCreateDefault(camera);
    std::vector<Vector> points(1000);
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i].mData = {0.001 * static_cast<double>(i), 0.0, -5.0};
    }
    const auto alone = pixelsOf(component.camera(), camera.mValue, points, 1);
    const auto together = pixelsOf(component.camera(), camera.mValue, points, 4);
    if (alone != together || alone[0].mValue.mData[0] != 320.0) {
        throw std::logic_error("threads see other pixels");
    }
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
}
