// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

#include "host/tour/Stage.h"

namespace qel::host {

/// One picture of the tour: what is done to the camera before it is drawn, and what is drawn over it.
struct Step {
    std::string_view chapter; ///< its heading on the page; steps of a chapter follow each other
    std::string_view name;    ///< of the picture's file, after its number
    std::string_view title;
    std::string_view text; ///< what to look for, plain text
    void (*act)(Stage& stage);
};

/// From the default camera to the views along the axes.
std::vector<Step> placingSteps();
/// What the projection and the view's own movements do.
std::vector<Step> projectionSteps();
/// What a person does with a mouse.
std::vector<Step> navigationSteps();

/// All of them in order.
std::vector<Step> tourSteps();

} // namespace qel::host
