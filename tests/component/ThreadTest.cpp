// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <barrier>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "tests/component/support/Calls.h"
#include "tests/host/TemporaryFolder.h"

namespace qel::api::camera::test {

namespace {

// Whatever two calls share shows when they overlap: with other arguments, hundreds of times, in the same operation and
// in different ones.

constexpr std::size_t threadCount = 16;
constexpr std::size_t callsAtOnce = CAMERA_TEST_CALLS_AT_ONCE; ///< of one operation in one thread

/// A copy of the module's file, which is loaded as a module of its own, and so unloaded for good.
class ModuleCopy {
public:
    ModuleCopy() { std::filesystem::copy_file(CAMERA_MODULE_FILE, mFile); }

    [[nodiscard]] const char* file() const { return mFile.c_str(); }

    [[nodiscard]] bool isLoaded() const {
        void* const handle = dlopen(file(), RTLD_NOW | RTLD_NOLOAD);
        if (handle != nullptr) {
            dlclose(handle);
        }
        return handle != nullptr;
    }

private:
    qel::host::test::TemporaryFolder mFolder;
    std::filesystem::path mFile = mFolder / "CameraLibrary.so";
};

/// Threads that do something over and over until this object goes.
class Meanwhile {
public:
    template <class Work>
    Meanwhile(const std::size_t count, const Work& work) {
        for (std::size_t i = 0; i < count; ++i) {
            mThreads.emplace_back([this, i, work] {
                do {
                    work(i);
                } while (!mStop);
            });
        }
    }
    ~Meanwhile() {
        mStop = true;
        for (std::thread& thread : mThreads) {
            thread.join();
        }
    }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    std::atomic<bool> mStop = false;
    std::vector<std::thread> mThreads;
};

/// Another argument of the same kind, with which an operation gives another result and does not fail. States differ
/// already.
struct Vary {
    void operator()(auto& /*state*/) const {}
    void operator()(double& value) const { value *= 1.125; }
    void operator()(std::int32_t& value) const { value += 7; }
    void operator()(ProjectionType::type& value) const { value = ProjectionType::PERSPECTIVE; }
    void operator()(Vector& vector) const { vector.mData = {vector.mData[0] + 0.125, vector.mData[1] - 0.25, 0.0625}; }
    void operator()(Quaternion& quaternion) const { quaternion.mData[0] += 0.125; }
    void operator()(Matrix& matrix) const { matrix.mData[0][3] += 0.125; }
    void operator()(Frustum& frustum) const { frustum.mNearDist *= 1.125; }
    void operator()(Viewport& viewport) const { viewport.mWidth *= 1.125; }
};

/// One operation with arguments and with the result that it gives when nothing else runs.
struct RepeatedCall {
    const AnyOperation* operation;
    Arguments arguments;
    AnyResult expected = operation->fresh;

    /// Calls it so many times and says how many results were others. May run in several threads at the same time.
    /// Every result is compared by its numbers, which is quick, so that most of the time goes into the module; the last
    /// one bit for bit.
    [[nodiscard]] std::size_t differences(CameraAPIIf& camera, const std::size_t times) const {
        std::size_t differences = 0;
        AnyResult result = operation->fresh;
        for (std::size_t i = 0; i < times; ++i) {
            call(camera, *operation, result, arguments);
            differences += std::size_t(result != expected);
        }
        return differences + std::size_t(fingerprint(result) != fingerprint(expected));
    }
};

class Threads : public ::testing::Test {
protected:
    /// Runs work(thread), which counts differences, in all threads at once.
    template <class Work>
    static void expectNoDifferences(const Work& work) {
        std::vector<std::size_t> differences(threadCount, 1);
        std::vector<std::thread> threads;
        for (std::size_t thread = 0; thread < threadCount; ++thread) {
            threads.emplace_back([&, thread] { differences[thread] = work(thread); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(differences, std::vector<std::size_t>(threadCount, 0));
    }

    /// All threads in the same operation at the same time, neighbours with different arguments, and so through all
    /// operations; cameraOfThread(thread) is the service that a thread uses.
    template <class CameraOfThread>
    void expectNoDifferencesInStep(const CameraOfThread& cameraOfThread) const {
        std::barrier together(static_cast<std::ptrdiff_t>(threadCount));
        expectNoDifferences([&](const std::size_t thread) {
            std::size_t differences = 0;
            for (const auto& sets : mCalls) {
                together.arrive_and_wait();
                differences += sets[thread % 2].differences(cameraOfThread(thread), callsAtOnce);
                differences += wrongIdentities(cameraOfThread(thread));
            }
            return differences;
        });
    }

    /// Each thread from another operation on, in an order that mixes them.
    [[nodiscard]] std::size_t differencesInTurn(CameraAPIIf& camera, const std::size_t thread) const {
        constexpr std::size_t turns = 10;
        std::size_t differences = 0;
        for (std::size_t i = 0; i < turns * mCalls.size(); ++i) {
            const auto& sets = mCalls[(i * 7 + thread * 5) % mCalls.size()];
            differences += sets[(thread + i) % 2].differences(camera, std::max<std::size_t>(callsAtOnce / 20, 1));
        }
        return differences;
    }

    /// The three operations that say who the component is.
    static std::size_t wrongIdentities(CameraAPIIf& camera) {
        std::array<base::StringResult, 3> results;
        camera.getComponentName(results[0]);
        camera.getComponentVariant(results[1]);
        camera.getComponentVersion(results[2]);
        return std::size_t(results[0].mValue != "CameraAPI" || !results[1].mValue.empty() ||
                           results[2].mValue != CAMERA_VERSION);
    }

    LoadedService mService;
    std::vector<std::array<RepeatedCall, 2>> mCalls = [&] {
        const Samples samples(*mService);
        const Samples others = otherSamples(*mService);
        std::vector<std::array<RepeatedCall, 2>> calls;
        for (const AnyOperation& operation : allOperations()) {
            Arguments varied = others.argumentsOf(operation);
            for (AnyArgument& argument : varied) {
                std::visit(Vary(), argument);
            }
            calls.push_back({RepeatedCall{&operation, samples.argumentsOf(operation)},
                             RepeatedCall{&operation, std::move(varied)}});
            for (RepeatedCall& each : calls.back()) {
                call(*mService, operation, each.expected, each.arguments);
                expectSuccess(each.expected);
            }
        }
        return calls;
    }();
};

TEST_F(Threads, CallsDifferInTheirResultsWhereTheyHaveArguments) {
    for (const auto& [first, second] : mCalls) {
        EXPECT_EQ(first.expected != second.expected, !first.arguments.empty()) << first.operation->name;
    }
}

TEST_F(Threads, ShareOneInstance) {
    expectNoDifferencesInStep([&](std::size_t) -> CameraAPIIf& { return *mService; });
}

TEST_F(Threads, ShareOneInstanceInDifferentOperations) {
    expectNoDifferences([&](const std::size_t thread) { return differencesInTurn(*mService, thread); });
}

TEST_F(Threads, UseSeveralInstancesWhileOthersComeAndGo) {
    std::array<std::unique_ptr<base::BaseAPIIf>, 3> instances;
    for (auto& instance : instances) {
        instance = mService.module().create();
    }
    std::atomic<std::size_t> differencesOfOthers = 0;
    {
        const Meanwhile others(3, [&](const std::size_t i) {
            const std::unique_ptr<base::BaseAPIIf> instance = mService.module().create();
            for (const std::size_t operation : {i, mCalls.size() - 1 - i}) {
                differencesOfOthers += mCalls[operation][i % 2].differences(cameraOf(instance.get()), 1);
            }
        });
        expectNoDifferencesInStep([&](const std::size_t thread) -> CameraAPIIf& {
            return cameraOf(instances[thread % instances.size()].get());
        });
    }
    EXPECT_EQ(differencesOfOthers, 0U);
}

TEST_F(Threads, WorkWhileOthersLoadAndUnloadCopiesOfTheModule) {
    std::array<ModuleCopy, 2> copies;
    std::atomic<std::size_t> differencesOfOthers = 0;
    std::atomic<std::size_t> stillLoaded = 0;
    {
        const Meanwhile others(copies.size(), [&](const std::size_t i) {
            {
                const LoadedService another(copies[i].file());
                differencesOfOthers += std::size_t(another.module().factory() == mService.module().factory());
                for (const auto& sets : mCalls) {
                    differencesOfOthers += sets[i].differences(*another, 1);
                }
            }
            stillLoaded += std::size_t(copies[i].isLoaded());
        });
        expectNoDifferences([&](const std::size_t thread) { return differencesInTurn(*mService, thread); });
    }
    EXPECT_EQ(differencesOfOthers, 0U);
    EXPECT_EQ(stillLoaded, 0U);
}

} // namespace

} // namespace qel::api::camera::test
