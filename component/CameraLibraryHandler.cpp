// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include <string>
#include <utility>

#include "component/Identity.h"

namespace qel::api::camera {

using namespace component;
using base::StringResult;

namespace {

struct Identity {
    const char* name;
    const char* version;
};

/// What the component tells about itself. Its version is that of what it does, not that of a package or an interface.
constexpr Identity componentIdentity{"CameraAPI", "0.3.10"};
constexpr const char* componentVariant = "";

/// The revision of the base interface that this component was made for. No operation reports it; it stands in the
/// module for whoever looks into the file.
[[gnu::used, gnu::retain]] constexpr Identity baseInterfaceIdentity{"BaseAPI", "1.0"};

} // namespace

void component::identify(StringResult& _return, const char* value, const Failure failure) noexcept {
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
