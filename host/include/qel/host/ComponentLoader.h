// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <exception>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include <dlfcn.h>

#include <qel/api/base/BaseAPIIf.h>
#include <qel/api/camera/CameraAPIIf.h>

namespace qel::host {

/// Why a module did not become a camera service. The text names the file and what was wrong with it.
class LoadError : public std::runtime_error {
public:
    enum class Reason {
        missingFile,   ///< nothing stands at the path
        notAModule,    ///< the dynamic loader refuses the file: no shared object, another machine's, a library it needs
        missingSymbol, ///< the module does not export the factory
        noInstance,    ///< the factory returned null, or threw
        wrongInterface, ///< the instance is a component, but offers no camera service
    };

    LoadError(Reason reason, const std::filesystem::path& module, const std::string& what)
        : std::runtime_error(module.string() + ": " + what), mReason(reason) {}

    [[nodiscard]] Reason reason() const noexcept { return mReason; }

private:
    Reason mReason;
};

/// A camera component's module together with one instance of its service. Destruction deletes the instance, then
/// closes the module, since the instance's code is the module's. Not even an exception may carry code of the module
/// out of it.
///
/// Loaders are independent: two of one file share the mapped module, and it stays until the last is gone. References
/// from camera() and base() end with the loader that they came from, but survive its being moved.
class ComponentLoader {
public:
    /// Opens the module with its symbols kept to itself, and makes an instance. Throws LoadError, and leaves nothing
    /// loaded then.
    explicit ComponentLoader(const std::filesystem::path& module)
        : mModule(open(module)),
          mInstance(create(mModule.get(), module)),
          mCamera(dynamic_cast<api::camera::CameraAPIIf*>(mInstance.get())) {
        if (mCamera == nullptr) {
            throw LoadError(LoadError::Reason::wrongInterface, module, "the component offers no camera service");
        }
    }

    ComponentLoader(ComponentLoader&& other) noexcept
        : mModule(std::move(other.mModule)),
          mInstance(std::move(other.mInstance)),
          mCamera(std::exchange(other.mCamera, nullptr)) {}

    /// By exchange, not member by member: that would close this loader's module before its instance is gone.
    ComponentLoader& operator=(ComponentLoader&& other) noexcept {
        ComponentLoader taken(std::move(other));
        std::swap(mModule, taken.mModule);
        std::swap(mInstance, taken.mInstance);
        std::swap(mCamera, taken.mCamera);
        return *this;
    }

    ComponentLoader(const ComponentLoader&) = delete;
    ComponentLoader& operator=(const ComponentLoader&) = delete;
    ~ComponentLoader() = default;

    /// The services; not to be asked of a loader that was moved from.
    [[nodiscard]] api::camera::CameraAPIIf& camera() const noexcept { return *mCamera; }
    [[nodiscard]] api::base::BaseAPIIf& base() const noexcept { return *mInstance; }

private:
    struct CloseModule {
        void operator()(void* handle) const noexcept { dlclose(handle); }
    };
    using Module = std::unique_ptr<void, CloseModule>;
    using Instance = std::unique_ptr<api::base::BaseAPIIf>;

    static Module open(const std::filesystem::path& module) {
        std::error_code error;
        if (!std::filesystem::exists(module, error)) {
            throw LoadError(LoadError::Reason::missingFile, module,
                            error ? "cannot be reached: " + error.message() : std::string("no such file"));
        }
        // A name without a slash would be searched for in the system's library folders.
        const std::filesystem::path path = std::filesystem::absolute(module);
        Module handle(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
        if (!handle) {
            throw LoadError(LoadError::Reason::notAModule, module, "cannot be loaded: " + lastError());
        }
        return handle;
    }

    static Instance create(void* handle, const std::filesystem::path& module) {
        dlerror();
        void* symbol = dlsym(handle, api::base::createComponentInstanceName);
        if (symbol == nullptr) {
            throw LoadError(LoadError::Reason::missingSymbol, module,
                            std::string("does not export ") + api::base::createComponentInstanceName);
        }
        // POSIX lets dlsym return a function as a data pointer.
        const auto factory = reinterpret_cast<api::base::CreateComponentInstance*>(symbol);
        std::string failure = "the factory returned no instance";
        try {
            if (Instance instance{factory()}) {
                return instance;
            }
        } catch (const std::exception& exception) {
            failure = std::string("the factory threw: ") + exception.what();
        } catch (...) {
            failure = "the factory threw an exception";
        }
        throw LoadError(LoadError::Reason::noInstance, module, failure);
    }

    static std::string lastError() {
        const char* text = dlerror();
        return text != nullptr ? text : "no reason given";
    }

    // The order matters: members are destroyed from the last to the first.
    Module mModule;
    Instance mInstance;
    api::camera::CameraAPIIf* mCamera;
};

} // namespace qel::host
