// SPDX-License-Identifier: Apache-2.0
#include <benchmark/benchmark.h>

#include <glm/glm.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/quaternion.hpp>

#include "bench/Benchmarks.h"
#include "bench/Scene.h"

namespace qel::bench {

namespace {

const auto eye = toType<glm::dvec3>(scene::eye);
const auto target = toType<glm::dvec3>(scene::target);
const auto up = toType<glm::dvec3>(scene::up);

/// What viewUpdateLookat gives.
struct ViewPart {
    glm::dmat4 viewMatrix;
    glm::dmat4 viewTransformMatrix;
    glm::dvec3 eye;
    glm::dvec3 direction;
    glm::dquat orientation;
};

/// What a viewer keeps of a camera: the view part, the projection, and what culling and picking need of both.
struct FullState {
    ViewPart view;
    glm::dmat4 projection;
    glm::dmat4 viewProjection;
    glm::dmat4 viewProjectionInverse;
};

ViewPart lookAt() {
    ViewPart part;
    part.viewMatrix = glm::lookAt(eye, target, up);
    part.viewTransformMatrix = glm::inverse(part.viewMatrix);
    part.eye = eye;
    part.direction = -glm::dvec3(part.viewTransformMatrix[2]);
    part.orientation = glm::quat_cast(part.viewTransformMatrix);
    return part;
}

void viewPart(benchmark::State& state) {
    ViewPart part;
    for (auto _ : state) {
        benchmark::ClobberMemory();
        part = lookAt();
        benchmark::DoNotOptimize(&part);
        benchmark::ClobberMemory();
    }
}

void fullState(benchmark::State& state) {
    FullState full;
    double aspect = scene::aspect;
    for (auto _ : state) {
        benchmark::DoNotOptimize(aspect);
        full.view = lookAt();
        full.projection = glm::perspective(scene::verticalFoV, aspect, scene::nearDist, scene::farDist);
        full.viewProjection = full.projection * full.view.viewMatrix;
        full.viewProjectionInverse = glm::inverse(full.viewProjection);
        benchmark::DoNotOptimize(&full);
        benchmark::ClobberMemory();
    }
}

void project(benchmark::State& state) {
    glm::dmat4 view = glm::lookAt(eye, target, up);
    glm::dmat4 projection = glm::perspective(scene::verticalFoV, scene::aspect, scene::nearDist, scene::farDist);
    glm::dvec4 viewport(0.0, 0.0, 640.0, 480.0);
    glm::dvec3 point = toType<glm::dvec3>(scene::point);
    glm::dvec3 screen;
    benchmark::DoNotOptimize(&view);
    benchmark::DoNotOptimize(&projection);
    benchmark::DoNotOptimize(&viewport);
    benchmark::DoNotOptimize(&point);
    for (auto _ : state) {
        benchmark::ClobberMemory();
        screen = glm::project(point, view, projection, viewport);
        benchmark::DoNotOptimize(&screen);
        benchmark::ClobberMemory();
    }
}

} // namespace

void registerGlm() {
    benchmark::RegisterBenchmark("peer/glm/view part", viewPart);
    benchmark::RegisterBenchmark("peer/glm/full camera state", fullState);
    benchmark::RegisterBenchmark("peer/glm/project", project);
}

} // namespace qel::bench
