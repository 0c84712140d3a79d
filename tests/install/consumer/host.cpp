// SPDX-License-Identifier: Apache-2.0
// A host that has the installed package and nothing else: it loads the module, moves the camera by way of its bytes,
// and says where a corner of a box lands.
#include <iostream>
#include <memory>

#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/transport/TBufferTransports.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/host/ComponentLoader.h>

using namespace qel::api::camera;

namespace {

PlanarCameraState sentThroughThrift(const PlanarCameraState& state) {
    const auto buffer = std::make_shared<apache::thrift::transport::TMemoryBuffer>();
    apache::thrift::protocol::TCompactProtocol protocol(buffer);
    state.write(&protocol);
    PlanarCameraState received;
    received.read(&protocol);
    return received;
}

} // namespace

int main(int count, char** arguments) try {
#ifdef CAMERA_MODULE
    const qel::host::ComponentLoader component(count > 1 ? arguments[1] : CAMERA_MODULE);
#else
    const qel::host::ComponentLoader component(count > 1 ? arguments[1] : "");
#endif
    qel::api::base::StringResult version;
    component.base().getComponentVersion(version);

    CameraAPIIf& service = component.camera();
    PlanarCameraStateResult camera;
    service.planarCameraCreateDefault(camera);
    service.planarCameraUpdateWindowSize(camera, camera.mValue, 1280, 720);
    service.planarCameraFitWorldSpaceBoundingBox(camera, camera.mValue, -1, -1, -1, 1, 1, 1);

    Vector corner;
    corner.mData = {1, 1, 1};
    VectorResult pixel;
    service.transformWorldPointToScreenPoint(pixel, sentThroughThrift(camera.mValue), corner);
    std::cout << version.mValue << " corner at pixel " << pixel.mValue << '\n';
    return camera.mResult.mError != 0 || pixel.mResult.mError != 0 ? 1 : 0;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
