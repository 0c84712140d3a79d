// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/SavedStates.h"

namespace qel::api::camera::test {

namespace {

/// A folder of its own, gone with the object.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "camera-states-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        mPath = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string file(const char* name) const { return (mPath / name).string(); }

private:
    std::filesystem::path mPath;
};

/// Runs a command, its program looked for where a shell would, to its end and gives its exit code.
int run(std::vector<std::string> command) {
    std::vector<char*> arguments;
    for (std::string& argument : command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ) != 0) {
        return -1;
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// States that many operations have gone over: kind words, matrices and rounding are no longer those of new ones.
Samples travelled(CameraAPIIf& service) {
    Samples samples(service);
    ViewStateResult view;
    view.mValue = samples.view;
    ProjectionStateResult projection;
    projection.mValue = samples.projection;
    PlanarCameraStateResult camera;
    camera.mValue = samples.planarCamera;
    for (int i = 1; i <= 20; ++i) {
        service.viewYawPitchRoll(view, view.mValue, 0.1 * i, -0.2, 0.3);
        service.viewTranslateInViewSpace(view, view.mValue, vectorOf(0.1, 0.2 * i, -0.3));
        service.projectionZoom(projection, projection.mValue, 1.01);
        service.planarCameraArcballRotation(camera, camera.mValue, vectorOf(0.1, 0.2, 0.3), 300, 200, 310 + i, 190);
        service.planarCameraZoomWithAnchor_Screen(camera, camera.mValue, 123, 234, 0.7, 0.98);
        service.planarCameraYaw(camera, camera.mValue, 0.01 * i);
    }
    samples.view = view.mValue;
    samples.projection = projection.mValue;
    samples.planarCamera = camera.mValue;
    return samples;
}

TEST(SavedState, RestoredInAnotherProcessGivesTheSameBitForBit) {
    const LoadedService service;
    const Samples samples = travelled(*service);
    const TemporaryFolder folder;
    save(imagesOf(samples), folder.file("states"));

    ASSERT_EQ(run({CAMERA_USE_SAVED_STATES, folder.file("states"), folder.file("results")}), 0);

    const std::string results = load(folder.file("results"));
    EXPECT_GT(results.size(), 79U * 8U);
    EXPECT_EQ(results, resultsOf(*service, samples)) << "of states that never left";
}

TEST(SavedState, ResultsTellStatesApart) {
    // The counterpart, so that equal results mean something.
    const LoadedService service;
    const Samples samples = travelled(*service);
    Samples other = samples;
    other.planarCamera.mPrivate[24 + 360] ^= 1; // the last bit of the eye's x
    EXPECT_NE(resultsOf(*service, other), resultsOf(*service, samples));
}

} // namespace

} // namespace qel::api::camera::test
