// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "support/AllCalls.h"
#include "support/LoadedModule.h"

namespace qel::api::camera::test {

namespace {

constexpr std::size_t threadCount = 16;
constexpr std::size_t rounds = 20;

class Threads : public ::testing::Test {
protected:
    Threads() {
        for (const PreparedCall& call : mCalls) {
            mExpected.push_back(call.run(*mService));
        }
    }

    /// All operations, over and over, each thread from another slot on; says how many results were not, bit for bit,
    /// those of a single thread.
    [[nodiscard]] std::size_t differencesOf(CameraAPIIf& camera, const std::size_t thread) const {
        std::size_t differences = 0;
        for (std::size_t i = 0; i < rounds * mCalls.size(); ++i) {
            const std::size_t slot = (i * 7 + thread * 5) % mCalls.size();
            differences += std::size_t(mCalls[slot].run(camera) != mExpected[slot]);
        }
        return differences;
    }

    /// Runs differencesOf in all threads at once; cameraOfThread(thread) is the service that a thread uses.
    template <class CameraOfThread>
    void expectNoDifferences(const CameraOfThread& cameraOfThread) {
        std::atomic<bool> go = false;
        std::vector<std::size_t> differences(threadCount, 1);
        std::vector<std::thread> threads;
        for (std::size_t thread = 0; thread < threadCount; ++thread) {
            threads.emplace_back([&, thread] {
                go.wait(false);
                differences[thread] = differencesOf(cameraOfThread(thread), thread);
            });
        }
        go = true;
        go.notify_all();
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(differences, std::vector<std::size_t>(threadCount, 0));
    }

    LoadedService mService;
    std::vector<PreparedCall> mCalls = allCalls(Samples(*mService));
    std::vector<std::string> mExpected;
};

TEST_F(Threads, ShareOneInstance) {
    expectNoDifferences([&](std::size_t) -> CameraAPIIf& { return *mService; });
}

TEST_F(Threads, UseSeveralInstancesWhileOthersComeAndGo) {
    std::vector<std::unique_ptr<base::BaseAPIIf>> instances;
    for (std::size_t i = 0; i < 3; ++i) {
        instances.push_back(mService.module().create());
    }
    std::atomic<bool> stop = false;
    std::size_t wrongNames = 0;
    std::thread others([&] {
        while (!stop) {
            const std::unique_ptr<base::BaseAPIIf> instance = mService.module().create();
            base::StringResult name;
            instance->getComponentName(name);
            wrongNames += std::size_t(name.mValue != "CameraAPI");
        }
    });
    expectNoDifferences(
        [&](const std::size_t thread) -> CameraAPIIf& { return cameraOf(instances[thread % instances.size()].get()); });
    stop = true;
    others.join();
    EXPECT_EQ(wrongNames, 0U);
}

TEST_F(Threads, LoadAndUnloadWhileOthersWork) {
    std::atomic<bool> stop = false;
    std::size_t differences = 0;
    std::thread others([&] {
        while (!stop) {
            const LoadedService another;
            differences += std::size_t(mCalls.front().run(*another) != mExpected.front());
        }
    });
    expectNoDifferences([&](std::size_t) -> CameraAPIIf& { return *mService; });
    stop = true;
    others.join();
    EXPECT_EQ(differences, 0U);
}

} // namespace

} // namespace qel::api::camera::test
