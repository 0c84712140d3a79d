// SPDX-License-Identifier: Apache-2.0
#include "host/show/StateBlob.h"

#include <bit>

namespace qel::host {

namespace {

constexpr std::size_t headerSize = 8;

/// Takes one number after the other; all are little-endian.
class Reader {
public:
    explicit Reader(std::string_view bytes) : mBytes(bytes) { mBytes.remove_prefix(headerSize); }

    std::uint64_t take(std::size_t size) {
        std::uint64_t value = 0;
        for (std::size_t index = 0; index < size; ++index) {
            value |= std::uint64_t{static_cast<unsigned char>(mBytes[index])} << (8 * index);
        }
        mBytes.remove_prefix(size);
        return value;
    }

    std::uint32_t takeWord() { return static_cast<std::uint32_t>(take(4)); }
    double takeDouble() { return std::bit_cast<double>(take(8)); }

    template <std::size_t count>
    std::array<double, count> takeDoubles() {
        std::array<double, count> values{};
        for (double& value : values) {
            value = takeDouble();
        }
        return values;
    }

    /// A matrix, its kind word and the padding after that.
    template <std::size_t order>
    ImageMatrix takeMatrix() {
        ImageMatrix matrix;
        for (std::size_t column = 0; column < order; ++column) {
            for (std::size_t row = 0; row < order; ++row) {
                matrix(row, column) = takeDouble();
            }
        }
        matrix.kind = takeWord();
        takeWord();
        return matrix;
    }

private:
    std::string_view mBytes;
};

} // namespace

std::optional<ViewImage> readViewImage(std::string_view bytes) {
    if (bytes.size() < viewImageSize) {
        return std::nullopt;
    }
    Reader reader(bytes);
    ViewImage image;
    image.viewTransform = reader.takeMatrix<4>();
    image.view = reader.takeMatrix<4>();
    image.rotation = reader.takeMatrix<3>();
    image.eye = reader.takeDoubles<3>();
    return image;
}

std::optional<ProjectionImage> readProjectionImage(std::string_view bytes) {
    if (bytes.size() < projectionImageSize) {
        return std::nullopt;
    }
    Reader reader(bytes);
    ProjectionImage image;
    image.projection = reader.takeMatrix<4>();
    image.inverse = reader.takeMatrix<4>();
    image.orthographic = reader.takeWord() == 1;
    reader.takeWord();
    image.frustum = reader.takeDoubles<6>();
    return image;
}

std::optional<SurfaceImage> readSurfaceImage(std::string_view bytes) {
    if (bytes.size() < surfaceImageSize) {
        return std::nullopt;
    }
    Reader reader(bytes);
    SurfaceImage image;
    image.viewport = reader.takeDoubles<6>();
    image.toScreen = reader.takeMatrix<4>();
    image.fromScreen = reader.takeMatrix<4>();
    image.resolutionX = reader.takeWord();
    image.resolutionY = reader.takeWord();
    return image;
}

PlanarCameraImageParts partsOfImage(std::string_view bytes) {
    if (bytes.size() < planarCameraImageSize) {
        return {};
    }
    // After its header the camera keeps 16 bytes of its own.
    bytes.remove_prefix(headerSize + 16);
    return {bytes.substr(0, viewImageSize), bytes.substr(viewImageSize, projectionImageSize),
            bytes.substr(viewImageSize + projectionImageSize, surfaceImageSize)};
}

bool sameImage(std::string_view a, std::string_view b) {
    return a.size() == b.size() && a.size() >= headerSize && a.substr(headerSize) == b.substr(headerSize);
}

} // namespace qel::host
