// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <limits>
#include <optional>
#include <utility>

#include "host/render/Picture.h"
#include "host/render/Stroke.h"
#include "host/scene/Geometry.h"

namespace qel::host::test {

/// Pixels from the picture's lower left corner, first and last included.
struct Extents {
    int left = 0;
    int right = 0;
    int bottom = 0;
    int top = 0;

    [[nodiscard]] int width() const { return right - left + 1; }
    [[nodiscard]] int height() const { return top - bottom + 1; }
};

/// What can be told of a picture by looking at its pixels alone. The model is the only brown thing in it.
class SeenPicture {
public:
    /// Reads a PNG file. Throws std::runtime_error where it is none.
    explicit SeenPicture(const std::filesystem::path& file);
    explicit SeenPicture(Picture picture) : mPicture(std::move(picture)) {}

    [[nodiscard]] int width() const { return mPicture.width; }
    [[nodiscard]] int height() const { return mPicture.height; }

    /// Calls visit(pixel, its four bytes) for each pixel, from the top left one.
    template <class Visit>
    void forEachPixel(const Visit& visit) const {
        for (int row = 0; row < height(); ++row) {
            for (int column = 0; column < width(); ++column) {
                visit(Pixel{column, height() - 1 - row}, mPicture.at(column, row));
            }
        }
    }

    [[nodiscard]] int countModel() const;
    /// Nothing where the model is not seen.
    [[nodiscard]] std::optional<Extents> modelExtents() const;
    /// Of the pixels of a colour; nothing where there are none.
    [[nodiscard]] std::optional<Extents> extentsOf(Colour colour) const;
    /// The middle of the pixels of a colour within a distance of a place; nothing where there are none.
    [[nodiscard]] std::optional<Vec2> middleOf(Colour colour, Vec2 place = {},
                                               double distance = std::numeric_limits<double>::infinity()) const;

    /// How many pixels differ by more than a little: all of them where the sizes do.
    [[nodiscard]] int countDifferences(const SeenPicture& other) const;

private:
    template <class Wanted>
    std::optional<Extents> extents(const Wanted& wanted) const;

    Picture mPicture;
};

} // namespace qel::host::test
