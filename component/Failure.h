// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include <qel/api/base/Records.h>
#include <qel/api/camera/Values.h>

namespace qel::api::camera::component {

/// Sets the code and a message in three pieces, which are joined only now. Where there is no memory even for the
/// message, the code alone is set and the record holds no message.
void reportFailure(base::ServiceResult& result, std::int32_t error, const char* before, const char* operation,
                   const char* after) noexcept;

/// What an operation reports when anything is thrown inside it.
struct Failure {
    /// "Call to <operation>() failed."; the operation is its own name, as __func__ gives it.
    static constexpr Failure ofCall(const char* operation,
                                    CameraAPIError::type error = CameraAPIError::CAMERA_API_ERROR_UNKNOWN) noexcept {
        return {"Call to ", operation, "() failed.", error};
    }

    /// A text of its own, with code -1.
    static constexpr Failure withText(const char* text) noexcept {
        return {text, "", "", CameraAPIError::CAMERA_API_ERROR_UNKNOWN};
    }

    [[gnu::always_inline]] void report(base::ServiceResult& result) const noexcept {
        reportFailure(result, error, before, operation, after);
    }

    const char* before;
    const char* operation;
    const char* after;
    std::int32_t error;
};

} // namespace qel::api::camera::component
