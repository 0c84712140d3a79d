// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include "host/tour/Page.h"

namespace qel::host {

struct TourOptions {
    std::filesystem::path model;
    std::filesystem::path output; ///< a folder: new, empty, or with an earlier tour to replace
    std::filesystem::path module; ///< the camera component
    std::int32_t width = 960;     ///< of the window, in pixels
    std::int32_t height = 640;    ///< of the window, in pixels
};

/// The sides of a window that a tour draws, in pixels.
inline constexpr std::int32_t smallestSide = 64;
inline constexpr std::int32_t largestSide = 4096;

/// Told before each picture: its number from 1, how many there are, and its title. What it throws ends the tour.
using Progress = std::function<void(std::size_t number, std::size_t count, std::string_view title)>;

/// Loads the model and the component, walks the camera around the model, and writes a picture of each step and the
/// page index.html that shows them. The output folder changes only when all of it is written. Throws an exception
/// derived from std::runtime_error whose text is fit for the user.
std::vector<Shot> runTour(const TourOptions& options, const Progress& progress);

} // namespace qel::host
