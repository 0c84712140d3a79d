// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace qel::api::camera::impl {

/// What every kind of camera shares: two opaque words, kept for whoever uses the camera and read by no operation,
/// and the hooks of its kind.
class Camera {
public:
    /// All that a camera of no particular kind holds, as it stands in a blob.
    struct Block {
        std::uint64_t firstWord = 0;
        std::uint64_t secondWord = 0;
    };

    virtual ~Camera() = default;

    virtual void setFirstWord(std::uint64_t word) { mWords.firstWord = word; }
    [[nodiscard]] virtual std::uint64_t firstWord() const { return mWords.firstWord; }
    virtual void setSecondWord(std::uint64_t word) { mWords.secondWord = word; }
    [[nodiscard]] virtual std::uint64_t secondWord() const { return mWords.secondWord; }

    virtual void updateFromScreen() = 0;
    virtual void updateFromWindow() = 0;
    [[nodiscard]] virtual std::string typeName() const = 0;

protected:
    Camera() = default;
    Camera(const Camera&) = default;
    Camera& operator=(const Camera&) = default;

    Block mWords; ///< in front of all that a kind of camera adds
};

} // namespace qel::api::camera::impl
