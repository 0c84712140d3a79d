// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include <qel/api/base/Records.h>
#include <qel/api/camera/Values.h>

namespace qel::api::camera {

/// What an operation reports when anything is thrown inside it. Costs nothing until then.
class Failure {
public:
    /// "Call to <operation>() failed."; the operation is its own name, as __func__ gives it.
    static constexpr Failure ofCall(const char* operation,
                                    CameraAPIError::type error = CameraAPIError::CAMERA_API_ERROR_UNKNOWN) noexcept {
        return {"Call to ", operation, "() failed.", error};
    }

    /// A text of its own, with code -1.
    static constexpr Failure withText(const char* text) noexcept {
        return {text, "", "", CameraAPIError::CAMERA_API_ERROR_UNKNOWN};
    }

    /// Sets code and message. Where there is no memory even for the message, the code alone is set and the record
    /// holds no message.
    void report(base::ServiceResult& result) const noexcept;

private:
    constexpr Failure(const char* before, const char* operation, const char* after, std::int32_t error) noexcept
        : mBefore(before), mOperation(operation), mAfter(after), mError(error) {}

    const char* mBefore;
    const char* mOperation;
    const char* mAfter;
    std::int32_t mError;
};

} // namespace qel::api::camera
