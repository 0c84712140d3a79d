// SPDX-License-Identifier: Apache-2.0
// States are values: a bookmark is a copy, undo is a stack of copies, a saved camera is its blob.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/host/ComponentLoader.h>

using namespace qel::api::camera;

// [undo]
/// Remembers a camera before each gesture (at mouse down, not at each mouse move).
class History {
public:
    void remember(const PlanarCameraState& camera) {
        mBefore.push_back(camera);
        mAfter.clear();
    }
    void undo(PlanarCameraState& camera) { step(mBefore, mAfter, camera); }
    void redo(PlanarCameraState& camera) { step(mAfter, mBefore, camera); }

private:
    using States = std::vector<PlanarCameraState>;

    static void step(States& from, States& to, PlanarCameraState& camera) {
        if (!from.empty()) {
            to.push_back(std::exchange(camera, from.back()));
            from.pop_back();
        }
    }

    States mBefore;
    States mAfter;
};
// [/undo]

// [save]
/// All that a camera is stands in its blob: 1080 bytes, the same on every machine.
void save(const PlanarCameraState& camera, const std::filesystem::path& file) {
    std::ofstream out(file, std::ios::binary);
    out << camera.mPrivate;
    out.close();
    if (!out) {
        throw std::runtime_error("cannot write " + file.string());
    }
}

/// The camera of a blob. A roll by nothing fills in the other fields; a blob that is too short fails.
PlanarCameraState load(CameraAPIIf& service, const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    PlanarCameraStateResult camera;
    camera.mValue.mPrivate.assign(std::istreambuf_iterator<char>(in), {});
    service.planarCameraRoll(camera, camera.mValue, 0.0);
    if (camera.mResult.mError != 0) {
        throw std::runtime_error(file.string() + " holds no camera");
    }
    return camera.mValue;
}
// [/save]

void expect(bool condition, const std::string& what) {
    if (!condition) {
        throw std::logic_error("not so: " + what);
    }
}

void use(CameraAPIIf& service, const std::filesystem::path& file) {
    PlanarCameraStateResult camera;
    service.planarCameraCreateDefault(camera);
    const PlanarCameraState first = camera.mValue;

    History history;
    history.remember(camera.mValue);
    service.planarCameraYaw(camera, camera.mValue, 0.1);
    const PlanarCameraState second = camera.mValue;
    history.undo(camera.mValue);
    expect(camera.mValue == first, "undo brings back the first camera");
    history.redo(camera.mValue);
    expect(camera.mValue == second, "redo brings back the second");

    // [bookmarks]
    std::map<std::string, PlanarCameraState> bookmarks;
    bookmarks["front door"] = camera.mValue;    // set
    camera.mValue = bookmarks.at("front door"); // go there
    // [/bookmarks]
    expect(camera.mValue == second, "a bookmark is the camera that it was set from");

    save(camera.mValue, file);
    expect(std::filesystem::file_size(file) == 1080, "a saved camera has 1080 bytes");
    expect(load(service, file) == second, "a loaded camera is the saved one, in every field and bit");
    std::ofstream(file, std::ios::binary) << "no camera";
    try {
        load(service, file);
        expect(false, "a short file fails");
    } catch (const std::runtime_error&) {
    }
    std::filesystem::remove(file);
}

int main(int count, char** arguments) try {
    const qel::host::ComponentLoader component(count > 1 ? arguments[1] : "CameraLibrary.so"); // the module's file
    use(component.camera(), count > 2 ? arguments[2] : "camera.saved");
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
}
