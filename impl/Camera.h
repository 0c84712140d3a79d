// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace qel::api::camera::impl {

/// What every kind of camera shares: two opaque words, kept for whoever uses the camera and read by no operation,
/// and the hooks of its kind.
class Camera {
public:
    virtual ~Camera() = default;

    virtual void setFirstWord(std::uint64_t word) { mFirstWord = word; }
    [[nodiscard]] virtual std::uint64_t firstWord() const { return mFirstWord; }
    virtual void setSecondWord(std::uint64_t word) { mSecondWord = word; }
    [[nodiscard]] virtual std::uint64_t secondWord() const { return mSecondWord; }

    virtual void updateFromScreen() = 0;
    virtual void updateFromWindow() = 0;
    [[nodiscard]] virtual std::string typeName() const = 0;

protected:
    Camera() = default;
    Camera(const Camera&) = default;
    Camera& operator=(const Camera&) = default;

private:
    std::uint64_t mFirstWord = 0;
    std::uint64_t mSecondWord = 0;
};

} // namespace qel::api::camera::impl
