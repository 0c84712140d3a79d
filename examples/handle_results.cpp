// SPDX-License-Identifier: Apache-2.0
// What a host does with the outcome of a call, and how it uses records again.
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/host/ComponentLoader.h>

using namespace qel::api::camera;

// [call]
/// Calls one operation, such as &CameraAPIIf::planarCameraYaw, and throws what it reports.
template <class Operation, class Result, class... Arguments>
void call(CameraAPIIf& service, Operation operation, Result& result, const Arguments&... arguments) {
    result.mResult.mError = 0; // success leaves the outcome as it was
    (service.*operation)(result, arguments...);
    if (result.mResult.mError != CameraAPIError::CAMERA_API_SUCCESS) {
        throw std::runtime_error(result.mResult.mMessage); // empty when there was no memory even for the message
    }
}
// [/call]

// [next]
/// Holds a good camera and the record that the next call writes into. Once both are warm, success allocates nothing.
struct Camera {
    PlanarCameraState state;
    PlanarCameraStateResult next;

    template <class Operation, class... Arguments>
    void change(CameraAPIIf& service, Operation operation, const Arguments&... arguments) {
        call(service, operation, next, state, arguments...);
        swap(state, next.mValue); // only after success
    }
};
// [/next]

void expect(bool condition, const std::string& what) {
    if (!condition) {
        throw std::logic_error("not so: " + what);
    }
}

void use(CameraAPIIf& service) {
    // [fails]
    ViewState forgotten; // has no blob: nothing was created
    Vector eye;
    eye.mData = {1, 2, 3};
    ViewStateResult view;
    service.viewSetEye(view, forgotten, eye);
    std::cout << view.mResult << '\n';
    // ServiceResult(mError=-1, mMessage=Call to viewSetEye() failed.)

    service.viewCreateDefault(view);
    std::cout << view.mResult.mError << '\n'; // still -1: a success does not clear it
    view.mResult = {};
    service.viewSetEye(view, view.mValue, eye);
    std::cout << view.mResult.mError << '\n'; // 0
    // [/fails]
    expect(view.mResult.mError == 0 && view.mValue.mEye == eye, "a reset result tells of success");

    // [alias]
    PlanarCameraStateResult camera;
    service.planarCameraCreateDefault(camera);
    service.planarCameraYaw(camera, camera.mValue, 0.05); // radians; the view turns by twice that
    service.planarCameraZoomWithAnchor_Screen(camera, camera.mValue, 320, 240, 0.5, 0.9);
    // [/alias]
    expect(camera.mResult.mError == 0, "input and output may be the same record");

    Camera kept;
    kept.state = camera.mValue;
    kept.change(service, &CameraAPIIf::planarCameraYaw, -0.05);
    const PlanarCameraState good = kept.state;
    try {
        kept.change(service, &CameraAPIIf::planarCameraTranslateInWorldSpace, Vector());
        expect(false, "a vector without values fails");
    } catch (const std::runtime_error& error) {
        expect(error.what() == std::string("Call to planarCameraTranslateInWorldSpace() failed."), error.what());
    }
    expect(kept.state.mPrivate == good.mPrivate, "a failed call leaves the camera alone");
}

int main(int count, char** arguments) try {
    const qel::host::ComponentLoader component(count > 1 ? arguments[1] : "CameraLibrary.so"); // the module's file
    use(component.camera());
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
}
