// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace qel::host {

/// A grid of red, green, blue and alpha bytes in sRGB, its top row first.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes; ///< four each pixel

    /// The four bytes of a pixel, counted from the top left one.
    [[nodiscard]] const std::uint8_t* at(int column, int row) const {
        return bytes.data() +
               (static_cast<std::size_t>(row) * static_cast<std::size_t>(width) + static_cast<std::size_t>(column)) * 4;
    }
};

/// Writes the picture as PNG, without its alpha. Throws std::runtime_error, naming the file.
void writePng(const Picture& picture, const std::filesystem::path& file);

} // namespace qel::host
