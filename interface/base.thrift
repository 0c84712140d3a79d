// SPDX-License-Identifier: Apache-2.0
// Written by scripts/pages/thrift.py from the public headers. Change those.

namespace cpp qel.api.base
namespace py qel.api.base
namespace js qel.api.base

/** The outcome of one call of a service. A default ServiceResult reports success. */
struct ServiceResult {
    /** 0 for success, else an error code of the service (CameraAPIError). */
    1: i32 mError
    /** What failed; absent, its set-flag down, when nothing did. */
    2: optional string mMessage
}

/** A text and the outcome of the call that made it. */
struct StringResult {
    1: ServiceResult mResult
    2: string mValue
}

/**
 * What every component answers: who it is. No operation throws. A failed call sets the error code and a message, and
 * leaves the value alone; where there is no memory even for the message, the code alone is set.
 */
service BaseAPI {
    /**
     * The component's version, such as "0.3.10". When memory runs out: error -1 and "Unable to get component version.".
     */
    StringResult getComponentVersion()

    /**
     * The component's variant; the camera component has none and answers the empty string. Success and failure as
     * getComponentVersion, with "Unable to get component variant.".
     */
    StringResult getComponentVariant()

    /**
     * The component's name, "CameraAPI". Success and failure as getComponentVersion, with "Unable to get component
     * name.".
     */
    StringResult getComponentName()
}
