// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/base/Records.h>

namespace qel::api::base {

/// What every component answers: who it is. No operation throws. A failed call sets the error code and a message, and
/// leaves the value alone; where there is no memory even for the message, the code alone is set.
///
/// In C++ the host owns a component instance and destroys it with `delete` through this interface, before it unloads
/// the module that made it. A failure that has no memory for its message clears an older one and lowers its set-flag.
class BaseAPIIf {
public:
    virtual ~BaseAPIIf() = default;

    /// The component's version, such as "0.3.10". When memory runs out: error -1 and "Unable to get component
    /// version.". In C++ success replaces `_return` as a whole, so that an older error in it is gone.
    virtual void getComponentVersion(StringResult& _return) = 0;

    /// The component's variant; the camera component has none and answers the empty string. Success and failure
    /// as getComponentVersion, with "Unable to get component variant.".
    virtual void getComponentVariant(StringResult& _return) = 0;

    /// The component's name, "CameraAPI". Success and failure as getComponentVersion, with
    /// "Unable to get component name.".
    virtual void getComponentName(StringResult& _return) = 0;

protected:
    BaseAPIIf() = default;
    BaseAPIIf(const BaseAPIIf&) = default;
    BaseAPIIf& operator=(const BaseAPIIf&) = default;
};

/// The name under which a module exports its factory, for dlsym, and the factory's type.
inline constexpr const char* createComponentInstanceName = "createComponentInstance";
using CreateComponentInstance = BaseAPIIf*();

} // namespace qel::api::base

/// The one function that a component's module exports. Makes a new, independent instance, or returns null when there
/// is no memory for it; never throws, and may be called from several threads at once. The caller owns the instance:
/// it destroys it with `delete` while the module is still loaded, and reaches the camera operations with
/// `dynamic_cast<qel::api::camera::CameraAPIIf*>`. A host looks it up by name and does not link it.
extern "C" qel::api::base::BaseAPIIf* createComponentInstance();
