// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include <string>
#include <utility>

#include "component/Identity.h"

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

} // namespace

void identify(StringResult& _return, const char* value, const Failure& failure) noexcept {
    try {
        StringResult result;
        result.mValue = value;
        _return = std::move(result);
    } catch (...) {
        failure.report(_return.mResult);
    }
}

void CameraLibraryHandler::getComponentVersion(StringResult& _return) {
    identify(_return, componentIdentity.version, versionFailure);
}

void CameraLibraryHandler::getComponentVariant(StringResult& _return) {
    identify(_return, componentVariant, variantFailure);
}

void CameraLibraryHandler::getComponentName(StringResult& _return) {
    identify(_return, componentIdentity.name, nameFailure);
}

} // namespace qel::api::camera
