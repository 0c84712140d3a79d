// SPDX-License-Identifier: Apache-2.0
#include "tests/host/SeenPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include <png.h>

namespace qel::host::test {
namespace {

bool isModel(const std::uint8_t* pixel) { return pixel[0] > pixel[2] + 16; }

bool isColour(const std::uint8_t* pixel, Colour colour) {
    constexpr float tolerance = 12.0F;
    return std::abs(static_cast<float>(pixel[0]) - colour.red) < tolerance &&
           std::abs(static_cast<float>(pixel[1]) - colour.green) < tolerance &&
           std::abs(static_cast<float>(pixel[2]) - colour.blue) < tolerance;
}

} // namespace

SeenPicture::SeenPicture(const std::filesystem::path& file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, file.c_str()) == 0) {
        throw std::runtime_error(file.string() + ": " + image.message);
    }
    image.format = PNG_FORMAT_RGBA;
    mPicture.width = static_cast<int>(image.width);
    mPicture.height = static_cast<int>(image.height);
    mPicture.bytes.resize(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, mPicture.bytes.data(), 0, nullptr) == 0) {
        throw std::runtime_error(file.string() + ": " + image.message);
    }
}

template <class Wanted>
std::optional<Extents> SeenPicture::extents(const Wanted& wanted) const {
    Extents result{std::numeric_limits<int>::max(), -1, std::numeric_limits<int>::max(), -1};
    forEachPixel([&](Pixel at, const std::uint8_t* bytes) {
        if (wanted(bytes)) {
            result = {std::min(result.left, at.x), std::max(result.right, at.x), std::min(result.bottom, at.y),
                      std::max(result.top, at.y)};
        }
    });
    return result.right < 0 ? std::nullopt : std::optional(result);
}

int SeenPicture::countModel() const {
    int count = 0;
    forEachPixel([&](Pixel, const std::uint8_t* bytes) { count += isModel(bytes) ? 1 : 0; });
    return count;
}

std::optional<Extents> SeenPicture::modelExtents() const { return extents(isModel); }

std::optional<Extents> SeenPicture::extentsOf(Colour colour) const {
    return extents([&](const std::uint8_t* pixel) { return isColour(pixel, colour); });
}

std::optional<Vec2> SeenPicture::middleOf(Colour colour, Vec2 place, double distance) const {
    Vec2 sum;
    int count = 0;
    forEachPixel([&](Pixel at, const std::uint8_t* bytes) {
        const Vec2 centre{at.x + 0.5, at.y + 0.5};
        if (isColour(bytes, colour) && std::hypot(centre.x - place.x, centre.y - place.y) < distance) {
            sum = {sum.x + centre.x, sum.y + centre.y};
            ++count;
        }
    });
    return count == 0 ? std::nullopt : std::optional(Vec2{sum.x / count, sum.y / count});
}

int SeenPicture::countDifferences(const SeenPicture& other) const {
    if (other.width() != width() || other.height() != height()) {
        return width() * height();
    }
    constexpr int little = 6;
    int count = 0;
    for (std::size_t i = 0; i < mPicture.bytes.size(); i += 4) {
        int difference = 0;
        for (std::size_t part = 0; part < 3; ++part) {
            difference = std::max(difference, std::abs(mPicture.bytes[i + part] - other.mPicture.bytes[i + part]));
        }
        count += difference > little ? 1 : 0;
    }
    return count;
}

} // namespace qel::host::test
