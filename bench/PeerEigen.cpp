// SPDX-License-Identifier: Apache-2.0
#include <cmath>

#include <Eigen/Dense>
#include <Eigen/Geometry>
#include <benchmark/benchmark.h>

#include "bench/Benchmarks.h"
#include "bench/Scene.h"

namespace qel::bench {

namespace {

using Eigen::Matrix3d;
using Eigen::Matrix4d;
using Eigen::Vector3d;
using Eigen::Vector4d;

struct ViewPart {
    Matrix4d viewMatrix;
    Matrix4d viewTransformMatrix;
    Vector3d eye;
    Vector3d direction;
    Eigen::Quaterniond orientation;
};

struct FullState {
    ViewPart view;
    Matrix4d projection;
    Matrix4d viewProjection;
    Matrix4d viewProjectionInverse;
};

/// Eigen has no look-at of its own; this is how its users write it.
ViewPart lookAt() {
    ViewPart part;
    part.eye = toType<Vector3d>(scene::eye);
    const Vector3d up = toType<Vector3d>(scene::up);
    const Vector3d forward = (toType<Vector3d>(scene::target) - part.eye).normalized();
    const Vector3d side = forward.cross(up).normalized();
    Matrix3d rotation;
    rotation.col(0) = side;
    rotation.col(1) = side.cross(forward);
    rotation.col(2) = -forward;
    Eigen::Isometry3d placement;
    placement.linear() = rotation;
    placement.translation() = part.eye;
    placement.makeAffine();
    part.viewTransformMatrix = placement.matrix();
    part.viewMatrix = placement.inverse().matrix();
    part.direction = forward;
    part.orientation = Eigen::Quaterniond(rotation);
    return part;
}

Matrix4d perspective() {
    const double scale = 1.0 / std::tan(scene::verticalFoV / 2.0);
    const double depth = scene::nearDist - scene::farDist;
    Matrix4d m = Matrix4d::Zero();
    m(0, 0) = scale / scene::aspect;
    m(1, 1) = scale;
    m(2, 2) = (scene::farDist + scene::nearDist) / depth;
    m(3, 2) = -1.0;
    m(2, 3) = 2.0 * scene::farDist * scene::nearDist / depth;
    return m;
}

void viewPart(benchmark::State& state) {
    ViewPart part;
    for (auto _ : state) {
        part = lookAt();
        benchmark::DoNotOptimize(&part);
        benchmark::ClobberMemory();
    }
}

void fullState(benchmark::State& state) {
    FullState full;
    for (auto _ : state) {
        full.view = lookAt();
        full.projection = perspective();
        full.viewProjection = full.projection * full.view.viewMatrix;
        full.viewProjectionInverse = full.viewProjection.inverse();
        benchmark::DoNotOptimize(&full);
        benchmark::ClobberMemory();
    }
}

} // namespace

void registerEigen() {
    benchmark::RegisterBenchmark("peer/eigen/view part", viewPart);
    benchmark::RegisterBenchmark("peer/eigen/full camera state", fullState);
}

} // namespace qel::bench
