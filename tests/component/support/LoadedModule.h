// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <dlfcn.h>

#include <memory>
#include <stdexcept>
#include <string>

#include <qel/api/base/BaseAPIIf.h>
#include <qel/api/camera/CameraAPIIf.h>

namespace qel::api::camera::test {

/// The module file that was built, loaded with nothing but dlopen: these tests look at the loading itself too.
class LoadedModule {
public:
    explicit LoadedModule(const char* file = CAMERA_MODULE_FILE) : mHandle(dlopen(file, RTLD_NOW | RTLD_LOCAL)) {
        if (mHandle == nullptr) {
            throw std::runtime_error(dlerror());
        }
        mFactory = reinterpret_cast<base::CreateComponentInstance*>(dlsym(mHandle, base::createComponentInstanceName));
        if (mFactory == nullptr) {
            dlclose(mHandle);
            throw std::runtime_error(std::string(file) + " has no factory");
        }
    }
    ~LoadedModule() { dlclose(mHandle); }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    [[nodiscard]] base::CreateComponentInstance* factory() const { return mFactory; }

    /// A new instance, to be destroyed through this interface before the module goes.
    [[nodiscard]] std::unique_ptr<base::BaseAPIIf> create() const {
        return std::unique_ptr<base::BaseAPIIf>(mFactory());
    }

private:
    void* mHandle;
    base::CreateComponentInstance* mFactory = nullptr;
};

/// The camera face of an instance. Throws where there is none.
inline CameraAPIIf& cameraOf(base::BaseAPIIf* instance) { return dynamic_cast<CameraAPIIf&>(*instance); }

/// One instance of the service and the module that it lives in, which goes last.
class LoadedService {
public:
    explicit LoadedService(const char* file = CAMERA_MODULE_FILE)
        : mModule(file), mInstance(mModule.create()), mCamera(cameraOf(mInstance.get())) {}

    [[nodiscard]] const LoadedModule& module() const { return mModule; }
    CameraAPIIf& operator*() const { return mCamera; }
    CameraAPIIf* operator->() const { return &mCamera; }

private:
    LoadedModule mModule;
    std::unique_ptr<base::BaseAPIIf> mInstance;
    CameraAPIIf& mCamera;
};

} // namespace qel::api::camera::test
