// SPDX-License-Identifier: Apache-2.0
#include <iostream>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/host/ComponentLoader.h>

using namespace qel::api::camera;

int main(int count, char** arguments) try {
    const qel::host::ComponentLoader component(count > 1 ? arguments[1] : "CameraLibrary.so"); // the module's file
    CameraAPIIf& service = component.camera();

    PlanarCameraStateResult camera; // the host keeps the state, the service only transforms it
    service.planarCameraCreateDefault(camera);
    service.planarCameraUpdateWindowSize(camera, camera.mValue, 1280, 720);
    service.planarCameraFitWorldSpaceBoundingBox(camera, camera.mValue, -1, -1, -1, 1, 1, 1);

    Vector corner;
    corner.mData = {1, 1, 1};
    VectorResult pixel;
    service.transformWorldPointToScreenPoint(pixel, camera.mValue, corner);
    std::cout << "eye " << camera.mValue.mViewState.mEye << "\ncorner at pixel " << pixel.mValue << '\n';
    return camera.mResult.mError != 0 || pixel.mResult.mError != 0 ? 1 : 0;
} catch (const qel::host::LoadError& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
