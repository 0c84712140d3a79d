// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/base/Records.h>

namespace qel::api::base {

/// What every component answers: who it is. No operation throws.
///
/// The host owns a component instance and destroys it with `delete` through this interface, before it unloads
/// the module that made it.
class BaseAPIIf {
public:
    virtual ~BaseAPIIf() = default;

    /// The component's version, such as "0.3.10". On success `_return` is replaced as a whole, so that an older
    /// error in it is gone. When memory runs out: error -1 and "Unable to get component version.", the value is
    /// left alone.
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

} // namespace qel::api::base
