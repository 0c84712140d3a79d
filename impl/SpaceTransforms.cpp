// SPDX-License-Identifier: Apache-2.0
#include "impl/SpaceTransforms.h"

namespace qel::api::camera::impl {

using math::Vec3;

namespace {

ScreenToView screenToViewOf(const PlanarCamera& camera) noexcept {
    return {camera.surface().inverse(), camera.projection().matrix(), camera.projection().inverse(),
            camera.projection().isOrthographic()};
}

ViewToScreen viewToScreenOf(const PlanarCamera& camera) noexcept {
    return {camera.projection().matrix(), camera.surface().matrix(), camera.projection().isOrthographic()};
}

} // namespace

Vec3 screenToView(const PlanarCamera& camera, const ScreenPoint& point) noexcept {
    return transform(screenToViewOf(camera), point);
}

Vec3 screenToWorld(const PlanarCamera& camera, const ScreenPoint& point) noexcept {
    return viewPointToWorld(camera.view(), screenToView(camera, point));
}

Vec3 screenVectorToView(const PlanarCamera& camera, const ScreenPoint& first, const ScreenPoint& second) noexcept {
    return transformVector(screenToViewOf(camera), first, second);
}

Vec3 screenVectorToWorld(const PlanarCamera& camera, const ScreenPoint& first, const ScreenPoint& second) noexcept {
    return viewVectorToWorld(camera.view(), screenVectorToView(camera, first, second));
}

Vec3 viewToScreen(const PlanarCamera& camera, const Vec3& point) noexcept {
    return transform(viewToScreenOf(camera), point);
}

Vec3 worldToScreen(const PlanarCamera& camera, const Vec3& point) noexcept {
    return viewToScreen(camera, camera.view().worldToViewPoint(point));
}

Vec3 viewPointToWorld(const View& view, const Vec3& point) noexcept {
    return viewPointToWorld(view.rotation(), view.eye(), point);
}

Vec3 viewVectorToWorld(const View& view, const Vec3& vector) noexcept { return view.rotation() * vector; }

} // namespace qel::api::camera::impl
