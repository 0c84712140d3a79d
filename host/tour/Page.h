// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <qel/api/camera/CameraAPIIf.h>

namespace qel::host {

/// A line of the generator's name stands in the page's head, by which an earlier tour's page is known.
inline constexpr std::string_view pageGenerator = R"(<meta name="generator" content="camera tour">)";

/// A picture with all that is said of it.
struct Shot {
    std::string chapter;
    std::string file;
    std::string title;
    std::string text;
    std::vector<std::string> calls; ///< the operations, one line each
    api::camera::PlanarCameraState camera;
    int width = 0;
    int height = 0;
};

/// What stands above the pictures: a heading and facts by name.
struct PageHead {
    std::string title;
    std::string text;
    std::vector<std::pair<std::string, std::string>> facts;
};

/// One page of HTML that needs nothing but the pictures beside it.
std::string makePage(const PageHead& head, const std::vector<Shot>& shots);

} // namespace qel::host
