// SPDX-License-Identifier: Apache-2.0
#include "CameraLibraryHandler.h"

#include <string>
#include <utility>

#include "Failure.h"

namespace qel::api::camera {

using base::StringResult;

namespace {

struct Identity {
    const char* name;
    const char* version;
};

constexpr Identity componentIdentity{"CameraAPI", CAMERA_COMPONENT_VERSION};
constexpr const char* componentVariant = "";

/// The revision of the base interface that this component was made for. No operation reports it.
[[maybe_unused]] constexpr Identity baseInterfaceIdentity{"BaseAPI", "1.0"};

/// Replaces the whole result, so that an older error in it is gone; on failure the value is left alone.
void identify(StringResult& _return, const char* value, const Failure& failure) noexcept {
    try {
        StringResult result;
        result.mValue = value;
        _return = std::move(result);
    } catch (...) {
        failure.report(_return.mResult);
    }
}

} // namespace

void CameraLibraryHandler::getComponentVersion(StringResult& _return) {
    identify(_return, componentIdentity.version, Failure::withText("Unable to get component version."));
}

void CameraLibraryHandler::getComponentVariant(StringResult& _return) {
    identify(_return, componentVariant, Failure::withText("Unable to get component variant."));
}

void CameraLibraryHandler::getComponentName(StringResult& _return) {
    identify(_return, componentIdentity.name, Failure::withText("Unable to get component name."));
}

} // namespace qel::api::camera
