// SPDX-License-Identifier: Apache-2.0
#include "host/render/Picture.h"

#include <stdexcept>
#include <string>

#include <png.h>

namespace qel::host {

void writePng(const Picture& picture, const std::filesystem::path& file) {
    std::vector<std::uint8_t> colours;
    colours.reserve(picture.bytes.size() / 4 * 3);
    for (std::size_t i = 0; i + 3 < picture.bytes.size(); i += 4) {
        colours.insert(colours.end(), {picture.bytes[i], picture.bytes[i + 1], picture.bytes[i + 2]});
    }

    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGB;
    if (png_image_write_to_file(&image, file.c_str(), 0, colours.data(), 0, nullptr) == 0) {
        throw std::runtime_error(file.string() + ": cannot be written: " + image.message);
    }
}

} // namespace qel::host
