// SPDX-License-Identifier: Apache-2.0
// A record through bytes, as it goes to another process.
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/transport/TBufferTransports.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/host/ComponentLoader.h>

int main(int count, char** arguments) try {
    const qel::host::ComponentLoader component(count > 1 ? arguments[1] : "CameraLibrary.so"); // the module's file
    qel::api::camera::PlanarCameraStateResult created;
    component.camera().planarCameraCreateDefault(created);
    const qel::api::camera::PlanarCameraState& state = created.mValue;

    // [carry]
    auto buffer = std::make_shared<apache::thrift::transport::TMemoryBuffer>();
    apache::thrift::protocol::TCompactProtocol protocol(buffer);

    state.write(&protocol); // returns the bytes written
    std::string bytes = buffer->getBufferAsString();

    qel::api::camera::PlanarCameraState copy;
    copy.read(&protocol); // returns the bytes read
    // [/carry]

    std::cout << "carried " << bytes.size() << " bytes\n";
    return copy == state ? EXIT_SUCCESS : EXIT_FAILURE;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
}
