// SPDX-License-Identifier: Apache-2.0
#include <cstddef>
#include <stdexcept>
#include <string>

#include "component/Images.h"
#include "component/ReadImage.h"
#include "component/StateConversion.h"

namespace qel::api::camera {

void throwShortImage(const char* state, const std::size_t expected, const std::size_t size) {
    throw std::invalid_argument(std::string(state) + "::mPrivate: expected " + std::to_string(expected) +
                                " bytes, got " + std::to_string(size));
}

impl::View toObject(const ViewState& state) { return readView(viewImageOf(state)); }

impl::Projection toObject(const ProjectionState& state) { return readProjection(projectionImageOf(state)); }

impl::Surface toObject(const SurfaceState& state) { return readSurface(surfaceImageOf(state)); }

impl::PlanarCamera toObject(const PlanarCameraState& state) {
    const char* image = imageOf(state);
    impl::PlanarCamera camera([&] { return readView(image + offsetof(PlanarCameraImage, view)); },
                              [&] { return readProjection(image + offsetof(PlanarCameraImage, projection)); },
                              [&] { return readSurface(image + offsetof(PlanarCameraImage, surface)); });
    const CameraWords words = readWords(image);
    camera.setFirstWord(words[0]);
    camera.setSecondWord(words[1]);
    return camera;
}

} // namespace qel::api::camera
