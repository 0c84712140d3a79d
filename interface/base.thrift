// SPDX-License-Identifier: Apache-2.0

namespace cpp qel.api.base
namespace py qel.api.base
namespace js qel.api.base

/** The outcome of one call of a service. */
struct ServiceResult {
    /** 0 for success, else an error code of the service (CameraAPIError for the camera service). */
    1: i32 mError
    /** What failed; absent when nothing did. */
    2: optional string mMessage
}

/** A text and the outcome of the call that made it. */
struct StringResult {
    1: ServiceResult mResult
    2: string mValue
}

/** What every component answers: who it is. */
service BaseAPI {
    /** The component's version, such as "0.3.10". */
    StringResult getComponentVersion()

    /** The component's variant; the camera component has none and answers the empty string. */
    StringResult getComponentVariant()

    /** The component's name, "CameraAPI". */
    StringResult getComponentName()
}
